// The compiler reads short literals past their end when it inlines string constructors.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Warray-bounds"
#pragma GCC diagnostic ignored "-Wstringop-overread"
#endif
#include "core/sort_keys.h"

#include "support/fakes.h"
#include "support/sort_grid.h"

#include <algorithm>
#include <cwchar>
#include <functional>
#include <numeric>
#include <random>

namespace
{
Texts Reversed(Texts texts)
{
    std::reverse(texts.begin(), texts.end());
    return texts;
}

// Keys and memory

TEST(SortKeys, AreMadeOncePerRow)
{
    const struct {
        int Order, DataType, LastCol;
        long Keys;
    } rows[] = {
        {lorvSortNumericAscending, lorvDTEmpty, 1, 5},
        {lorvSortNumericDescending, lorvDTString, 1, 5},
        {lorvSortGenericAscending, lorvDTLong, 1, 5},
        {lorvSortGenericAscending, lorvDTDate, 1, 5},
        {lorvSortGenericAscending, lorvDTBoolean, 1, 5},
        {lorvSortGenericAscending, lorvDTEmpty, 1, 0},
        {lorvSortGenericAscending, lorvDTDecimal, 1, 0},
        {lorvSortGenericAscending, lorvDTLong8, 1, 0},
        {lorvSortNumericAscending, lorvDTEmpty, 2, 0},
        {lorvSortStringAscending, lorvDTEmpty, 2, 0},
        {lorvSortUseColSort, lorvDTLong, 1, 0},
        {lorvSortCustom, lorvDTLong, 1, 0},
        {lorvSortNone, lorvDTLong, 1, 0},
    };
    for (auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.Order << " " << row.DataType << " " << row.LastCol);
        Grid grid;
        Fill(grid, {L"3", L"1", L"5", L"2", L"4"});
        grid.ColTable[1].ColDataType = static_cast<int16_t>(row.DataType);
        grid.ColTable[1].ColSort = lorvSortNumericAscending;
        long before = SortKeysMade();
        ASSERT_EQ(SortAll(grid, row.Order, 1, row.LastCol), S_OK);
        EXPECT_EQ(SortKeysMade() - before, row.Keys);
    }
}

TEST(SortKeys, WithoutMemoryTheSortCompares)
{
    for (int order : {lorvSortNumericAscending, lorvSortStringAscending, lorvSortStringNoCaseDescending}) {
        const Texts texts = {L"3", L"1", L"5", L"2", L"4", L"1"};
        Texts sorted = texts;
        std::sort(sorted.begin(), sorted.end());
        Grid grid;
        for (long number = 0; number <= 12; ++number) {
            SCOPED_TRACE(testing::Message() << "order " << order << ", allocation " << number);
            Fill(grid, texts);
            HeapBalance balance;
            FailingAllocation failing(number);
            ASSERT_EQ(SortAll(grid, order), S_OK);
            EXPECT_EQ(ColumnOf(grid), order % 2 ? sorted : Reversed(sorted));
        }
    }
}

// The comparison of texts has its own place for empty cells.
TEST(SortKeys, WithoutMemoryEmptyCellsGoFirstInBothDirections)
{
    Grid grid;
    Fill(grid, {L"1", L"", L"2"});
    FailingAllocation failing(1);
    ASSERT_EQ(SortAll(grid, lorvSortNumericDescending), S_OK);
    EXPECT_EQ(ColumnOf(grid), (Texts{L"", L"2", L"1"}));
}

TEST(OriginalOrder, WithoutMemoryForItEqualRowsMayChangePlaces)
{
    for (int lastCol : {1, 2}) {
        Grid grid;
        Fill(grid, {L"2", L"2", L"1"});
        FailingAllocation failing(lastCol == 1 ? 2 : 1); // after the keys, if there are any
        ASSERT_EQ(SortAll(grid, lorvSortNumericAscending, 1, lastCol), S_OK);
        EXPECT_EQ(Origins(grid), (std::vector<int>{3, 2, 1}));
    }
}

TEST(OriginalOrder, IsNotAskedForByASortedRange)
{
    Grid grid;
    Fill(grid, {L"1", L"2", L"3"});
    TheAllocationProbe().Count = 0;
    ASSERT_EQ(SortAll(grid, lorvSortNumericAscending, 1, 2), S_OK);
    EXPECT_EQ(TheAllocationProbe().Count, 0);
    ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
    EXPECT_EQ(TheAllocationProbe().Count, 1) << "the keys";
}

// Against a plain reference

// Texts that collation treats in ways of its own: hyphens and apostrophes, cases, accents in one or two
// units, ligatures, digits, other scripts, surrogates whole and broken, and what is hardly there at all.
std::wstring HardText(std::mt19937& random)
{
    static const wchar_t* const pieces[] = {
        L"a",       L"A",      L"b",       L"B",      L"z",
        L"Z",       L"co",     L"coop",    L"-",      L"'",
        L"--",      L"_",      L".",       L",",      L" ",
        L"  ",      L"\t",     L"1",       L"2",      L"10",
        L"09",      L"\x00E9", L"e\x0301", L"\x00C9", L"\x00E4",
        L"a\x0308", L"\x00DF", L"ss",      L"\x00E6", L"ae",
        L"\x0153",  L"\x0142", L"\x0131",  L"I",      L"i",
        L"\x03B1",  L"\x0391", L"\x0436",  L"\x4E00", L"\x3042",
        L"\x30A2",  L"\xAC00", L"\x0E01",  L"\x0628", L"\xD83D\xDE00",
        L"\xD83D",  L"\xDE00", L"\x00AD",  L"\x200B", L"\x2019",
        L"\x2010",  L"\xFF21", L"\x00B2",  L"\xFFFD",
    };
    std::wstring text;
    for (size_t count = random() % 7; count > 0; --count)
        text += pieces[random() % std::size(pieces)];
    if (random() % 40 == 0)
        text = std::wstring(3000, L'q') + text;
    return text;
}

int CompareAs(DWORD flags, const std::wstring& x, const std::wstring& y)
{
    return CompareStringW(LOCALE_USER_DEFAULT, flags, x.c_str(), -1, y.c_str(), -1) - CSTR_EQUAL;
}

TEST(SortAgainstAReference, HardTextsAsCompareStringHasThem)
{
    for (unsigned seed = 1; seed <= 12; ++seed)
        for (int order = lorvSortStringNoCaseAscending; order <= lorvSortStringDescending; ++order) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", order " << order);
            std::mt19937 random(seed);
            Texts texts;
            for (int i = 0; i < 60; ++i)
                texts.push_back(HardText(random));
            Grid grid;
            Fill(grid, texts);
            ASSERT_EQ(SortAll(grid, order), S_OK);

            Grid direct; // two columns are compared text by text
            Fill(direct, texts);
            ASSERT_EQ(SortAll(direct, order, 1, 2), S_OK);
            EXPECT_EQ(Origins(grid), Origins(direct));

            DWORD flags = order <= lorvSortStringNoCaseDescending ? NORM_IGNORECASE : 0;
            int direction = order % 2 ? 1 : -1;
            Texts sorted = ColumnOf(grid);
            for (size_t i = 1; i < sorted.size(); ++i)
                EXPECT_LE(direction * CompareAs(flags, sorted[i - 1], sorted[i]), 0) << i;
        }
}

// A text of characters that do not count equals an empty one.
TEST(SortAgainstAReference, IgnoredCharactersAloneAreNoText)
{
    for (int order = lorvSortStringNoCaseAscending; order <= lorvSortStringDescending; ++order) {
        Grid grid;
        Fill(grid, {L"b", L"\x00AD", L"", L"a"});
        ASSERT_EQ(SortAll(grid, order), S_OK);
        EXPECT_EQ(Origins(grid), order % 2 ? (std::vector<int>{2, 3, 4, 1}) : (std::vector<int>{1, 4, 2, 3}));
    }
}

double ReferenceNumber(const std::wstring& text)
{
    return std::wcstod(text.c_str(), nullptr);
}

TEST(SortAgainstAReference, NumbersOfAnyKind)
{
    std::mt19937 random(5);
    for (int round = 0; round < 24; ++round) {
        bool descends = round % 2, byKeys = round % 4 < 2;
        SCOPED_TRACE(testing::Message() << "round " << round);
        Texts texts;
        for (int i = 0; i < 80; ++i) {
            int kind = random() % 5, number = static_cast<int>(random() % 40) - 20;
            texts.push_back(kind == 0   ? L""
                            : kind == 1 ? std::to_wstring(number) + L".5"
                                        : std::to_wstring(number));
        }
        std::vector<int> expected(texts.size());
        std::iota(expected.begin(), expected.end(), 1);
        std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
            const std::wstring &x = texts[a - 1], &y = texts[b - 1];
            if (x.empty() || y.empty())
                return byKeys && descends ? y.empty() && !x.empty() : x.empty() && !y.empty();
            double left = ReferenceNumber(x), right = ReferenceNumber(y);
            return descends ? left > right : left < right;
        });
        Grid grid;
        Fill(grid, texts);
        ASSERT_EQ(
            SortAll(grid, descends ? lorvSortNumericDescending : lorvSortNumericAscending, 1, byKeys ? 1 : 2),
            S_OK);
        EXPECT_EQ(Origins(grid), expected);
    }
}

// Rows that are sorted, reversed, all alike or sorted but for one are no worse than others.
TEST(SortAgainstAReference, PatternsOfManyRows)
{
    constexpr int Count = 4000;
    const std::function<int(int)> patterns[] = {
        [](int i) { return i; },
        [](int i) { return Count - i; },
        [](int) { return 1; },
        [](int i) { return i == Count / 2 ? -1 : i; },
        [](int i) { return i % 2; },
        [](int i) { return i < Count / 2 ? i : Count - i; },
        [](int i) { return i * 7919 % Count; },
    };
    for (auto& pattern : patterns) {
        std::vector<int> expected(Count);
        std::iota(expected.begin(), expected.end(), 1);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](int a, int b) { return pattern(a - 1) < pattern(b - 1); });
        Grid grid;
        Texts texts;
        for (int i = 0; i < Count; ++i)
            texts.push_back(std::to_wstring(pattern(i)));
        Fill(grid, texts);
        ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
        EXPECT_EQ(Origins(grid), expected);
    }
}
} // namespace
