// The sort beside a plain quicksort, row by row: with keys nobody sees how the order is found, but it has to
// be the one that the steps of the quicksort find, and a host that answers `Compare` sees the steps
// themselves.
#include "core/sort.h"
#include "core/sort_keys.h"
#include "support/fakes.h"
#include "support/sort_grid.h"

#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

namespace
{
using Pairs = std::vector<std::pair<long, long>>;

// The rows 1 to `count`; each entry says where the row at that place came from.
class PlainSort
{
public:
    using Comparison = std::function<int(int originA, int originB)>;

    PlainSort(int count, Comparison compare, bool breaksTies) : compare_(std::move(compare))
    {
        rows_.resize(count + 1);
        std::iota(rows_.begin(), rows_.end(), 0);
        bool ordered = true;
        for (int row = 1; row < count && ordered; ++row)
            ordered = Compare(row, row + 1) <= 0;
        breaksTies_ = breaksTies;
        if (!ordered)
            Sort(1, count);
    }
    std::vector<int> Origins() const { return {rows_.begin() + 1, rows_.end()}; }
    const Pairs& Asked() const { return asked_; }

private:
    int Compare(int a, int b)
    {
        if (a == b)
            return 0;
        asked_.emplace_back(a, b);
        int order = compare_(rows_[a], rows_[b]);
        return order != 0 || !breaksTies_ ? order : rows_[a] > rows_[b] ? 1 : -1;
    }
    void Swap(int a, int b) { std::swap(rows_[a], rows_[b]); }
    void Sort(int lo, int hi)
    {
        while (hi > lo) {
            int mid = (lo + hi) / 2;
            if (Compare(lo, mid) > 0)
                Swap(lo, mid);
            if (Compare(lo, hi) > 0)
                Swap(lo, hi);
            if (Compare(mid, hi) > 0)
                Swap(mid, hi);
            Swap(mid, hi - 1);
            int i = lo, j = hi - 1;
            while (lo < hi - 1) {
                while (Compare(++i, hi - 1) < 0) {
                }
                while (Compare(--j, hi - 1) > 0) {
                }
                if (i >= j)
                    break;
                Swap(i, j);
            }
            Swap(i, hi - 1);
            if (i - lo > hi - i) {
                Sort(i + 1, hi);
                hi = i - 1;
            } else {
                Sort(lo, i - 1);
                lo = i + 1;
            }
        }
    }

    Comparison compare_;
    bool breaksTies_ = false; // not before anything moves
    std::vector<int> rows_;
    Pairs asked_;
};

int OrderOf(double x, double y)
{
    return x < y ? -1 : x > y ? 1 : 0;
}

struct Number {
    const wchar_t* Text;
    double Value;
};
constexpr double Infinity = std::numeric_limits<double>::infinity();
const Number Numbers[] = {
    {L"", -1.7e308}, // empty cells have the smallest key but one
    {L"-1e305", -1e305}, {L"1e400", Infinity}, {L"-1e400", -Infinity},
    {L"0", 0},           {L"-0", 0},           {L"x", 0},
    {L"3", 3},           {L"3.0", 3},          {L"-7", -7},
    {L"12", 12},         {L"1e1", 10},         {L"10", 10},
};

std::vector<Number> SomeNumbers(std::mt19937& random)
{
    std::vector<Number> numbers(2 + random() % 40);
    size_t kinds = random() % 2 ? std::size(Numbers) : 5; // with many that are alike
    for (Number& number : numbers)
        number = Numbers[random() % kinds];
    return numbers;
}

// The comparison of two cells without keys, where an empty one comes first in both directions.
int OrderOfTexts(const Number& x, const Number& y, int direction)
{
    if (!*x.Text || !*y.Text)
        return *y.Text ? -1 : *x.Text ? 1 : 0;
    return direction * OrderOf(x.Value, y.Value);
}

TEST(SortBesideAQuicksort, NumbersWithEachAllocationFailing)
{
    enum { AllGood, KeysFail, OriginalOrderFails };
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        std::vector<Number> numbers = SomeNumbers(random);
        int order = seed % 2 ? lorvSortNumericAscending : lorvSortNumericDescending;
        int direction = seed % 2 ? 1 : -1;
        Texts texts;
        for (const Number& number : numbers)
            texts.emplace_back(number.Text);
        bool more = true;
        for (long failing = AllGood; more; ++failing) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", allocation " << failing);
            Grid grid;
            Fill(grid, texts);
            FailingAllocation failure(failing);
            ASSERT_EQ(SortAll(grid, order), S_OK);
            more = failing == AllGood || TheAllocationProbe().Count >= failing;
            PlainSort plain(
                static_cast<int>(numbers.size()),
                [&](int a, int b) {
                    const Number &x = numbers[a - 1], &y = numbers[b - 1];
                    return failing == KeysFail ? OrderOfTexts(x, y, direction)
                                               : direction * OrderOf(x.Value, y.Value);
                },
                failing != OriginalOrderFails);
            EXPECT_EQ(Origins(grid), plain.Origins());
        }
    }
}

TEST(SortBesideAQuicksort, TextsWithEachAllocationFailing)
{
    const wchar_t* const words[] = {L"", L"a", L"A", L"b", L"B", L"co-op", L"coop", L"a fairly long text"};
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        int order = lorvSortStringNoCaseAscending + static_cast<int>(seed % 4);
        DWORD flags = order <= lorvSortStringNoCaseDescending ? NORM_IGNORECASE : 0;
        int direction = order % 2 ? 1 : -1;
        Texts texts(2 + random() % 30);
        for (std::wstring& text : texts)
            text = words[random() % std::size(words)];
        auto compare = [&](int a, int b) {
            return direction * (CompareStringW(LOCALE_USER_DEFAULT, flags, texts[a - 1].c_str(), -1,
                                               texts[b - 1].c_str(), -1) -
                                CSTR_EQUAL);
        };
        int count = static_cast<int>(texts.size());
        PlainSort stable(count, compare, true), unstable(count, compare, false);
        long total = 0;
        for (long failing = 0; failing <= total; ++failing) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", allocation " << failing);
            Grid grid;
            Fill(grid, texts);
            FailingAllocation failure(failing);
            ASSERT_EQ(SortAll(grid, order), S_OK);
            if (failing == 0)
                total = TheAllocationProbe().Count;
            // The last four are the original order and the three that put the rows in place.
            bool keepsTies = !HasOption(grid, OptionMergeStale) || failing != total - 3;
            EXPECT_EQ(Origins(grid), keepsTies ? stable.Origins() : unstable.Origins());
        }
    }
}

// Answers `Compare` by a number per row, and keeps which rows it was asked for.
TEST(SortBesideAQuicksort, ACustomSortAsksTheSameQuestions)
{
    constexpr DISPID CompareEvent = 12;
    for (unsigned seed = 1; seed <= 80; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        std::vector<int> values(2 + random() % 50);
        for (int& value : values)
            value = static_cast<int>(random() % (seed % 3 ? 100 : 4));
        Grid grid;
        Fill(grid, Texts(values.size(), L"same"));
        Pairs asked;
        EventSink host;
        Connection connection(grid.EventSinks, &host);
        host.On = [&](DISPID id, DISPPARAMS& arguments) {
            if (id != CompareEvent)
                return;
            long a = EventSink::Argument(arguments, 0).lVal, b = EventSink::Argument(arguments, 1).lVal;
            asked.emplace_back(a, b);
            int x = values[grid.RowTable[a].Height - 1], y = values[grid.RowTable[b].Height - 1];
            *EventSink::Argument(arguments, 2).piVal = static_cast<short>(OrderOf(x, y));
        };
        ASSERT_EQ(SortAll(grid, lorvSortCustom), S_OK);
        PlainSort plain(
            static_cast<int>(values.size()),
            [&](int a, int b) { return OrderOf(values[a - 1], values[b - 1]); }, false);
        EXPECT_EQ(asked, plain.Asked());
        EXPECT_EQ(Origins(grid), plain.Origins());
    }
}

// Such keys compare as equal to any other, which is no order; the quicksort takes them as they come.
TEST(OrderByKeys, IsNotAskedOfKeysThatAreNoNumbers)
{
    for (double odd : {std::nan(""), Infinity, -Infinity}) {
        RowKeys keys;
        keys.Numbers = static_cast<double*>(AllocateZeroed(3, sizeof(double)));
        keys.Numbers[0] = 1, keys.Numbers[1] = odd, keys.Numbers[2] = 0;
        for (int direction : {1, -1}) {
            int* places = OrderByKeys(keys, 3, direction);
            EXPECT_EQ(places == nullptr, std::isnan(odd)) << odd;
            FreeBlock(places);
        }
    }
}
} // namespace
