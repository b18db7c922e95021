#include "platform/bstr.h"
#include "support/fakes.h"
#include "support/member_grid.h"
#include "support/sort_grid.h"

#include <climits>
#include <utility>

namespace
{
constexpr DISPID CompareEvent = 12;

// A grid whose data rows hold descending numbers in column 1, with a window that a test can ask whether it
// is to be repainted.
class SortingMembers : public testing::Test
{
protected:
    void SetUp() override
    {
        Fill(grid, {L"5", L"4", L"3", L"2", L"1"});
        grid.Window = window_ = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 400, 300,
                                                nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(window_, nullptr);
        Select(1, 1, 1, 1);
        Settle();
    }
    void TearDown() override
    {
        grid.Window = nullptr;
        DestroyWindow(window_);
    }

    void Select(int row, int rowSel, int col, int colSel)
    {
        grid.Row = row, grid.RowSel = rowSel;
        grid.Col = col, grid.ColSel = colSel;
    }
    void Settle()
    {
        ValidateRect(window_, nullptr);
        grid.OptionWord &= ~OptionMergeStale;
        grid.SortIndicatorCol = -1;
        sink.Changed.clear();
    }
    bool RepaintAsked() const { return GetUpdateRect(window_, nullptr, FALSE) != FALSE; }
    bool LinksStale() const { return HasOption(grid, OptionMergeStale); }
    HRESULT Sort(int order) { return grid.put_Sort(static_cast<SortSettings>(order)); }
    HRESULT SortCells(int row1, int row2, const Value& order)
    {
        return grid.put_Cell(lorvcpSort, Value(row1), Value(1), Value(row2), Value(1), order);
    }
    HRESULT SetColSort(int col, int mode) { return grid.put_ColSort(col, static_cast<SortSettings>(mode)); }

    PropertySink sink;
    MemberGrid grid;
    Connection connection{grid.PropertySinks, &sink};
    HWND window_ = nullptr;
};

const Texts Ascending = {L"1", L"2", L"3", L"4", L"5"};
const Texts Descending = {L"5", L"4", L"3", L"2", L"1"};

// Sort

TEST_F(SortingMembers, SortRefusesWhatIsNoOrder)
{
    for (int order : {11, 12, INT_MAX, -1, INT_MIN})
        EXPECT_EQ(Sort(order), LORV_E_VALUE) << order;
    EXPECT_EQ(ColumnOf(grid), Descending);
    EXPECT_FALSE(RepaintAsked());
    grid.BoundKind = BoundToGrid;
    EXPECT_EQ(Sort(11), LORV_E_VALUE) << "the value before the binding";
    grid.BoundKind = BoundNone;
}

TEST_F(SortingMembers, SortOfNoneDoesNothing)
{
    grid.SortIndicatorCol = 3;
    grid.BoundKind = BoundToGrid;
    EXPECT_EQ(Sort(lorvSortNone), S_OK) << "not even the binding matters";
    grid.BoundKind = BoundNone;
    EXPECT_EQ(Sort(lorvSortNone), S_OK);
    EXPECT_EQ(grid.SortIndicatorCol, 3);
    EXPECT_FALSE(RepaintAsked());
    EXPECT_FALSE(LinksStale());
}

TEST_F(SortingMembers, SortOfOneSelectedRowTakesEveryDataRow)
{
    for (int row : {1, 3, 5, 0, -1}) {
        Fill(grid, Descending);
        Select(row, row, 1, 1);
        EXPECT_EQ(Sort(lorvSortNumericAscending), S_OK) << row;
        EXPECT_EQ(ColumnOf(grid), Ascending) << row;
        EXPECT_EQ(grid.Row, row) << "the number stays, the row under it is another";
        EXPECT_EQ(grid.RowSel, row);
        EXPECT_EQ(GetCellText(grid, 0, 1), nullptr) << "fixed rows stay";
    }
}

TEST_F(SortingMembers, SortOfSelectedRowsTakesJustThose)
{
    const struct {
        int Row, RowSel;
        Texts Expected;
    } rows[] = {
        {2, 4, {L"5", L"2", L"3", L"4", L"1"}},
        {4, 2, {L"5", L"2", L"3", L"4", L"1"}},
        {1, 2, {L"4", L"5", L"3", L"2", L"1"}},
        {5, 4, {L"5", L"4", L"3", L"1", L"2"}},
    };
    for (auto& row : rows) {
        Fill(grid, Descending);
        Select(row.Row, row.RowSel, 1, 1);
        EXPECT_EQ(Sort(lorvSortNumericAscending), S_OK);
        EXPECT_EQ(ColumnOf(grid), row.Expected) << row.Row << " to " << row.RowSel;
    }
}

TEST_F(SortingMembers, SortTakesTheSelectedColumnsFromTheLowerOne)
{
    Fill(grid, {L"2", L"1", L"2", L"1", L"2"});
    Fill(grid, {L"5", L"4", L"3", L"2", L"1"}, 2);
    for (auto& [col, colSel] : {std::pair(1, 2), std::pair(2, 1)}) {
        Select(1, 1, col, colSel);
        ASSERT_EQ(Sort(lorvSortNumericAscending), S_OK);
        EXPECT_EQ(ColumnOf(grid, 2), (Texts{L"2", L"4", L"1", L"3", L"5"}));
        EXPECT_EQ(grid.SortIndicatorCol, 1);
        Select(1, 1, 2, 2);
        ASSERT_EQ(Sort(lorvSortNumericDescending), S_OK);
        EXPECT_EQ(ColumnOf(grid, 2), Descending);
        EXPECT_EQ(grid.SortIndicatorCol, 2);
    }
    EXPECT_EQ(grid.ColTable[1].LastSort, lorvSortNumericAscending);
    EXPECT_EQ(grid.ColTable[2].LastSort, lorvSortNumericDescending);
}

TEST_F(SortingMembers, SortOfNoDataRowsDoesNothing)
{
    grid.FixedRows = grid.Rows;
    grid.SortIndicatorCol = 3;
    EXPECT_EQ(Sort(lorvSortNumericAscending), S_OK);
    EXPECT_EQ(grid.SortIndicatorCol, 3);
    EXPECT_FALSE(RepaintAsked());
    grid.FixedRows = 1;
    ResizeRows(grid, 0);
    Select(-1, -1, 1, 1);
    EXPECT_EQ(Sort(lorvSortNumericAscending), S_OK);
}

TEST_F(SortingMembers, SortOutsideTheGridForgetsTheSortedColumnAndFails)
{
    const int selections[][4] = {{-1, 3, 1, 1}, {1, 99, 1, 1}, {1, 3, -1, 1}, {1, 1, 1, 10}};
    for (auto& selection : selections) {
        Settle();
        grid.SortIndicatorCol = 3;
        Select(selection[0], selection[1], selection[2], selection[3]);
        EXPECT_EQ(Sort(lorvSortNumericAscending), LORV_E_INDEX);
        EXPECT_EQ(grid.SortIndicatorCol, -1);
        EXPECT_FALSE(RepaintAsked());
        EXPECT_FALSE(LinksStale());
    }
    Select(1, 1, 1, 1);
}

TEST_F(SortingMembers, SortRepaintsMarksTheLinksAndTellsNobody)
{
    grid.RequiresSave = false;
    for (bool sorted : {false, true}) {
        Settle();
        ASSERT_EQ(Sort(lorvSortNumericAscending), S_OK);
        EXPECT_TRUE(RepaintAsked());
        EXPECT_TRUE(LinksStale()) << (sorted ? "also when nothing moves" : "");
        EXPECT_EQ(grid.SortIndicatorCol, 1);
        EXPECT_TRUE(sink.Changed.empty());
        EXPECT_FALSE(grid.RequiresSave);
    }
}

// It holds no state: the same value sorts again.
TEST_F(SortingMembers, SortRunsEachTimeItIsSet)
{
    EventSink events;
    Connection host(grid.EventSinks, &events);
    events.On = [&](DISPID id, DISPPARAMS& arguments) {
        if (id != CompareEvent)
            return;
        const wchar_t* x = GetCellText(grid, EventSink::Argument(arguments, 0).lVal, 1);
        const wchar_t* y = GetCellText(grid, EventSink::Argument(arguments, 1).lVal, 1);
        *EventSink::Argument(arguments, 2).piVal = static_cast<short>(*x - *y);
    };
    ASSERT_EQ(Sort(lorvSortCustom), LORV_E_VALUE) << "5 - 4 is 1, 5 - 3 is too much";
    events.On = [&](DISPID id, DISPPARAMS& arguments) {
        if (id != CompareEvent)
            return;
        const wchar_t* x = GetCellText(grid, EventSink::Argument(arguments, 0).lVal, 1);
        const wchar_t* y = GetCellText(grid, EventSink::Argument(arguments, 1).lVal, 1);
        *EventSink::Argument(arguments, 2).piVal = static_cast<short>(*x < *y ? -1 : *x > *y);
    };
    ASSERT_EQ(Sort(lorvSortCustom), S_OK);
    EXPECT_EQ(ColumnOf(grid), Ascending);
    events.Events.clear();
    ASSERT_EQ(Sort(lorvSortCustom), S_OK);
    EXPECT_EQ(events.Count(CompareEvent), 4) << "one look at each pair";
}

TEST_F(SortingMembers, SortOfABoundGridIsRefusedOutsideAFormDesigner)
{
    FakeSource source;
    for (bool custom : {false, true}) {
        grid.BoundKind = custom ? BoundNone : BoundToGrid;
        grid.LorvDataSource = custom ? &source : nullptr;
        for (int designMode : {0, 1}) {
            grid.DesignModeCache = designMode;
            HRESULT expected = designMode ? S_OK : LORV_E_BOUND;
            EXPECT_EQ(Sort(lorvSortNumericAscending), expected) << custom << designMode;
        }
    }
    grid.LorvDataSource = nullptr;
    grid.BoundKind = BoundNone;
}

// Cell

TEST_F(SortingMembers, CellSortsWithoutAGuardAndRepaintsInAnyCase)
{
    EXPECT_EQ(SortCells(4, 2, lorvSortNumericAscending), S_OK);
    EXPECT_EQ(ColumnOf(grid), (Texts{L"5", L"2", L"3", L"4", L"1"}));
    EXPECT_TRUE(RepaintAsked());
    EXPECT_TRUE(LinksStale());
    EXPECT_EQ(grid.SortIndicatorCol, 1);

    Settle();
    EXPECT_EQ(SortCells(2, 4, Value(L"3")), S_OK) << "what converts to an order is one";
    EXPECT_FALSE(LinksStale()) << "nothing moved";
    EXPECT_TRUE(RepaintAsked());

    Settle();
    EXPECT_EQ(SortCells(1, 5, 11), LORV_E_VALUE);
    EXPECT_TRUE(RepaintAsked());
    EXPECT_EQ(SortCells(1, 6, 1), LORV_E_INDEX);

    EXPECT_EQ(SortCells(1, 5, Value(L"no order")), S_OK) << "counts as 0";
    EXPECT_EQ(ColumnOf(grid), (Texts{L"5", L"2", L"3", L"4", L"1"}));

    grid.BoundKind = BoundToGrid;
    EXPECT_EQ(SortCells(1, 5, lorvSortNumericAscending), S_OK);
    grid.BoundKind = BoundNone;
}

// The pictures of the order are repainted although nothing moved.
TEST_F(SortingMembers, AHeaderThatShowsTheOrderIsRepainted)
{
    Fill(grid, Ascending);
    for (int bar = 0; bar < 8; ++bar) {
        grid.ExplorerBar = static_cast<int16_t>(bar);
        UpdateWindow(window_);
        Settle();
        ASSERT_EQ(SortAll(grid, lorvSortNumericAscending), S_OK);
        EXPECT_EQ(RepaintAsked(), (bar & 4) != 0) << bar;
    }
}

// ColSort

TEST_F(SortingMembers, ColSortTakesEveryOrderForOneColumnOrAll)
{
    SortSettings read;
    for (int mode = lorvSortNone; mode <= lorvSortUseColSort; ++mode) {
        EXPECT_EQ(SetColSort(2, mode), S_OK);
        EXPECT_EQ(grid.get_ColSort(2, &read), S_OK);
        EXPECT_EQ(static_cast<int>(read), mode);
        EXPECT_EQ(grid.ColTable[1].ColSort, 0);
    }
    for (int all : {-1, -2, INT_MIN}) {
        EXPECT_EQ(SetColSort(all, 4), S_OK);
        for (int col = 0; col < grid.Cols; ++col)
            EXPECT_EQ(std::exchange(grid.ColTable[col].ColSort, 0), 4) << col;
    }
    EXPECT_FALSE(RepaintAsked());
    EXPECT_FALSE(LinksStale());
    EXPECT_TRUE(sink.Changed.empty());
}

TEST_F(SortingMembers, ColSortRefusesOtherColumnsAndOrders)
{
    SortSettings read;
    for (int col : {grid.Cols, INT_MAX}) {
        EXPECT_EQ(SetColSort(col, 1), LORV_E_INDEX);
        EXPECT_EQ(grid.get_ColSort(col, &read), LORV_E_INDEX);
    }
    EXPECT_EQ(grid.get_ColSort(-1, &read), LORV_E_INDEX) << "all columns have no one order";
    for (int mode : {11, INT_MAX, -1, INT_MIN})
        for (int col : {1, -1})
            EXPECT_EQ(SetColSort(col, mode), LORV_E_VALUE) << mode;
    EXPECT_EQ(grid.ColTable[1].ColSort, 0);
    EXPECT_EQ(grid.get_ColSort(1, nullptr), E_POINTER);
}

// FindRow

class FindMembers : public SortingMembers
{
protected:
    long Find(const Value& item, const Value& row = missing, const Value& col = missing,
              const Value& caseSensitive = missing, const Value& fullMatch = missing)
    {
        LONG found = 77;
        HRESULT result = grid.get_FindRow(item, row, col, caseSensitive, fullMatch, &found);
        EXPECT_TRUE(SUCCEEDED(result) || found == -1);
        return FAILED(result) ? result : found;
    }
};

TEST_F(FindMembers, FindRowTakesWhateverConvertsToItsArguments)
{
    SetCellText(grid, 0, 1, L"Fruit");
    SetCellText(grid, 3, 1, L"Apple");
    EXPECT_EQ(Find(L"Apple", missing, 1), 3);
    EXPECT_EQ(Find(L"Fruit", missing, 1), 0) << "from the first row";
    EXPECT_EQ(Find(L"Fruit", 0, L"1"), 0);
    EXPECT_EQ(Find(L"Fruit", 1, 1.0), -1);
    EXPECT_EQ(Find(L"Fruit", L"no row", 1), 0) << "what does not convert is as good as missing";
    EXPECT_EQ(Find(L"Fruit", Value::OfType(VT_NULL), 1), 0);
    EXPECT_EQ(Find(L"Fruit", Value::OfType(VT_EMPTY), 1), 0);
    EXPECT_EQ(Find(L"APPLE", 0, 1), -1);
    EXPECT_EQ(Find(L"APPLE", 0, 1, false), 3);
    EXPECT_EQ(Find(L"APPLE", 0, 1, 0), 3);
    EXPECT_EQ(Find(L"APPLE", 0, 1, true), -1);
    EXPECT_EQ(Find(L"APPLE", 0, 1, 7), -1) << "any number but 0";
    EXPECT_EQ(Find(L"APPLE", 0, 1, L"what?"), -1);
    EXPECT_EQ(Find(L"App", 0, 1, missing, false), 3);
    EXPECT_EQ(Find(L"App", 0, 1, missing, true), -1);
    EXPECT_EQ(Find(L"App", 0, 1), -1);
    EXPECT_EQ(Find(L"APP", 0, 1, false, false), 3);
    VARIANT target = {};
    target.vt = VT_I4, target.lVal = 1;
    EXPECT_EQ(Find(L"Apple", missing, Value::To(target)), 3);
    EXPECT_EQ(Find(4, 0, 1), 2) << "a number is searched as its text";
}

TEST_F(FindMembers, FindRowWithoutAColumnSearchesRowData)
{
    grid.put_RowData(4, Value(7));
    EXPECT_EQ(Find(7), 4);
    EXPECT_EQ(Find(7, 5), -1);
    EXPECT_EQ(Find(7, missing, -3), 4);
    EXPECT_EQ(Find(7, missing, L"no column"), 4);
    EXPECT_EQ(Find(7.0), -1);
    EXPECT_EQ(Find(L"5"), -1) << "texts of cells are not looked at";
}

TEST_F(FindMembers, FindRowReportsAColumnOutsideAndANullResult)
{
    EXPECT_EQ(Find(L"5", missing, grid.Cols), LORV_E_INDEX);
    EXPECT_EQ(Find(L"5", 99, grid.Cols), LORV_E_INDEX);
    EXPECT_EQ(grid.get_FindRow(Value(L"5"), missing, missing, missing, missing, nullptr), E_POINTER);
}

TEST_F(FindMembers, FindRowRegexGivesTheRowOrACode)
{
    LONG found = 77;
    Bstr pattern(L"[12]");
    EXPECT_EQ(grid.get_FindRowRegex(pattern.Get(), 1, 1, &found), S_OK);
    EXPECT_EQ(found, 4);
    EXPECT_EQ(grid.get_FindRowRegex(pattern.Get(), 5, 1, &found), S_OK);
    EXPECT_EQ(found, 5);
    EXPECT_EQ(grid.get_FindRowRegex(pattern.Get(), -1, 2, &found), S_OK);
    EXPECT_EQ(found, -1);
    found = 77;
    EXPECT_EQ(grid.get_FindRowRegex(pattern.Get(), 1, -1, &found), LORV_E_INDEX);
    EXPECT_EQ(found, -1);
    EXPECT_EQ(grid.get_FindRowRegex(pattern.Get(), 1, 1, nullptr), E_POINTER);
}
} // namespace
