#include "core/sort.h"

#include "support/fakes.h"
#include "support/sort_grid.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace
{
using Pairs = std::vector<std::pair<long, long>>;

constexpr DISPID CompareEvent = 12;

// A list that a column shows its keys by, as long as it lives.
class List
{
public:
    List(Grid& grid, int col, std::vector<std::pair<const wchar_t*, const wchar_t*>> items)
        : column_(grid.ColTable[col])
    {
        ComboListState& list = column_.ComboState;
        list.ComboKeys = static_cast<wchar_t**>(AllocateZeroed(items.size(), sizeof(wchar_t*)));
        list.ComboTexts = static_cast<wchar_t**>(AllocateZeroed(items.size(), sizeof(wchar_t*)));
        for (auto& [key, text] : items) {
            list.ComboKeys[list.ComboCount] = DuplicateText(key);
            list.ComboTexts[list.ComboCount++] = text ? DuplicateText(text) : nullptr;
        }
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List()
    {
        ComboListState& list = column_.ComboState;
        for (int item = 0; item < list.ComboCount; ++item) {
            FreeBlock(list.ComboKeys[item]);
            FreeBlock(list.ComboTexts[item]);
        }
        FreeAndClear(list.ComboKeys);
        FreeAndClear(list.ComboTexts);
        list.ComboCount = 0;
    }

private:
    ColRecord& column_;
};

// Orders by the texts' numbers, or as a test says, and keeps which rows it was asked for.
class Host
{
public:
    explicit Host(Grid& grid) : grid_(grid), connection_(grid.EventSinks, &sink_)
    {
        sink_.On = [this](DISPID id, DISPPARAMS& arguments) {
            if (id != CompareEvent)
                return;
            Asked.emplace_back(EventSink::Argument(arguments, 0).lVal,
                               EventSink::Argument(arguments, 1).lVal);
            short& order = *EventSink::Argument(arguments, 2).piVal;
            EXPECT_EQ(order, 0) << "the answer starts as equal";
            order = static_cast<short>(Answer(Asked.back().first, Asked.back().second));
        };
    }

    int ByNumber(long row1, long row2) const
    {
        long x = std::wcstol(GetCellText(grid_, row1, 1), nullptr, 10);
        long y = std::wcstol(GetCellText(grid_, row2, 1), nullptr, 10);
        return x < y ? -1 : x > y;
    }

    Pairs Asked;
    std::function<int(long, long)> Answer = [this](long row1, long row2) { return ByNumber(row1, row2); };

private:
    Grid& grid_;
    EventSink sink_;
    Connection connection_;
};

// Ranges

TEST(SortRange, RefusesOrdersThatAreNone)
{
    Grid grid;
    Fill(grid, {L"2", L"1"});
    for (int order : {11, 12, 1000, INT_MAX, -1, INT_MIN})
        EXPECT_EQ(SortRange(grid, order, -1, 99, 1, 1), LORV_E_VALUE) << order << " before the indices";
    EXPECT_EQ(ColumnOf(grid), (Texts{L"2", L"1"}));
    EXPECT_EQ(grid.ColTable[1].LastSort, 0);
}

TEST(SortRange, RefusesCornersOutsideTheGrid)
{
    const int ranges[][4] = {{-1, 2, 1, 1},
                             {1, 3, 1, 1},
                             {1, 2, -1, 1},
                             {1, 2, 1, 10},
                             {3, 1, 1, 1},
                             {2, -1, 1, 1},
                             {1, 2, 10, 1},
                             {1, 2, 1, -1},
                             {5, 5, 1, 1},
                             {-1, -1, 1, 1},
                             {1, 1, 10, 10},
                             {1, 1, -5, -5},
                             {INT_MIN, INT_MAX, 1, 1},
                             {1, 2, INT_MIN, INT_MAX}};
    for (auto& range : ranges) {
        Grid grid;
        Fill(grid, {L"2", L"1"});
        EXPECT_EQ(SortRange(grid, lorvSortNumericAscending, range[0], range[1], range[2], range[3]),
                  LORV_E_INDEX)
            << range[0] << " " << range[1] << " " << range[2] << " " << range[3];
        EXPECT_EQ(ColumnOf(grid), (Texts{L"2", L"1"}));
        EXPECT_EQ(grid.SortIndicatorCol, -1);
    }
    Grid empty;
    ResizeRows(empty, 0);
    EXPECT_EQ(SortRange(empty, lorvSortNone, 0, 0, 0, 0), LORV_E_INDEX);
}

TEST(SortRange, TakesItsCornersInAnyOrderAndLeavesOtherRowsAlone)
{
    const int ranges[][4] = {{2, 4, 1, 2}, {4, 2, 2, 1}, {2, 4, 2, 1}, {4, 2, 1, 2}};
    for (auto& range : ranges) {
        Grid grid;
        Fill(grid, {L"9", L"7", L"5", L"3", L"1"});
        ASSERT_EQ(SortRange(grid, lorvSortNumericAscending, range[0], range[1], range[2], range[3]), S_OK);
        EXPECT_EQ(ColumnOf(grid), (Texts{L"9", L"3", L"5", L"7", L"1"}));
        EXPECT_EQ(grid.SortIndicatorCol, 1) << "the lower column";
        EXPECT_EQ(grid.ColTable[1].LastSort, lorvSortNumericAscending);
        EXPECT_EQ(grid.ColTable[2].LastSort, 0);
    }
}

TEST(SortRange, SortsFixedRowsWhereToldTo)
{
    Grid grid;
    Fill(grid, {L"1"});
    SetCellText(grid, 0, 1, L"2");
    ASSERT_EQ(SortRange(grid, lorvSortNumericAscending, 0, 1, 1, 1), S_OK);
    EXPECT_STREQ(GetCellText(grid, 0, 1), L"1");
}

TEST(SortRange, OfASingleRowIsNoSort)
{
    Grid grid;
    Fill(grid, {L"2", L"1"});
    EXPECT_EQ(SortRange(grid, lorvSortNumericAscending, 1, 1, 1, 1), S_OK);
    EXPECT_EQ(grid.SortIndicatorCol, -1);
    EXPECT_EQ(grid.ColTable[1].LastSort, 0);
}

TEST(SortRange, UnderNoOrderMovesNothingButIsNoted)
{
    Grid grid;
    Fill(grid, {L"2", L"1"});
    grid.ColTable[1].LastSort = 7;
    EXPECT_EQ(SortAll(grid, lorvSortNone), S_OK);
    EXPECT_EQ(ColumnOf(grid), (Texts{L"2", L"1"}));
    EXPECT_EQ(grid.ColTable[1].LastSort, lorvSortNone);
    EXPECT_EQ(grid.SortIndicatorCol, 1);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
}

TEST(SortRange, MovesWholeRowsAndLeavesTheCursorOnItsNumber)
{
    Grid grid;
    Fill(grid, {L"3", L"1", L"2"});
    grid.Row = grid.RowSel = 1;
    grid.RowTable[1].Status = lorvrsModified;
    grid.RowTable[1].Flags = RowFlagHidden;
    grid.RowTable[1].OutlineLevel = 4;
    const RowRecord before = grid.RowTable[1];
    ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
    const RowRecord& after = grid.RowTable[3];
    EXPECT_EQ(after.Cells, before.Cells) << "no text is copied";
    EXPECT_EQ(after.Height, 1);
    EXPECT_EQ(after.Status, lorvrsModified);
    EXPECT_EQ(after.Flags, RowFlagHidden);
    EXPECT_EQ(after.OutlineLevel, 4);
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.RowSel, 1);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST(SortRange, OnASortedRangeMovesNothingAndLeavesTheMergeLinks)
{
    for (int order : {lorvSortNumericAscending, lorvSortStringAscending, lorvSortGenericAscending,
                      lorvSortStringNoCaseAscending}) {
        Grid grid;
        Fill(grid, {L"1", L"1", L"2", L"3"});
        EXPECT_EQ(SortAll(grid, order), S_OK);
        EXPECT_FALSE(HasOption(grid, OptionMergeStale)) << order;
        EXPECT_EQ(grid.ColTable[1].LastSort, order) << "it is noted all the same";
        EXPECT_EQ(grid.SortIndicatorCol, 1);

        EXPECT_EQ(SortAll(grid, order + 1), S_OK);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale)) << order + 1;
    }
}

// What each order makes of a column

struct OrderRow {
    int Order;
    int DataType;
    Texts Given, Expected;
};

const Texts Numbers = {L"10", L"9", L"", L"-1", L"x", L"1e2"};
const Texts Cases = {L"b", L"A", L"B", L"a"};
const Texts Dates = {L"36600", L"1/1/2000", L"", L"x", L"36000", L"2/2/1999"};

const OrderRow OrderRows[] = {
    // what is no number counts as 0
    {lorvSortNumericAscending, lorvDTEmpty, Numbers, {L"", L"-1", L"x", L"9", L"10", L"1e2"}},
    {lorvSortNumericDescending, lorvDTEmpty, Numbers, {L"1e2", L"10", L"9", L"x", L"-1", L""}},
    {lorvSortNumericAscending, lorvDTString, {L"10", L"9"}, {L"9", L"10"}},
    {lorvSortStringAscending, lorvDTLong, {L"9", L"10"}, {L"10", L"9"}},
    {lorvSortStringNoCaseAscending, lorvDTEmpty, Cases, {L"A", L"a", L"b", L"B"}},
    {lorvSortStringNoCaseDescending, lorvDTEmpty, Cases, {L"b", L"B", L"A", L"a"}},
    {lorvSortStringAscending, lorvDTEmpty, Cases, {L"a", L"A", L"b", L"B"}},
    {lorvSortStringDescending, lorvDTEmpty, Cases, {L"B", L"b", L"A", L"a"}},
    {lorvSortStringAscending, lorvDTEmpty, {L"b", L"", L"a"}, {L"", L"a", L"b"}},
    {lorvSortStringDescending, lorvDTEmpty, {L"a", L"", L"b"}, {L"b", L"a", L""}},
    // a column without a type compares numbers where both texts are numbers
    {lorvSortGenericAscending, lorvDTEmpty, {L"b", L"10", L"A", L"9"}, {L"9", L"10", L"A", L"b"}},
    {lorvSortGenericDescending, lorvDTEmpty, {L"9", L"b", L"10", L"A"}, {L"b", L"A", L"10", L"9"}},
    {lorvSortGenericAscending, lorvDTEmpty, {L"b", L"", L"1"}, {L"", L"1", L"b"}},
    {lorvSortGenericAscending, lorvDTVariant, {L"10", L"9"}, {L"9", L"10"}},
    {lorvSortGenericAscending, lorvDTDecimal, {L"10", L"9"}, {L"9", L"10"}},
    {lorvSortGenericAscending, lorvDTLong8, {L"10", L"9"}, {L"9", L"10"}},
    {lorvSortGenericAscending, lorvDTStringW, {L"10", L"9"}, {L"9", L"10"}}, // only the one type is text
    {lorvSortGenericAscending, lorvDTString, {L"9", L"10", L"B", L"a"}, {L"10", L"9", L"a", L"B"}},
    {lorvSortGenericAscending, lorvDTString, Cases, {L"A", L"a", L"b", L"B"}},
    {lorvSortGenericDescending, lorvDTString, Cases, {L"b", L"B", L"A", L"a"}},
    // a column of numbers has none but numbers
    {lorvSortGenericAscending, lorvDTShort, {L"5", L"b", L"-3"}, {L"-3", L"b", L"5"}},
    {lorvSortGenericAscending, lorvDTLong, {L"5", L"b", L"-3"}, {L"-3", L"b", L"5"}},
    {lorvSortGenericAscending, lorvDTSingle, {L"5", L"b", L"-3"}, {L"-3", L"b", L"5"}},
    {lorvSortGenericAscending, lorvDTDouble, Numbers, {L"", L"-1", L"x", L"9", L"10", L"1e2"}},
    {lorvSortGenericDescending, lorvDTDouble, Numbers, {L"1e2", L"10", L"9", L"x", L"-1", L""}},
    {lorvSortGenericAscending, lorvDTCurrency, {L"$5", L"b", L"($3)"}, {L"($3)", L"b", L"$5"}},
    // True is -1
    {lorvSortGenericAscending,
     lorvDTBoolean,
     {L"0", L"True", L"", L"-1", L"x"},
     {L"", L"True", L"-1", L"0", L"x"}},
    {lorvSortGenericDescending, lorvDTBoolean, {L"0", L"True", L"", L"-1"}, {L"0", L"True", L"-1", L""}},
    {lorvSortNumericAscending, lorvDTBoolean, {L"0", L"5", L"-1"}, {L"5", L"-1", L"0"}},
    // what is neither a date nor a number counts as date 0
    {lorvSortGenericAscending, lorvDTDate, Dates, {L"", L"x", L"36000", L"2/2/1999", L"1/1/2000", L"36600"}},
    {lorvSortGenericDescending, lorvDTDate, Dates, {L"36600", L"1/1/2000", L"2/2/1999", L"36000", L"x", L""}},
};

void ExpectOrder(const OrderRow& row, int lastCol)
{
    SCOPED_TRACE(testing::Message() << "order " << row.Order << ", type " << row.DataType << ", to column "
                                    << lastCol);
    Grid grid;
    Fill(grid, row.Given);
    grid.ColTable[1].ColDataType = static_cast<int16_t>(row.DataType);
    ASSERT_EQ(SortAll(grid, row.Order, 1, lastCol), S_OK);
    EXPECT_EQ(ColumnOf(grid), row.Expected);
}

TEST(SortOrders, OfOneColumn)
{
    for (const OrderRow& row : OrderRows)
        ExpectOrder(row, 1);
}

// Several columns compare texts all the time, with their own idea of numbers and of empty cells.
TEST(SortOrders, OfSeveralColumns)
{
    const OrderRow rows[] = {
        {lorvSortNumericAscending, lorvDTEmpty, Numbers, {L"", L"-1", L"x", L"9", L"10", L"1e2"}},
        {lorvSortNumericDescending, lorvDTEmpty, Numbers, {L"", L"1e2", L"10", L"9", L"x", L"-1"}},
        {lorvSortStringNoCaseDescending, lorvDTEmpty, Cases, {L"b", L"B", L"A", L"a"}},
        {lorvSortStringAscending, lorvDTEmpty, Cases, {L"a", L"A", L"b", L"B"}},
        {lorvSortStringDescending, lorvDTEmpty, {L"a", L"", L"b"}, {L"b", L"a", L""}},
        {lorvSortGenericAscending, lorvDTString, {L"9", L"10"}, {L"10", L"9"}},
        {lorvSortGenericDescending, lorvDTEmpty, {L"9", L"b", L"10", L"A"}, {L"b", L"A", L"10", L"9"}},
        {lorvSortGenericDescending, lorvDTLong, {L"1", L"", L"2"}, {L"2", L"1", L""}},
        // here a word among numbers is a text, and a boolean is what its text says
        {lorvSortGenericAscending, lorvDTLong, {L"5", L"b", L"3"}, {L"3", L"5", L"b"}},
        {lorvSortGenericAscending, lorvDTBoolean, {L"True", L"False"}, {L"False", L"True"}},
        {lorvSortGenericAscending,
         lorvDTDate,
         Dates,
         {L"", L"x", L"36000", L"2/2/1999", L"1/1/2000", L"36600"}},
        {lorvSortGenericDescending,
         lorvDTDate,
         Dates,
         {L"36600", L"1/1/2000", L"2/2/1999", L"36000", L"x", L""}},
    };
    for (const OrderRow& row : rows)
        ExpectOrder(row, 2);
}

TEST(SortOrders, BooleansOfAFixedColumnAreTheirNumbers)
{
    Grid grid;
    Fill(grid, {L"True", L"-1"}, 0);
    grid.ColTable[0].ColDataType = lorvDTBoolean;
    ASSERT_EQ(SortAll(grid, lorvSortGenericAscending, 0, 0), S_OK);
    EXPECT_EQ(ColumnOf(grid, 0), (Texts{L"-1", L"True"}));
}

TEST(SortOrders, TheFirstColumnThatDiffersDecides)
{
    Grid grid;
    Fill(grid, {L"b", L"a", L"B", L"a", L""});
    Fill(grid, {L"1", L"2", L"3", L"10", L"0"}, 2);
    ASSERT_EQ(SortAll(grid, lorvSortStringNoCaseAscending, 1, 2), S_OK);
    EXPECT_EQ(ColumnOf(grid, 2), (Texts{L"0", L"10", L"2", L"1", L"3"}));
    ASSERT_EQ(SortAll(grid, lorvSortGenericDescending, 1, 2), S_OK);
    EXPECT_EQ(ColumnOf(grid, 2), (Texts{L"3", L"1", L"10", L"2", L"0"}));
}

// "1" and "1.0" differ as texts and are one number.
TEST(SortOrders, EqualNumbersLeaveItToTheNextColumn)
{
    for (int order : {lorvSortNumericAscending, lorvSortGenericAscending}) {
        Grid grid;
        Fill(grid, {L"1", L"1.0", L"01"});
        Fill(grid, {L"3", L"2", L"1"}, 2);
        ASSERT_EQ(SortAll(grid, order, 1, 2), S_OK);
        EXPECT_EQ(ColumnOf(grid), (Texts{L"01", L"1.0", L"1"}));
    }
}

TEST(SortOrders, EqualRowsKeepTheirOrderInBothDirections)
{
    constexpr int Count = 300, Kinds = 7;
    Texts texts;
    for (int i = 0; i < Count; ++i)
        texts.push_back(std::to_wstring(i * 31 % Kinds));
    for (int order = lorvSortGenericAscending; order <= lorvSortStringDescending; ++order)
        for (int lastCol : {1, 2}) {
            SCOPED_TRACE(testing::Message() << "order " << order << ", to column " << lastCol);
            Grid grid;
            Fill(grid, texts);
            ASSERT_EQ(SortAll(grid, order, 1, lastCol), S_OK);
            std::vector<int> expected(Count);
            std::iota(expected.begin(), expected.end(), 1);
            bool descends = order % 2 == 0;
            std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
                return descends ? texts[a - 1] > texts[b - 1] : texts[a - 1] < texts[b - 1];
            });
            EXPECT_EQ(Origins(grid), expected);
        }
}

// Lists

TEST(SortOrders, AListColumnSortsOnWhatItShows)
{
    Grid grid;
    Fill(grid, {L"2", L"1", L"3", L"K"});
    List list(grid, 1, {{L"1", L"zebra"}, {L"2", L"ant"}, {L"k", L"zoo"}, {L"3", nullptr}});
    ReplaceText(grid.ColTable[1].ColComboList, L"#1;zebra|#2;ant");
    grid.ColTable[1].ColDataType = lorvDTLong;
    long keys = SortKeysMade();
    const struct {
        int Order;
        Texts Expected;
    } rows[] = {
        {lorvSortGenericAscending, {L"3", L"2", L"1", L"K"}},
        {lorvSortGenericDescending, {L"K", L"1", L"2", L"3"}},
    };
    for (auto& row : rows) {
        ASSERT_EQ(SortAll(grid, row.Order), S_OK);
        EXPECT_EQ(ColumnOf(grid), row.Expected) << row.Order;
    }
    EXPECT_EQ(SortKeysMade(), keys) << "there are no keys for such a column";

    for (int lastCol : {1, 2}) {
        ASSERT_EQ(SortAll(grid, lorvSortStringAscending, 1, lastCol), S_OK);
        EXPECT_EQ(ColumnOf(grid), (Texts{L"3", L"2", L"1", L"K"}));
        ASSERT_EQ(SortAll(grid, lorvSortStringNoCaseDescending, 1, lastCol), S_OK);
        EXPECT_EQ(ColumnOf(grid), (Texts{L"K", L"1", L"2", L"3"}));
    }
    ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
    EXPECT_EQ(ColumnOf(grid), (Texts{L"K", L"1", L"2", L"3"})) << "numbers are those of the cells";
}

// ColSort

void SetColSort(Grid& grid, std::initializer_list<int> modes)
{
    int col = 1;
    for (int mode : modes)
        grid.ColTable[col++].ColSort = static_cast<int16_t>(mode);
}

TEST(ColSort, LetsEachColumnSortItsOwnWay)
{
    const struct {
        int First, Second;
        std::vector<int> Expected;
    } rows[] = {
        {lorvSortNone, lorvSortGenericAscending, {4, 2, 3, 1}},
        {lorvSortNone, lorvSortNone, {1, 2, 3, 4}},
        {lorvSortStringAscending, lorvSortNumericDescending, {2, 4, 1, 3}},
        {lorvSortStringDescending, lorvSortNumericAscending, {3, 1, 4, 2}},
        {lorvSortStringDescending, lorvSortNone, {1, 3, 2, 4}},
        {lorvSortStringAscending, lorvSortStringAscending, {4, 2, 1, 3}},
        {lorvSortStringAscending, lorvSortStringDescending, {2, 4, 3, 1}},
    };
    for (auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.First << " " << row.Second);
        Grid grid;
        Fill(grid, {L"b", L"a", L"b", L"a"});
        Fill(grid, {L"10", L"2", L"9", L"1"}, 2);
        SetColSort(grid, {row.First, row.Second});
        ASSERT_EQ(SortAll(grid, lorvSortUseColSort, 1, 2), S_OK);
        std::vector<int> origins = Origins(grid);
        EXPECT_EQ(origins, row.Expected);
        EXPECT_EQ(grid.ColTable[1].LastSort, lorvSortUseColSort);
    }
}

// One column under its own mode has no keys, so its empty cells go first.
TEST(ColSort, NumbersOfOneColumnPutEmptyCellsFirst)
{
    Grid grid;
    Fill(grid, {L"1", L"", L"2"});
    SetColSort(grid, {lorvSortNumericDescending});
    ASSERT_EQ(SortAll(grid, lorvSortUseColSort), S_OK);
    EXPECT_EQ(ColumnOf(grid), (Texts{L"", L"2", L"1"}));
}

TEST(ColSort, StringsOfOneColumn)
{
    const struct {
        int Mode;
        Texts Expected;
    } rows[] = {
        {lorvSortStringNoCaseAscending, {L"A", L"a", L"b", L"B"}},
        {lorvSortStringNoCaseDescending, {L"b", L"B", L"A", L"a"}},
        {lorvSortStringAscending, {L"a", L"A", L"b", L"B"}},
        {lorvSortStringDescending, {L"B", L"b", L"A", L"a"}},
    };
    for (auto& row : rows) {
        Grid grid;
        Fill(grid, Cases);
        SetColSort(grid, {row.Mode});
        ASSERT_EQ(SortAll(grid, lorvSortUseColSort), S_OK);
        EXPECT_EQ(ColumnOf(grid), row.Expected) << row.Mode;
    }
}

TEST(ColSort, ThatIsNoOrderOfTextsFailsWhereTwoTextsDiffer)
{
    for (int mode : {lorvSortCustom, lorvSortUseColSort}) {
        Grid grid;
        Fill(grid, {L"same", L"same", L"same"});
        SetColSort(grid, {mode, mode});
        EXPECT_EQ(SortAll(grid, lorvSortUseColSort, 1, 2), S_OK) << "equal texts are not looked at further";
        EXPECT_FALSE(HasOption(grid, OptionMergeStale));

        Fill(grid, {L"1", L"2", L"2"}, 2);
        EXPECT_EQ(SortAll(grid, lorvSortUseColSort, 1, 2), LORV_E_VALUE) << mode;
        EXPECT_EQ(Origins(grid), (std::vector<int>{1, 2, 3}));
        EXPECT_TRUE(HasOption(grid, OptionMergeStale)) << "the failing comparison counted as out of order";

        SetColSort(grid, {mode, lorvSortNone});
        EXPECT_EQ(SortAll(grid, lorvSortUseColSort, 1, 2), S_OK);
    }
}

// Subtotal rows

TEST(SubtotalRows, StayWhileTheRowsBetweenThemSort)
{
    Texts texts;
    for (int i = 1; i < 20; ++i)
        texts.push_back(std::to_wstring(100 - i));
    Grid grid;
    Fill(grid, texts);
    grid.RowTable[10].Flags |= RowFlagSubtotal;
    ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
    EXPECT_EQ(Origins(grid),
              (std::vector<int>{9, 8, 7, 6, 5, 4, 3, 2, 1, 10, 19, 18, 17, 16, 15, 14, 13, 12, 11}));
}

TEST(SubtotalRows, MayStandAnywhere)
{
    const struct {
        std::vector<int> Subtotals;
        std::vector<int> Expected;
    } rows[] = {
        {{1, 6}, {1, 5, 4, 3, 2, 6}},    {{1, 2, 3}, {1, 2, 3, 6, 5, 4}},
        {{4, 5, 6}, {3, 2, 1, 4, 5, 6}}, {{2, 4}, {1, 2, 3, 4, 6, 5}},
        {{2, 3, 5}, {1, 2, 3, 4, 5, 6}}, {{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
        {{}, {6, 5, 4, 3, 2, 1}},
    };
    for (auto& row : rows) {
        Grid grid;
        Fill(grid, {L"6", L"5", L"4", L"3", L"2", L"1"});
        for (int subtotal : row.Subtotals)
            grid.RowTable[subtotal].Flags |= RowFlagSubtotal;
        ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
        EXPECT_EQ(Origins(grid), row.Expected);
    }
}

TEST(SubtotalRows, WithSingleRowsBetweenThemLeaveNothingToNote)
{
    Grid grid;
    Fill(grid, {L"3", L"2", L"1"});
    grid.RowTable[2].Flags |= RowFlagSubtotal;
    ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
    EXPECT_EQ(grid.SortIndicatorCol, -1);
    EXPECT_EQ(grid.ColTable[1].LastSort, 0);
}

TEST(SubtotalRows, AFailureBetweenThemEndsTheWholeSort)
{
    Grid grid;
    Fill(grid, {L"2", L"1", L"total", L"5", L"6", L"total", L"4", L"3"});
    grid.RowTable[3].Flags |= RowFlagSubtotal;
    grid.RowTable[6].Flags |= RowFlagSubtotal;
    Host host(grid);
    host.Answer = [&](long row1, long row2) { return row1 >= 4 ? 2 : host.ByNumber(row1, row2); };
    EXPECT_EQ(SortAll(grid, lorvSortCustom), LORV_E_VALUE);
    EXPECT_EQ(Origins(grid), (std::vector<int>{2, 1, 3, 4, 5, 6, 7, 8}));
}

// Compare

// The host sees each comparison. The sequences are worked out by hand from the steps of the sort.
TEST(CustomSort, AsksInThisOrder)
{
    const struct {
        Texts Given;
        Pairs Asked;
    } rows[] = {
        {{L"1", L"2", L"3"}, {{1, 2}, {2, 3}}},
        {{L"2", L"1"}, {{1, 2}, {1, 2}, {1, 2}}},
        {{L"2", L"2", L"1"}, {{1, 2}, {2, 3}, {1, 2}, {1, 3}, {2, 3}, {1, 2}}},
        {{L"3", L"1", L"4", L"2"}, {{1, 2}, {1, 2}, {1, 4}, {2, 4}, {2, 3}, {2, 3}, {1, 3}, {3, 4}, {3, 4}}},
        {{L"5", L"2", L"7", L"1", L"6", L"3", L"4"},
         {{1, 2},
          {1, 4},
          {1, 7},
          {4, 7},
          {2, 6},
          {3, 6},
          {5, 6},
          {4, 6},
          {4, 6},
          {3, 6},
          {1, 2},
          {1, 3},
          {2, 3},
          {1, 2},
          {5, 6},
          {5, 7},
          {6, 7},
          {5, 6}}},
    };
    for (auto& row : rows) {
        Grid grid;
        Fill(grid, row.Given);
        Host host(grid);
        ASSERT_EQ(SortAll(grid, lorvSortCustom), S_OK);
        EXPECT_EQ(host.Asked, row.Asked);
        Texts sorted = row.Given;
        std::sort(sorted.begin(), sorted.end());
        EXPECT_EQ(ColumnOf(grid), sorted);
        EXPECT_EQ(HasOption(grid, OptionMergeStale), sorted != row.Given);
    }
}

TEST(CustomSort, HasNoTieBreak)
{
    Grid grid;
    Fill(grid, {L"2", L"2", L"1"});
    Host host(grid);
    ASSERT_EQ(SortAll(grid, lorvSortCustom), S_OK);
    EXPECT_EQ(Origins(grid), (std::vector<int>{3, 2, 1})) << "equal rows may change places";
    ASSERT_EQ(SortAll(grid, lorvSortNumericDescending), S_OK);
    EXPECT_EQ(Origins(grid), (std::vector<int>{2, 1, 3})) << "they keep their places in other orders";
}

TEST(CustomSort, WithoutAHostMovesNothing)
{
    Grid grid;
    Fill(grid, {L"2", L"1"});
    EXPECT_EQ(SortAll(grid, lorvSortCustom), S_OK);
    EXPECT_EQ(Origins(grid), (std::vector<int>{1, 2}));
}

TEST(CustomSort, TakesEverySizeOfAnAnswerButAbove1)
{
    for (int less : {-1, -2, -32768}) {
        Grid grid;
        Fill(grid, {L"3", L"1", L"4", L"2"});
        Host host(grid);
        host.Answer = [&](long row1, long row2) {
            int order = host.ByNumber(row1, row2);
            return order < 0 ? less : order;
        };
        EXPECT_EQ(SortAll(grid, lorvSortCustom), S_OK) << less;
        EXPECT_EQ(ColumnOf(grid), (Texts{L"1", L"2", L"3", L"4"}));
    }
}

TEST(CustomSort, EndsAtAnAnswerAbove1WithTheRowsAsTheyAre)
{
    const std::vector<int> rowsAt[] = {{1, 2, 3, 4}, {2, 1, 3, 4}, {2, 1, 3, 4}, {2, 3, 4, 1},
                                       {2, 3, 4, 1}, {2, 3, 4, 1}, {2, 4, 3, 1}, {2, 4, 1, 3}};
    for (int answer : {2, 3, 32767})
        for (size_t failing = 2; failing <= 9; ++failing) {
            SCOPED_TRACE(testing::Message() << answer << " at comparison " << failing);
            Grid grid;
            Fill(grid, {L"3", L"1", L"4", L"2"});
            Host host(grid);
            host.Answer = [&](long row1, long row2) {
                return host.Asked.size() == failing ? answer : host.ByNumber(row1, row2);
            };
            EXPECT_EQ(SortAll(grid, lorvSortCustom), LORV_E_VALUE);
            EXPECT_EQ(host.Asked.size(), failing) << "nobody is asked again";
            EXPECT_EQ(Origins(grid), rowsAt[failing - 2]);
        }
}

// Before anything moves, such an answer says no more than "out of order".
TEST(CustomSort, GoesOnAfterAnAnswerAbove1InTheFirstPass)
{
    Grid grid;
    Fill(grid, {L"1", L"2", L"3"});
    Host host(grid);
    host.Answer = [&](long row1, long row2) {
        return host.Asked.size() == 1 ? 2 : host.ByNumber(row1, row2);
    };
    EXPECT_EQ(SortAll(grid, lorvSortCustom), S_OK);
    EXPECT_EQ(Origins(grid), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST(CustomSort, EndsWhateverTheHostAnswers)
{
    std::mt19937 random(7);
    int turn = 0;
    const std::function<int()> answers[] = {
        [] { return 1; },
        [&] { return turn++ % 2 ? 1 : -1; },
        [&] { return turn++ % 3 - 1; },
        [&] { return static_cast<int>(random() % 3) - 1; },
        [&] { return random() % 2 ? 1 : -1; },
    };
    for (auto& answer : answers)
        for (int rows : {2, 3, 4, 17, 60}) {
            Grid grid;
            Fill(grid, Texts(rows, L"x"));
            Host host(grid);
            host.Answer = [&](long row1, long row2) {
                EXPECT_TRUE(row1 >= 1 && row1 <= rows && row2 >= 1 && row2 <= rows && row1 != row2);
                return answer();
            };
            EXPECT_EQ(SortAll(grid, lorvSortCustom), S_OK);
            EXPECT_LE(host.Asked.size(), static_cast<size_t>(rows) * (rows + 8));
            std::vector<int> origins = Origins(grid), all(rows);
            std::sort(origins.begin(), origins.end());
            std::iota(all.begin(), all.end(), 1);
            EXPECT_EQ(origins, all) << "no row is lost or doubled";
        }
}

TEST(CustomSort, OfAHostThatTakesRowsAwayFails)
{
    for (size_t at = 1; at <= 9; ++at)
        for (int left : {0, 1, 2, 4}) {
            SCOPED_TRACE(testing::Message() << "at comparison " << at << " down to " << left);
            Grid grid;
            Fill(grid, {L"3", L"1", L"4", L"2"});
            Host host(grid);
            host.Answer = [&](long row1, long row2) {
                int order = host.ByNumber(row1, row2);
                if (host.Asked.size() == at)
                    ResizeRows(grid, left);
                return order;
            };
            EXPECT_EQ(SortAll(grid, lorvSortCustom), LORV_E_VALUE);
            EXPECT_EQ(host.Asked.size(), at);
            EXPECT_EQ(grid.Rows, left);
        }
}

TEST(CustomSort, OfAHostThatTakesColumnsAwayGoesOnWithTheRows)
{
    for (size_t at = 1; at <= 9; ++at) {
        Grid grid;
        Fill(grid, {L"3", L"1", L"4", L"2"});
        Host host(grid);
        std::vector<int> answers = {1, 1, -1, 1, 1, 1, -1, 1, -1};
        host.Answer = [&](long, long) {
            if (host.Asked.size() == at)
                ResizeCols(grid, 1);
            return answers[host.Asked.size() - 1];
        };
        SortAll(grid, lorvSortCustom);
        EXPECT_EQ(grid.Cols, 1);
        EXPECT_EQ(grid.Rows, 5);
    }
}

TEST(CustomSort, OfAHostThatSortsInBetweenEnds)
{
    Grid grid;
    Fill(grid, {L"3", L"1", L"4", L"2"});
    Host host(grid);
    host.Answer = [&](long row1, long row2) {
        if (host.Asked.size() == 4) {
            EXPECT_EQ(SortAll(grid, lorvSortNumericDescending), S_OK);
        }
        return host.ByNumber(row1, row2);
    };
    SortAll(grid, lorvSortCustom);
    std::vector<int> origins = Origins(grid);
    std::sort(origins.begin(), origins.end());
    EXPECT_EQ(origins, (std::vector<int>{1, 2, 3, 4}));
}

// Other text sources

// Bound texts belong to their row numbers: the records move and the texts do not.
TEST(SortRange, OfBoundTextsMovesTheRecordsAlone)
{
    const struct {
        Texts Given;
        std::vector<int> Expected;
    } rows[] = {
        {{L"a", L"b", L"c"}, {1, 2, 3}},
        {{L"c", L"b", L"a"}, {3, 2, 1}},
        {{L"c", L"a", L"b"}, {3, 1, 2}},
    };
    for (int order : {lorvSortStringAscending, lorvSortStringNoCaseAscending, lorvSortGenericAscending})
        for (auto& row : rows) {
            Grid source, grid;
            Fill(source, row.Given);
            Fill(grid, Texts(row.Given.size(), L"own"));
            grid.BoundKind = BoundToGrid;
            grid.BoundGrid = &source;
            EXPECT_EQ(SortAll(grid, order), S_OK);
            EXPECT_EQ(Origins(grid), row.Expected) << order;
            EXPECT_EQ(ColumnOf(grid), row.Given);
            grid.BoundKind = BoundNone;
        }
}

// No key may stand for a text that stays where it is.
TEST(SortRange, OfBoundTextsMakesNoKeys)
{
    Grid other;
    FakeSource source;
    for (bool custom : {false, true}) {
        Grid grid;
        Fill(grid, {L"b", L"a"});
        grid.BoundKind = custom ? BoundNone : BoundToGrid;
        grid.BoundGrid = custom ? nullptr : &other;
        grid.LorvDataSource = custom ? &source : nullptr;
        long keys = SortKeysMade();
        EXPECT_EQ(SortAll(grid, lorvSortStringAscending), S_OK);
        EXPECT_EQ(SortKeysMade(), keys) << custom;
        grid.BoundKind = BoundNone;
        grid.BoundGrid = nullptr;
        grid.LorvDataSource = nullptr;
    }
}

// Numbers are keys, which move with their rows.
TEST(SortRange, OfBoundNumbersOrdersTheRecords)
{
    Grid source, grid;
    Fill(source, {L"3", L"1", L"2"});
    Fill(grid, {L"", L"", L""});
    grid.BoundKind = BoundToGrid;
    grid.BoundGrid = &source;
    EXPECT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
    EXPECT_EQ(Origins(grid), (std::vector<int>{2, 3, 1}));
    grid.BoundKind = BoundNone;
}

TEST(SortRange, OfManyBoundTextsStaysInsideTheRange)
{
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        Texts texts;
        for (int i = 0; i < 40; ++i)
            texts.push_back(std::to_wstring(random() % 30));
        Grid source, grid;
        Fill(source, texts);
        Fill(grid, Texts(40, L"own"));
        grid.BoundKind = BoundToGrid;
        grid.BoundGrid = &source;
        EXPECT_EQ(SortRange(grid, lorvSortStringAscending, 5, 35, 1, 2), S_OK);
        std::vector<int> origins = Origins(grid);
        for (int row = 1; row < 41; ++row)
            if (row < 5 || row > 35) {
                EXPECT_EQ(origins[row - 1], row);
            }
        std::sort(origins.begin(), origins.end());
        for (int row = 1; row < 41; ++row)
            EXPECT_EQ(origins[row - 1], row);
        grid.BoundKind = BoundNone;
    }
}
} // namespace
