#include "core/row_col.h"

#include "core/cell_store.h"
#include "support/fakes.h"

#include <climits>
#include <cstring>
#include <ostream>

namespace
{

constexpr DISPID EndAutoSearchId = 52;

bool IsUnused(const RowRecord& row)
{
    return !row.Cells && !row.RowData && row.Height == -1 && row.Status == 0 && row.OutlineLevel == 0 &&
           row.MergeRow == 0 && row.Flags == 0;
}

int RowsWithCells(const Grid& grid)
{
    int count = 0;
    for (int row = 0; row < grid.Rows; ++row)
        count += grid.RowTable[row].Cells != nullptr;
    return count;
}

// Fills a row record with one of everything.
void UseRow(Grid& grid, int row)
{
    SetCellText(grid, row, 3, L"text");
    VARIANT data = {};
    data.vt = VT_I4;
    StoreHeapVariant(grid.RowTable[row].RowData, data);
    grid.RowTable[row].Height = 40;
    grid.RowTable[row].OutlineLevel = 2;
    grid.RowTable[row].MergeRow = 1;
    grid.RowTable[row].Flags = RowFlagHidden;
}

TEST(ResizeRows, RoundsCapacityUpToBlocksOf100)
{
    HeapBalance balance;
    Grid grid;
    const int sizes[][2] = {{150, 200}, {100, 100},   {101, 200}, {1, 100},
                            {99, 100},  {1000, 1000}, {0, 0},     {5, 100}};
    for (auto& size : sizes) {
        EXPECT_EQ(ResizeRows(grid, size[0]), S_OK);
        EXPECT_EQ(grid.Rows, size[0]);
        EXPECT_EQ(grid.RowCapacity, size[1]);
        EXPECT_EQ(grid.RowTable != nullptr, size[0] != 0);
        for (int row = 0; row < grid.RowCapacity; ++row)
            ASSERT_TRUE(IsUnused(grid.RowTable[row])) << row << " of " << size[0];
    }
}

TEST(ResizeRows, OneMillionRowsAreTheRowTableAlone)
{
    HeapBalance balance;
    Grid grid;
    long live = TheAllocationProbe().Live;
    EXPECT_EQ(ResizeRows(grid, 1000000), S_OK);
    EXPECT_EQ(TheAllocationProbe().Live, live);
    EXPECT_EQ(grid.RowCapacity, 1000000);
    EXPECT_EQ(RowsWithCells(grid), 0);
}

TEST(ResizeRows, GrowingByOneReallocatesEvery100thTime)
{
    Grid grid;
    ResizeRows(grid, 100);
    long allocations = TheAllocationProbe().Count;
    for (int count = 101; count <= 400; ++count)
        ResizeRows(grid, count);
    EXPECT_EQ(TheAllocationProbe().Count, allocations + 3);
}

TEST(ResizeRows, GrowingLeavesTheRowsThatAreThere)
{
    Grid grid;
    UseRow(grid, 7);
    RowRecord before = grid.RowTable[7];
    ResizeRows(grid, 5000);
    EXPECT_EQ(std::memcmp(&before, &grid.RowTable[7], sizeof before), 0);
    EXPECT_EQ(RowsWithCells(grid), 1);
}

TEST(ResizeRows, LostRowsComeBackEmpty)
{
    HeapBalance balance;
    Grid grid;
    for (int row : {3, 30, 49})
        UseRow(grid, row);
    ResizeRows(grid, 20);
    ResizeRows(grid, 50);
    EXPECT_STREQ(GetCellText(grid, 3, 3), L"text");
    EXPECT_TRUE(IsUnused(grid.RowTable[30]));
    EXPECT_TRUE(IsUnused(grid.RowTable[49]));
}

TEST(ResizeRows, EndsASearchAndTheSortIndicatorWhateverTheCount)
{
    for (int count : {50, 40, 60, 0, -1}) {
        EventSink events;
        Grid grid;
        Connection connection(grid.EventSinks, &events);
        grid.IsSearching = 1;
        grid.SortIndicatorCol = 3;
        EXPECT_EQ(ResizeRows(grid, count), count < 0 ? LORV_E_VALUE : S_OK);
        EXPECT_EQ(grid.IsSearching, 0);
        EXPECT_EQ(grid.SortIndicatorCol, -1);
        EXPECT_EQ(events.Count(EndAutoSearchId), 1);
        EXPECT_EQ(grid.Rows, count < 0 ? 50 : count);
    }
}

TEST(ResizeRows, WithoutASearchThereIsNoEndOfOne)
{
    EventSink events;
    Grid grid;
    Connection connection(grid.EventSinks, &events);
    ResizeRows(grid, 50);
    EXPECT_TRUE(events.Events.empty());
}

TEST(ResizeRows, TheSameOrARefusedCountChangesNothingElse)
{
    Grid grid;
    UseRow(grid, 3);
    grid.OptionWord &= ~OptionMergeStale;
    EXPECT_EQ(ResizeRows(grid, 50), S_OK);
    EXPECT_EQ(ResizeRows(grid, -1), LORV_E_VALUE);
    EXPECT_EQ(ResizeRows(grid, INT_MIN), LORV_E_VALUE);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    EXPECT_STREQ(GetCellText(grid, 3, 3), L"text");
    ResizeRows(grid, 51);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST(ResizeRows, AHandlerMayResizeMeanwhile)
{
    EventSink events;
    Grid grid;
    Connection connection(grid.EventSinks, &events);
    events.On = [&](DISPID, DISPPARAMS&) { ResizeRows(grid, 0); };
    grid.IsSearching = 1;
    EXPECT_EQ(ResizeRows(grid, 30), S_OK);
    EXPECT_EQ(grid.Rows, 30);
    EXPECT_EQ(grid.FixedRows, 0);
    EXPECT_TRUE(IsUnused(grid.RowTable[29]));
}

// What a released object does to the grid while its row goes must not leave the table behind the count.
TEST(ResizeRows, ReleasedObjectsMayResizeMeanwhile)
{
    for (int inner : {0, 3, 120, 700}) {
        HeapBalance balance;
        FakePicture picture;
        Grid grid;
        ResizeRows(grid, 900);
        picture.AddRef();
        EnsureCellFormat(grid, 800, 2)->Picture = picture.Get();
        picture.OnLastRelease = [&] { ResizeRows(grid, inner); };
        EXPECT_EQ(ResizeRows(grid, 500), S_OK);
        EXPECT_EQ(grid.Rows, inner < 500 ? inner : 500);
        EXPECT_GE(grid.RowCapacity, grid.Rows);
        for (int row = 0; row < grid.Rows; ++row)
            ASSERT_TRUE(IsUnused(grid.RowTable[row]));
    }
}

TEST(ResizeRows, WithoutMemoryNothingChanges)
{
    Grid grid;
    UseRow(grid, 49);
    {
        FailingAllocation failing;
        EXPECT_EQ(ResizeRows(grid, 500), LORV_E_MEMORY);
    }
    EXPECT_EQ(ResizeRows(grid, INT_MAX), LORV_E_MEMORY);
    EXPECT_EQ(grid.Rows, 50);
    EXPECT_EQ(grid.RowCapacity, 100);
    EXPECT_STREQ(GetCellText(grid, 49, 3), L"text");
}

struct Counts {
    int Fixed, Frozen, First;
    friend bool operator==(const Counts&, const Counts&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Counts& counts)
    {
        return out << "fixed " << counts.Fixed << " frozen " << counts.Frozen << " first " << counts.First;
    }
};

TEST(Resize, BringsFixedFrozenAndFirstInside)
{
    struct {
        Counts Before;
        int Count;
        Counts After;
    } rows[] = {
        {{2, 3, 9}, 10, {2, 3, 9}}, {{2, 3, 9}, 8, {2, 3, 8}}, {{2, 3, 9}, 5, {2, 3, 5}},
        {{2, 3, 9}, 4, {2, 2, 4}},  {{2, 3, 9}, 2, {2, 0, 2}}, {{2, 3, 9}, 1, {1, 0, 1}},
        {{2, 3, 9}, 0, {0, 0, 0}},  {{1, 0, 0}, 5, {1, 0, 1}}, {{2, 3, 3}, 20, {2, 3, 5}},
    };
    for (auto& row : rows) {
        Grid grid;
        ResizeBoth(grid, 11, 11);
        grid.FixedRows = grid.FixedCols = row.Before.Fixed;
        grid.FrozenRows = grid.FrozenCols = row.Before.Frozen;
        grid.TopRow = grid.LeftCol = row.Before.First;
        ResizeRows(grid, row.Count);
        ResizeCols(grid, row.Count);
        EXPECT_EQ((Counts{grid.FixedRows, grid.FrozenRows, grid.TopRow}), row.After) << "rows " << row.Count;
        EXPECT_EQ((Counts{grid.FixedCols, grid.FrozenCols, grid.LeftCol}), row.After) << "cols " << row.Count;
    }
}

TEST(ResizeRows, FixedRowsDoNotComeBackWithTheRows)
{
    Grid grid;
    ResizeRows(grid, 0);
    EXPECT_EQ(grid.FixedRows, 0);
    ResizeRows(grid, 5);
    EXPECT_EQ(grid.FixedRows, 0);
}

TEST(ResizeRows, MovesACurrentRowThatIsLost)
{
    struct {
        int OldCount, Fixed, Row, Count, Expected;
        const char* Why;
    } rows[] = {
        {50, 1, 10, 11, 10, "still there"},
        {50, 1, 10, 10, 9, "the last row is next"},
        {50, 1, 10, 2, 1, "the only scrollable row"},
        {50, 1, 10, 1, 10, "no scrollable row is left, so it stays where it was"},
        {50, 1, 10, 0, 10, "no row is left"},
        {50, 3, 10, 2, 10, "fewer rows than were fixed"},
        {1, 1, 5, 3, 1, "there was no scrollable row: the first one is current"},
        {50, 1, -1, 2, -1, "no current row"},
    };
    for (auto& row : rows) {
        Grid grid;
        ResizeRows(grid, row.OldCount);
        grid.FixedRows = row.Fixed;
        grid.Row = grid.RowSel = row.Row;
        ResizeRows(grid, row.Count);
        EXPECT_EQ(grid.Row, row.Expected) << row.Why;
    }
}

TEST(ResizeRows, LowersTheOtherEndOfTheSelection)
{
    Grid grid;
    grid.Row = 2, grid.RowSel = 30;
    ResizeRows(grid, 20);
    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.RowSel, 19);
}

TEST(ResizeRows, InListBoxModeTheSelectedRowsStaySelected)
{
    Grid grid;
    grid.SelectionMode = lorvSelectionListBox;
    grid.Row = grid.RowSel = 40;
    grid.RowTable[5].Flags = RowFlagSelected;
    ResizeRows(grid, 20);
    EXPECT_EQ(grid.Row, 19);
    EXPECT_EQ(grid.SelectionMode, lorvSelectionListBox);
    EXPECT_EQ(grid.RowTable[5].Flags, RowFlagSelected);
}

TEST(ResizeCols, NewColumnsHaveTheirDefaults)
{
    HeapBalance balance;
    Grid grid;
    EXPECT_EQ(ResizeCols(grid, 25), S_OK);
    for (int col = 0; col < 25; ++col) {
        const ColRecord& record = grid.ColTable[col];
        EXPECT_EQ(record.Width, -1);
        EXPECT_EQ(record.Alignment, 9);
        EXPECT_EQ(record.FixedAlignment, 100);
        EXPECT_EQ(record.SourceCol, -1);
        EXPECT_EQ(record.Indent + record.MergeCol + record.ColSort + record.ColDataType, 0);
        EXPECT_EQ(record.LastSort + record.ColFlags + record.ComboState.ComboCount, 0);
        EXPECT_EQ(record.ColData, nullptr);
        EXPECT_EQ(record.ColImageList, nullptr);
        for (const wchar_t* text : {record.ColFormat, record.ColEditMask, record.ColComboList, record.ColKey})
            EXPECT_EQ(text, nullptr);
    }
}

TEST(ResizeCols, WidensOnlyRowsThatHaveCells)
{
    HeapBalance balance;
    Grid grid;
    UseRow(grid, 3);
    UseRow(grid, 5);
    long allocations = TheAllocationProbe().Count;
    EXPECT_EQ(ResizeCols(grid, 30), S_OK);
    EXPECT_EQ(TheAllocationProbe().Count, allocations + 3) << "the column table and two rows";
    EXPECT_EQ(RowsWithCells(grid), 2);
    EXPECT_STREQ(GetCellText(grid, 3, 3), L"text");
    for (int col = 10; col < 30; ++col)
        EXPECT_EQ(GetCellText(grid, 3, col), nullptr);
}

TEST(ResizeCols, FreesWhatTheDroppedColumnsHeld)
{
    HeapBalance balance;
    Grid grid;
    SetCellText(grid, 2, 8, L"gone");
    SetCellText(grid, 2, 1, L"kept");
    EnsureCellFormat(grid, 2, 9);
    ColRecord& col = grid.ColTable[8];
    for (wchar_t** text : {&col.ColFormat, &col.ColEditMask, &col.ColComboList, &col.ColKey})
        ReplaceText(*text, L"x");
    VARIANT data = {};
    data.vt = VT_I4;
    StoreHeapVariant(col.ColData, data);
    EXPECT_EQ(ResizeCols(grid, 5), S_OK);
    EXPECT_EQ(ResizeCols(grid, 10), S_OK);
    EXPECT_EQ(GetCellText(grid, 2, 8), nullptr);
    EXPECT_EQ(CellFormatOf(grid, 2, 9), nullptr);
    EXPECT_EQ(grid.ColTable[8].ColKey, nullptr);
    EXPECT_EQ(grid.ColTable[8].ColData, nullptr);
    EXPECT_STREQ(GetCellText(grid, 2, 1), L"kept");
}

TEST(ResizeCols, NoColumnsMeansNoCells)
{
    HeapBalance balance;
    Grid grid;
    UseRow(grid, 3);
    UseRow(grid, 40);
    EXPECT_EQ(ResizeCols(grid, 0), S_OK);
    EXPECT_EQ(RowsWithCells(grid), 0);
    EXPECT_EQ(grid.ColTable, nullptr);
    EXPECT_EQ(grid.Col, -1);
    EXPECT_NE(grid.RowTable[3].RowData, nullptr) << "rows keep what is theirs";
    EXPECT_EQ(ResizeCols(grid, 3), S_OK);
    EXPECT_EQ(SetCellText(grid, 3, 2, L"again"), S_OK);
}

TEST(ResizeCols, EndsASearchAndTheSortIndicatorWhateverTheCount)
{
    for (int count : {10, 4, 12, -5}) {
        EventSink events;
        Grid grid;
        Connection connection(grid.EventSinks, &events);
        grid.IsSearching = 1;
        grid.SortIndicatorCol = 3;
        grid.OptionWord &= ~OptionMergeStale;
        EXPECT_EQ(ResizeCols(grid, count), count < 0 ? LORV_E_VALUE : S_OK);
        EXPECT_EQ(grid.SortIndicatorCol, -1);
        EXPECT_EQ(events.Count(EndAutoSearchId), 1);
        EXPECT_EQ(HasOption(grid, OptionMergeStale), count > 0 && count != 10);
    }
}

TEST(ResizeCols, AnOutlineColumnThatIsLostBecomesTheFirst)
{
    Grid grid;
    grid.OutlineCol = 4;
    ResizeCols(grid, 5);
    EXPECT_EQ(grid.OutlineCol, 4);
    ResizeCols(grid, 4);
    EXPECT_EQ(grid.OutlineCol, 0);
}

TEST(ResizeCols, MovesACurrentColumnThatIsLostAndReportsOnce)
{
    struct {
        int OldCount, Fixed, Col, Count, Expected;
        const char* Why;
    } rows[] = {
        {10, 1, 5, 6, 5, "still there"},
        {10, 1, 5, 5, 4, "the last column is next"},
        {10, 1, 5, 1, 0, "no scrollable column is left: the last one, fixed or not"},
        {10, 3, 5, 2, 1, "fewer columns than were fixed"},
        {10, 1, 5, 0, -1, "no column is left"},
        {2, 2, 7, 5, 2, "there was no scrollable column: the first one is current"},
    };
    for (auto& row : rows) {
        Grid grid;
        ResizeCols(grid, row.OldCount);
        grid.FixedCols = row.Fixed;
        grid.Col = grid.ColSel = row.Col;
        ResizeCols(grid, row.Count);
        EXPECT_EQ(grid.Col, row.Expected) << row.Why;
        EXPECT_EQ(grid.LastCol, row.Expected) << "the notifier has seen it: " << row.Why;
    }
}

TEST(ResizeCols, LowersTheOtherEndOfTheSelection)
{
    Grid grid;
    grid.Col = 1, grid.ColSel = 9;
    ResizeCols(grid, 6);
    EXPECT_EQ(grid.Col, 1);
    EXPECT_EQ(grid.ColSel, 5);
}

TEST(ResizeCols, ReleasedObjectsMayResizeMeanwhile)
{
    for (int inner : {0, 2, 7, 15}) {
        HeapBalance balance;
        FakePicture picture;
        Grid grid;
        picture.AddRef();
        EnsureCellFormat(grid, 2, 8)->Picture = picture.Get();
        SetCellText(grid, 30, 8, L"x");
        picture.OnLastRelease = [&] { ResizeCols(grid, inner); };
        EXPECT_EQ(ResizeCols(grid, 5), S_OK);
        EXPECT_EQ(grid.Cols, inner < 5 ? inner : 5);
        for (int col = 0; col < grid.Cols; ++col)
            EXPECT_EQ(SetCellText(grid, 30, col, L"y"), S_OK);
    }
}

TEST(ResizeCols, WithoutMemoryTheCountStaysAndNothingIsLost)
{
    long allocations = WithEachAllocationFailing([] {
        Grid grid;
        if (grid.Rows == 0 || grid.Cols == 0)
            return;
        HRESULT filled = S_OK;
        for (int row = 0; row < 5 && SUCCEEDED(filled); ++row)
            filled = SetCellText(grid, row, 9, L"text");
        HRESULT resized = ResizeCols(grid, 40);
        EXPECT_EQ(grid.Cols, SUCCEEDED(resized) ? 40 : 10);
        if (SUCCEEDED(resized))
            return;
        EXPECT_EQ(resized, LORV_E_MEMORY);
        for (int row = 0; row < 5; ++row)
            EXPECT_STREQ(GetCellText(grid, row, 9), L"text");
        EXPECT_EQ(ResizeCols(grid, 41), S_OK) << "a second try finds the widened rows in order";
        for (int col = 10; col < 41; ++col)
            EXPECT_EQ(GetCellText(grid, 0, col), nullptr);
    });
    EXPECT_GT(allocations, 15);
}

TEST(ResizeCols, TooManyColumnsAreRefused)
{
    Grid grid;
    EXPECT_EQ(ResizeCols(grid, INT_MAX), LORV_E_MEMORY);
    EXPECT_EQ(grid.Cols, 10);
}

TEST(ResizeBoth, ShrinksBeforeItGrows)
{
    Grid grid;
    for (int row = 0; row < 50; ++row)
        UseRow(grid, row);
    long allocations = TheAllocationProbe().Count;
    EXPECT_EQ(ResizeBoth(grid, 3, 20), S_OK);
    EXPECT_EQ(TheAllocationProbe().Count, allocations + 4) << "the column table and the three rows left";
    EXPECT_EQ(grid.Rows, 3);
    EXPECT_EQ(grid.Cols, 20);

    EXPECT_EQ(ResizeBoth(grid, 300, 2), S_OK);
    EXPECT_EQ(grid.Rows, 300);
    EXPECT_EQ(grid.Cols, 2);
}

struct AxisState {
    int Fixed, Frozen, First, Current;
    friend bool operator==(const AxisState&, const AxisState&) = default;
    friend std::ostream& operator<<(std::ostream& out, const AxisState& state)
    {
        return out << "fixed " << state.Fixed << " frozen " << state.Frozen << " first " << state.First
                   << " current " << state.Current;
    }
};

constexpr AxisState Usual = {1, 0, 1, 1};

struct FixedCase {
    AxisState Before;
    int Fixed, Frozen;
    AxisState After;
    const char* Why;
};

// Every row of it is for 20 rows or columns.
const FixedCase FixedCases[] = {
    {Usual, -1, -1, Usual, "negative counts leave everything"},
    {Usual, 3, -1, {3, 0, 3, 3}, "the current row on the boundary moves with it"},
    {{1, 0, 1, 0}, 3, -1, {3, 0, 3, 3}, "and so does a fixed one"},
    {{1, 0, 1, 3}, 5, -1, {5, 0, 5, 1}, "one that the fixed part swallows goes to the old boundary"},
    {{1, 0, 1, 2}, 5, -1, {5, 0, 5, 1}, "the same for the first after it"},
    {{1, 0, 1, 1}, 5, -1, {5, 0, 5, 5}, "while the one at the old boundary goes to the new one"},
    {{1, 0, 1, 5}, 5, -1, {5, 0, 5, 5}, "the new boundary itself is outside"},
    {{1, 0, 1, 7}, 5, -1, {5, 0, 5, 7}, "what lies beyond stays"},
    {{5, 0, 5, 5}, 2, -1, {2, 0, 2, 2}, "the boundary takes it back"},
    {{5, 0, 5, 7}, 2, -1, {2, 0, 2, 7}, "or leaves it"},
    {{1, 0, 8, 9}, 3, -1, {3, 0, 10, 9}, "the scroll position moves with the boundary"},
    {{3, 0, 10, 9}, 1, -1, {1, 0, 8, 9}, "both ways"},
    {{1, 0, 18, 1}, 15, -1, {15, 0, 20, 15}, "and stops at the count"},
    {{1, 4, 5, 9}, 2, -1, {2, 4, 6, 9}, "frozen rows stay frozen"},
    {{1, 4, 5, 9}, 18, -1, {18, 2, 20, 1}, "as far as there is room"},
    {Usual, 20, -1, {20, 0, 20, 19}, "every row fixed: the last one is current"},
    {Usual, 99, -1, {20, 0, 20, 19}, "more than there are means all"},
    {{1, 0, 1, -1}, 3, -1, {3, 0, 3, -1}, "no current row stays none"},
    {Usual, 0, -1, {0, 0, 0, 0}, "none fixed"},
    {Usual, -1, 4, {1, 4, 5, 1}, "frozen rows push the scroll position"},
    {{1, 0, 9, 1}, -1, 4, {1, 4, 9, 1}, "unless it is past them"},
    {{1, 4, 5, 1}, -1, 0, {1, 0, 5, 1}, "which stays where it is when they go"},
    {Usual, -1, 19, {1, 19, 20, 1}, "every other row frozen"},
    {{1, 3, 4, 1}, -1, 20, {1, 0, 4, 1}, "one more than fits means none"},
    {{1, 0, 1, 1}, 3, 2, {3, 2, 5, 3}, "both at once"},
    {{1, 0, 1, 1}, 3, INT_MAX, {3, 0, 3, 3}, "a wild number means none"},
};

TEST(SetFixedCounts, OfRows)
{
    for (const FixedCase& row : FixedCases) {
        Grid grid;
        ResizeRows(grid, 20);
        grid.FixedRows = row.Before.Fixed, grid.FrozenRows = row.Before.Frozen;
        grid.TopRow = row.Before.First, grid.Row = row.Before.Current, grid.RowSel = 13;
        SetFixedCounts(grid, row.Fixed, -1, row.Frozen, -1);
        EXPECT_EQ((AxisState{grid.FixedRows, grid.FrozenRows, grid.TopRow, grid.Row}), row.After) << row.Why;
        if (grid.Row != row.Before.Current) {
            EXPECT_EQ(grid.RowSel, grid.Row) << row.Why;
        }
        EXPECT_EQ((AxisState{grid.FixedCols, grid.FrozenCols, grid.LeftCol, grid.Col}), Usual);
    }
}

TEST(SetFixedCounts, OfColumns)
{
    for (const FixedCase& row : FixedCases) {
        Grid grid;
        ResizeCols(grid, 20);
        grid.FixedCols = row.Before.Fixed, grid.FrozenCols = row.Before.Frozen;
        grid.LeftCol = row.Before.First, grid.Col = row.Before.Current, grid.ColSel = 13;
        SetFixedCounts(grid, -1, row.Fixed, -1, row.Frozen);
        EXPECT_EQ((AxisState{grid.FixedCols, grid.FrozenCols, grid.LeftCol, grid.Col}), row.After) << row.Why;
        if (grid.Col != row.Before.Current) {
            EXPECT_EQ(grid.ColSel, grid.Col) << row.Why;
        }
        EXPECT_EQ((AxisState{grid.FixedRows, grid.FrozenRows, grid.TopRow, grid.Row}), Usual);
    }
}

TEST(SetFixedCounts, CollapsesTheSelectionOnACellThatMoves)
{
    Grid grid;
    grid.Row = 3, grid.RowSel = 9;
    SetFixedCounts(grid, 5, -1, -1, -1);
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.RowSel, 1);
}

TEST(SetFixedCounts, ReportsAndMarksTheMergeLinks)
{
    Grid grid;
    grid.OptionWord &= ~OptionMergeStale;
    SetFixedCounts(grid, 4, 2, -1, -1);
    EXPECT_EQ(grid.LastRow, 4);
    EXPECT_EQ(grid.LastCol, 2);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST(SetFixedCounts, OfAnEmptyGrid)
{
    Grid grid;
    ResizeBoth(grid, 0, 0);
    SetFixedCounts(grid, 3, 3, 3, 3);
    EXPECT_EQ((AxisState{grid.FixedRows, grid.FrozenRows, grid.TopRow, grid.Row}), (AxisState{0, 0, 0, -1}));
    EXPECT_EQ((AxisState{grid.FixedCols, grid.FrozenCols, grid.LeftCol, grid.Col}), (AxisState{0, 0, 0, -1}));
}

} // namespace
