#include "core/sort_keys.h"

#include "core/cell_store.h"
#include "core/cell_value.h"
#include "core/sort.h"
#include "core/sort_text.h"
#include "core/value_format.h"
#include "platform/memory.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <utility>

namespace
{
constexpr double EmptyCellKey = -1.7e+308;

struct SortKeyStatistics {
    long Made;
};
SortKeyStatistics sortKeyStatistics;

// Grows by doubling, so that a run costs few reallocations.
class Arena
{
public:
    bool Reserve(size_t bytes) noexcept
    {
        if (used_ + bytes <= capacity_)
            return true;
        size_t capacity = std::max(used_ + bytes, capacity_ * 2);
        void* grown = ReallocateBlock(block_, capacity);
        if (!grown)
            return false;
        block_ = static_cast<uint8_t*>(grown);
        capacity_ = capacity;
        return true;
    }
    uint8_t* End() noexcept { return block_ + used_; }
    size_t Used() const noexcept { return used_; }
    void Take(size_t bytes) noexcept { used_ += bytes; }
    uint8_t* Detach() noexcept { return std::exchange(block_, nullptr); }
    ~Arena() { FreeBlock(block_); }

private:
    uint8_t* block_ = nullptr;
    size_t used_ = 0;
    size_t capacity_ = 0;
};

uint64_t BigEndianPrefix(const uint8_t* bytes, size_t length) noexcept
{
    uint64_t prefix = 0;
    for (size_t i = 0; i < sizeof(prefix); ++i)
        prefix = prefix << 8 | (i < length ? bytes[i] : 0);
    return prefix;
}

// The terminator goes into the key: an empty text without it has none, though it equals every text of
// characters that do not count.
bool AppendKey(Arena& arena, const wchar_t* text, DWORD flags, CollationKey& key) noexcept
{
    key = {};
    // A guess that holds for most texts spares asking for the size first.
    int room = static_cast<int>(std::wcslen(text)) * 8 + 32;
    if (!arena.Reserve(room))
        return false;
    int made = LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | flags, text, -1,
                            reinterpret_cast<wchar_t*>(arena.End()), room);
    if (made == 0) {
        room = LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | flags, text, -1, nullptr, 0);
        if (room <= 0 || !arena.Reserve(room))
            return false;
        made = LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | flags, text, -1,
                            reinterpret_cast<wchar_t*>(arena.End()), room);
        if (made == 0)
            return false;
    }
    key.Prefix = BigEndianPrefix(arena.End(), made);
    if (made > static_cast<int>(sizeof(key.Prefix))) {
        key.Length = made - sizeof(key.Prefix);
        std::memmove(arena.End(), arena.End() + sizeof(key.Prefix), key.Length);
        key.Offset = arena.Used();
        arena.Take(key.Length);
    }
    return true;
}

double DateKey(const wchar_t* text) noexcept
{
    double value = 0.0;
    return TextToDateOrNumber(text, &value) ? value : 0.0;
}
} // namespace

long SortKeysMade() noexcept
{
    return sortKeyStatistics.Made;
}

RowKeys::~RowKeys()
{
    FreeBlock(OriginalIndex);
    FreeBlock(Numbers);
    FreeBlock(Texts);
    FreeBlock(Arena);
}

void RowKeys::Swap(int a, int b) noexcept
{
    if (OriginalIndex)
        std::swap(OriginalIndex[a], OriginalIndex[b]);
    if (Numbers)
        std::swap(Numbers[a], Numbers[b]);
    if (Texts)
        std::swap(Texts[a], Texts[b]);
}

void MakeOriginalIndex(RowKeys& keys, int first, int last) noexcept
{
    keys.OriginalIndex = static_cast<int*>(AllocateZeroed(last - first + 1, sizeof(int)));
    for (int row = first; keys.OriginalIndex && row <= last; ++row)
        keys.OriginalIndex[row - first] = row;
}

void MakeNumberKeys(RowKeys& keys, Grid& grid, int first, int last, int col, bool dates) noexcept
{
    keys.Numbers = static_cast<double*>(AllocateZeroed(last - first + 1, sizeof(double)));
    for (int row = first; keys.Numbers && row <= last && IsCell(grid, row, col); ++row) {
        const wchar_t* text = GetCellText(grid, row, col);
        bool empty = !text || !*text || !IsCell(grid, row, col); // a text source can take cells away
        keys.Numbers[row - first] = empty   ? EmptyCellKey
                                    : dates ? DateKey(text)
                                            : ValueOfCell(grid, row, col);
        ++sortKeyStatistics.Made;
    }
}

void MakeCollationKeys(RowKeys& keys, Grid& grid, int first, int last, int col, DWORD flags) noexcept
{
    keys.Texts = static_cast<CollationKey*>(AllocateZeroed(last - first + 1, sizeof(CollationKey)));
    if (!keys.Texts)
        return;
    ::Arena arena;
    for (int row = first; row <= last && IsCell(grid, row, col); ++row) {
        if (!AppendKey(arena, SortText(grid, row, col), flags, keys.Texts[row - first])) {
            FreeAndClear(keys.Texts);
            return;
        }
        ++sortKeyStatistics.Made;
    }
    keys.Arena = arena.Detach();
}

int CompareCollationKeys(const RowKeys& keys, int a, int b) noexcept
{
    const CollationKey& x = keys.Texts[a];
    const CollationKey& y = keys.Texts[b];
    if (x.Prefix != y.Prefix)
        return x.Prefix < y.Prefix ? -1 : 1;
    size_t shared = std::min(x.Length, y.Length);
    int order = shared ? std::memcmp(keys.Arena + x.Offset, keys.Arena + y.Offset, shared) : 0;
    return order ? order : static_cast<int>(x.Length > y.Length) - static_cast<int>(x.Length < y.Length);
}

namespace
{
// What the sort moves in place of rows: the part of the key that settles most comparisons.
template<class Key> struct KeyedPlace {
    Key Value;
    int Place;
};

template<class Key, class Before>
int* SortPlaces(int count, Key KeyAt(const RowKeys&, int), const RowKeys& keys, Before before) noexcept
{
    auto* entries = static_cast<KeyedPlace<Key>*>(AllocateZeroed(count, sizeof(KeyedPlace<Key>)));
    auto* places = static_cast<int*>(AllocateZeroed(count, sizeof(int)));
    if (entries && places) {
        for (int place = 0; place < count; ++place)
            entries[place] = {KeyAt(keys, place), place};
        std::sort(entries, entries + count, before);
        for (int place = 0; place < count; ++place)
            places[place] = entries[place].Place;
    } else {
        FreeAndClear(places);
    }
    FreeBlock(entries);
    return places;
}

double NumberAt(const RowKeys& keys, int place)
{
    return keys.Numbers[place];
}
uint64_t PrefixAt(const RowKeys& keys, int place)
{
    return keys.Texts[place].Prefix;
}
} // namespace

int* OrderByKeys(const RowKeys& keys, int count, int direction) noexcept
{
    if (keys.Numbers) {
        if (std::any_of(keys.Numbers, keys.Numbers + count, [](double number) { return std::isnan(number); }))
            return nullptr;
        auto before = [direction](const KeyedPlace<double>& a, const KeyedPlace<double>& b) {
            if (a.Value != b.Value)
                return (a.Value < b.Value) == (direction > 0);
            return a.Place < b.Place;
        };
        return SortPlaces<double>(count, NumberAt, keys, before);
    }
    if (!keys.Texts)
        return nullptr;
    auto before = [&keys, direction](const KeyedPlace<uint64_t>& a, const KeyedPlace<uint64_t>& b) {
        if (a.Value != b.Value)
            return (a.Value < b.Value) == (direction > 0);
        int order = CompareCollationKeys(keys, a.Place, b.Place);
        return order != 0 ? (order < 0) == (direction > 0) : a.Place < b.Place;
    };
    return SortPlaces<uint64_t>(count, PrefixAt, keys, before);
}
