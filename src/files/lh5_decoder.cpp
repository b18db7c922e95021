#include "files/lh5_decoder.h"

#include <algorithm>
#include <cstring>

using namespace lh5;

template<int Symbols, int IndexBits>
void DecodeTable<Symbols, IndexBits>::BuildSingle(unsigned symbol) noexcept
{
    std::fill(std::begin(first_), std::end(first_), Entry(symbol, 0));
}

template<int Symbols, int IndexBits>
bool DecodeTable<Symbols, IndexBits>::Build(const uint8_t (&lengths)[Symbols]) noexcept
{
    unsigned countOf[LongestCode + 1] = {};
    for (uint8_t length : lengths)
        ++countOf[length];
    unsigned next[LongestCode + 1] = {};
    unsigned code = 0;
    for (int length = 1; length <= LongestCode; ++length) {
        next[length] = code;
        code += countOf[length];
        if (code > 1u << length)
            return false;
        code <<= 1;
    }
    std::fill(std::begin(first_), std::end(first_), Entry(NoSymbol, 0));
    nodes_ = 0;
    for (unsigned symbol = 0; symbol < Symbols; ++symbol) {
        int length = lengths[symbol];
        if (length == 0)
            continue;
        if (length <= IndexBits)
            std::fill_n(first_ + (next[length]++ << (IndexBits - length)), 1 << (IndexBits - length),
                        Entry(symbol, length));
        else if (!AddLongCode(symbol, next[length]++, length))
            return false;
    }
    return true;
}

template<int Symbols, int IndexBits> bool DecodeTable<Symbols, IndexBits>::AddNode(unsigned& node) noexcept
{
    if (nodes_ == NodeLimit)
        return false;
    node = static_cast<unsigned>(Symbols + nodes_);
    branches_[nodes_][0] = branches_[nodes_][1] = NoSymbol;
    ++nodes_;
    return true;
}

template<int Symbols, int IndexBits>
bool DecodeTable<Symbols, IndexBits>::AddLongCode(unsigned symbol, unsigned code, int length) noexcept
{
    uint16_t& entry = first_[code >> (length - IndexBits)];
    unsigned node = entry >> LengthBits;
    if (node == NoSymbol) {
        if (!AddNode(node))
            return false;
        entry = Entry(node, IndexBits);
    }
    for (int bit = length - IndexBits - 1; bit > 0; --bit) {
        uint16_t& branch = branches_[node - Symbols][code >> bit & 1];
        node = branch;
        if (node == NoSymbol) {
            if (!AddNode(node))
                return false;
            branch = static_cast<uint16_t>(node);
        }
    }
    branches_[node - Symbols][code & 1] = static_cast<uint16_t>(symbol);
    return true;
}

Lh5Decoder::Lh5Decoder(ByteReader& source, uint64_t packedSize) noexcept : bits_(source, packedSize)
{
    // Other archivers let the first matches reach into a window of spaces.
    std::memset(Chunk, ' ', sizeof Chunk);
}

// The T and P tables.
template<class Table> bool Lh5Decoder::ReadLengths(Table& table, int countBits, int skipEntry) noexcept
{
    constexpr int Symbols = Table::SymbolCount;
    auto count = static_cast<int>(bits_.Take(countBits));
    if (count == 0) {
        unsigned symbol = bits_.Take(countBits);
        table.BuildSingle(symbol);
        return symbol < Symbols;
    }
    if (count > Symbols)
        return false;
    uint8_t lengths[Symbols] = {};
    for (int at = 0; at < count;) {
        auto length = bits_.Take(3);
        if (length == 7)
            while (bits_.Take(1))
                if (++length > LongestCode)
                    return false;
        lengths[at++] = static_cast<uint8_t>(length);
        if (at == skipEntry)
            at += static_cast<int>(bits_.Take(2));
    }
    return table.Build(lengths);
}

bool Lh5Decoder::ReadItemLengths() noexcept
{
    auto count = static_cast<int>(bits_.Take(ItemCountBits));
    if (count == 0) {
        unsigned symbol = bits_.Take(ItemCountBits);
        items_.BuildSingle(symbol);
        return symbol < ItemCodes;
    }
    if (count > ItemCodes)
        return false;
    uint8_t lengths[ItemCodes] = {};
    for (int at = 0; at < count;) {
        bits_.Cursor = bits_.Refilled(bits_.Cursor);
        unsigned code = lengths_.Take(bits_.Cursor);
        if (code >= LengthCodes)
            return false;
        if (code == OneZero)
            ++at;
        else if (code == ShortRun)
            at += ShortRunBase + static_cast<int>(bits_.Take(ShortRunBits));
        else if (code == LongRun)
            at += LongRunBase + static_cast<int>(bits_.Take(LongRunBits));
        else
            lengths[at++] = static_cast<uint8_t>(code - LengthOffset);
    }
    return items_.Build(lengths);
}

bool Lh5Decoder::ReadBlockHead() noexcept
{
    itemsLeft_ = bits_.Take(BlockSizeBits);
    return ReadLengths(lengths_, LengthCountBits, SkipEntry) && ReadItemLengths() &&
           ReadLengths(positions_, PositionCountBits, NoSkipEntry) && !bits_.Exhausted();
}

// Copies what is left of the match, as far as the chunk goes; where the next byte comes.
int Lh5Decoder::CopyMatch(int at, int count) noexcept
{
    for (; matchLeft_ > 0 && at < count; --matchLeft_) {
        Chunk[at++] = Chunk[matchFrom_];
        matchFrom_ = (matchFrom_ + 1) & (lh5::Window - 1);
    }
    return at;
}

namespace
{
constexpr unsigned NoPosition = PositionCodes;

// A match of at least ShortestMatch bytes that lies in one piece and comes from at least 8 bytes away.
inline void CopyFar(uint8_t* to, const uint8_t* from, int length) noexcept
{
    if (length >= 8) {
        for (int i = 0; i + 8 <= length; i += 8)
            std::memcpy(to + i, from + i, 8);
        std::memcpy(to + length - 8, from + length - 8, 8);
    } else if (length >= 4) {
        uint32_t last;
        std::memcpy(&last, from + length - 4, 4);
        std::memcpy(to, from, 4);
        std::memcpy(to + length - 4, &last, 4);
    } else {
        for (int i = 0; i < length; ++i)
            to[i] = from[i];
    }
}
} // namespace

// Decodes items of the block until it ends or the chunk is full; where the next byte comes, -1 when the data
// is bad.
int Lh5Decoder::DecodeItems(int at, int count) noexcept
{
    BitCursor bits = bits_.Cursor;
    unsigned left = itemsLeft_;
    bool bad = false;
    while (left > 0 && at < count) {
        if (bits.CanRefill())
            bits.Refill();
        else
            bits = bits_.Refilled(bits);
        --left;
        unsigned code = items_.Take(bits);
        if (code < Literals) {
            Chunk[at++] = static_cast<uint8_t>(code);
            continue;
        }
        unsigned width = code < ItemCodes ? positions_.Take(bits) : NoPosition;
        if ((bad = width >= PositionCodes))
            break;
        unsigned distance = width ? (1u << (width - 1)) + bits.Take(static_cast<int>(width) - 1) : 0;
        int length = static_cast<int>(code) - LengthBias;
        int from = (at - static_cast<int>(distance) - 1) & (lh5::Window - 1);
        if (distance >= 7 && distance < lh5::Window - 8 && at + length <= count &&
            from + length <= lh5::Window) {
            CopyFar(Chunk + at, Chunk + from, length);
            at += length;
        } else {
            matchFrom_ = from;
            matchLeft_ = length;
            at = CopyMatch(at, count);
        }
    }
    bits_.Cursor = bits;
    itemsLeft_ = left;
    return bad || bits_.Exhausted() ? -1 : at;
}

bool Lh5Decoder::Decode(int count) noexcept
{
    int at = CopyMatch(0, count);
    while (at >= 0 && at < count) {
        if (itemsLeft_ == 0) {
            if (!ReadBlockHead())
                return false;
        } else {
            at = DecodeItems(at, count);
        }
    }
    return at >= 0;
}
