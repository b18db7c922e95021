#include "core/row_ops.h"

#include "core/cell_property.h"
#include "core/row_col.h"
#include "core/selection_range.h"
#include "platform/variant.h"
#include "support/fakes.h"

#include <climits>
#include <string>

namespace
{
std::wstring TextAt(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    return text ? text : L"(none)";
}

// A small grid whose rows carry their first number as text and height, and whose columns carry it as key
// and as text of the first row.
void Number(Grid& grid, int rows, int cols)
{
    ResizeBoth(grid, rows, cols);
    for (int col = 0; col < cols; ++col) {
        ReplaceText(grid.ColTable[col].ColKey, std::to_wstring(col).c_str());
        grid.ColTable[col].Width = col;
        SetCellText(grid, 0, col, std::to_wstring(col).c_str());
    }
    for (int row = 1; row < rows; ++row) {
        SetCellText(grid, row, 0, std::to_wstring(row).c_str());
        grid.RowTable[row].Height = row;
    }
    grid.OptionWord &= ~OptionMergeStale;
}

std::wstring RowOrder(Grid& grid)
{
    std::wstring order;
    for (int row = 0; row < grid.Rows; ++row)
        order += TextAt(grid, row, 0) + L" ";
    return order;
}

std::wstring ColOrder(Grid& grid)
{
    std::wstring order;
    for (int col = 0; col < grid.Cols; ++col)
        order += TextAt(grid, 0, col) + L" ";
    return order;
}

void StoreLong(VARIANT*& slot, long number)
{
    VARIANT value;
    value.vt = VT_I4, value.lVal = number;
    ASSERT_EQ(StoreHeapVariant(slot, value), S_OK);
}

TEST(AddItem, InsertsBeforeTheRowWithTheRecordsBelowMovingDown)
{
    Grid grid;
    Number(grid, 4, 2);
    grid.RowTable[2].Status = lorvrsModified;
    ASSERT_EQ(AddItem(grid, L"new", 2), S_OK);
    EXPECT_EQ(RowOrder(grid), L"0 1 new 2 3 ");
    EXPECT_EQ(grid.RowTable[3].Height, 2);
    EXPECT_EQ(grid.RowTable[3].Status, lorvrsModified);
    EXPECT_EQ(grid.RowTable[2].Height, UnsetLength);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    EXPECT_FALSE(grid.RequiresSave);
}

TEST(AddItem, TakesPositionsFromTheFirstRowToTheEnd)
{
    for (int row : {0, 4}) {
        Grid grid;
        Number(grid, 4, 2);
        EXPECT_EQ(AddItem(grid, L"new", row), S_OK);
        EXPECT_EQ(TextAt(grid, row, 0), L"new");
        EXPECT_EQ(grid.Rows, 5);
    }
    for (int row : {-1, 5, INT_MIN, INT_MAX}) {
        Grid grid;
        Number(grid, 4, 2);
        EXPECT_EQ(AddItem(grid, L"new", row), LORV_E_INDEX) << row;
        EXPECT_EQ(RowOrder(grid), L"0 1 2 3 ");
    }
}

// A row that was just added is new, though its texts were written.
TEST(AddItem, LeavesTheRowNew)
{
    Grid grid;
    AddItem(grid, L"a\tb", 3);
    EXPECT_EQ(grid.RowTable[3].Status, lorvrsNew);
}

TEST(AddItem, SpreadsTheTextFromColumn0AndDropsWhatIsTooMuch)
{
    Grid grid;
    ResizeBoth(grid, 2, 3);
    ASSERT_EQ(AddItem(grid, L"a\t\tc\td\te", 1), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 0), L"a") << "fixed columns take their part";
    EXPECT_EQ(TextAt(grid, 1, 1), L"(none)");
    EXPECT_EQ(TextAt(grid, 1, 2), L"c");
    ASSERT_EQ(AddItem(grid, L"x", 1), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 0), L"x");
    EXPECT_EQ(TextAt(grid, 1, 1), L"(none)");
}

TEST(AddItem, WithoutATextMakesNoCells)
{
    Grid grid;
    for (const wchar_t* item : {static_cast<const wchar_t*>(nullptr), L""}) {
        ASSERT_EQ(AddItem(grid, item, 1), S_OK);
        EXPECT_EQ(grid.RowTable[1].Cells, nullptr);
    }
    ResizeCols(grid, 0);
    EXPECT_EQ(AddItem(grid, L"text", 1), S_OK) << "a grid without columns has no cell for it";
}

TEST(AddItem, UsesTheProgramsSeparator)
{
    Grid grid;
    grid.ClipSeparators = SysAllocString(L"|;");
    AddItem(grid, L"a|b\tc", 1);
    EXPECT_EQ(TextAt(grid, 1, 0), L"a");
    EXPECT_EQ(TextAt(grid, 1, 1), L"b\tc");
}

TEST(AddItem, LeavesTheCurrentRowsNumberAlone)
{
    Grid grid;
    grid.Row = grid.RowSel = 5;
    AddItem(grid, nullptr, 1);
    EXPECT_EQ(grid.Row, 5);
    EXPECT_EQ(grid.RowSel, 5);
}

TEST(AddItem, AndRemoveItemAreRefusedWhileBound)
{
    for (bool design : {false, true}) {
        Grid grid;
        grid.DesignModeCache = design;
        grid.BoundKind = VT_VARIANT;
        EXPECT_EQ(AddItem(grid, nullptr, 1), design ? S_OK : LORV_E_BOUND);
        EXPECT_EQ(RemoveItem(grid, 1), design ? S_OK : LORV_E_BOUND);
        EXPECT_EQ(grid.Rows, 50);
        grid.BoundKind = BoundNone;
    }
}

// A custom source has its own rows: none is added or removed beside it, but its rows may move.
TEST(AddItem, AndRemoveItemAreRefusedBesideACustomSource)
{
    FakeSource source;
    for (bool design : {false, true}) {
        Grid grid;
        grid.DesignModeCache = design;
        grid.LorvDataSource = &source;
        EXPECT_EQ(AddItem(grid, nullptr, 1), design ? S_OK : LORV_E_BOUND);
        EXPECT_EQ(RemoveItem(grid, 1), design ? S_OK : LORV_E_BOUND);
        EXPECT_EQ(grid.Rows, 50);
        EXPECT_EQ(MoveRow(grid, 1, 2), S_OK);
        EXPECT_EQ(MoveCol(grid, 1, 2), S_OK);
        grid.LorvDataSource = nullptr;
    }
}

TEST(AddItem, IsRefusedBeforeItsRowIsLookedAt)
{
    Grid grid;
    grid.DesignModeCache = 0;
    grid.BoundKind = VT_VARIANT;
    EXPECT_EQ(AddItem(grid, nullptr, 99), LORV_E_BOUND);
    EXPECT_EQ(RemoveItem(grid, 99), LORV_E_INDEX) << "here the row comes first";
    grid.BoundKind = BoundNone;
}

TEST(AddItem, LeavesTheTableAsItWasWithoutMemory)
{
    Grid grid;
    ResizeBoth(grid, 100, 2);
    FailingAllocation failing;
    EXPECT_EQ(AddItem(grid, L"text", 1), LORV_E_MEMORY);
    EXPECT_EQ(grid.Rows, 100);
}

TEST(RowMoves, LoseNothingWhenAnyAllocationFails)
{
    WithEachAllocationFailing([] {
        Grid grid;
        if (grid.Rows != 50 || grid.Cols != 10)
            return;
        HRESULT added = AddItem(grid, L"a\tb\tc", 1);
        EXPECT_TRUE(added == S_OK || added == LORV_E_MEMORY);
        EXPECT_EQ(MoveRow(grid, 1, 3), S_OK);
        EXPECT_EQ(MoveCol(grid, 1, 3), S_OK);
        EXPECT_EQ(MoveRowBlock(grid, 3, 4, 1), S_OK);
        EXPECT_EQ(RemoveItem(grid, 1), S_OK);
    });
}

TEST(RemoveItem, FreesTheRowAndMovesTheOthersUp)
{
    HeapBalance balance;
    Grid grid;
    Number(grid, 5, 2);
    StoreLong(grid.RowTable[2].RowData, 7);
    SetCellProperty(grid, 2, 1, CellSelector::BackColor, 1);
    ASSERT_EQ(RemoveItem(grid, 2), S_OK);
    EXPECT_EQ(RowOrder(grid), L"0 1 3 4 ");
    EXPECT_EQ(grid.RowTable[2].Height, 3);
    EXPECT_EQ(grid.FixedRows, 1);
}

TEST(RemoveItem, RefusesRowsOutside)
{
    Grid grid;
    for (int row : {-1, 50, INT_MIN, INT_MAX})
        EXPECT_EQ(RemoveItem(grid, row), LORV_E_INDEX);
    EXPECT_EQ(grid.Rows, 50);
}

TEST(RemoveItem, OfAFixedRowShrinksTheFixedPart)
{
    Grid grid;
    Number(grid, 5, 2);
    grid.Row = grid.RowSel = 3;
    ASSERT_EQ(RemoveItem(grid, 0), S_OK);
    EXPECT_EQ(grid.FixedRows, 0);
    EXPECT_EQ(grid.Row, 3) << "nothing else is adjusted";
    EXPECT_EQ(RowOrder(grid), L"1 2 3 4 ");
}

TEST(RemoveItem, OfTheLastRowMovesTheCurrentRowUp)
{
    Grid grid;
    Number(grid, 5, 2);
    grid.Row = grid.RowSel = 4;
    ASSERT_EQ(RemoveItem(grid, 4), S_OK);
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(grid.RowSel, 3);
}

TEST(RemoveItem, CanEmptyTheGrid)
{
    Grid grid;
    while (grid.Rows > 0)
        ASSERT_EQ(RemoveItem(grid, 0), S_OK);
    EXPECT_EQ(grid.FixedRows, 0);
    EXPECT_EQ(RemoveItem(grid, 0), LORV_E_INDEX);
}

// Clearing

// Text, format, data and a check box in every cell of the grid, and something in each row and column.
void Fill(Grid& grid)
{
    ResizeBoth(grid, 4, 4);
    VARIANT number;
    number.vt = VT_I4, number.lVal = 9;
    const VARIANT* data = &number;
    const CellRange all(0, 0, 3, 3);
    SetCellPropertyRange(grid, all, CellSelector::Text, L"text");
    SetCellPropertyRange(grid, all, CellSelector::ForeColor, 5);
    SetCellPropertyRange(grid, all, CellSelector::Data, data);
    SetCellPropertyRange(grid, all, CellSelector::CheckState, lorvChecked);
    for (int row = 0; row < 4; ++row) {
        RowRecord& record = grid.RowTable[row];
        record.Status = lorvrsModified, record.OutlineLevel = 2, record.Height = 30, record.MergeRow = 1;
        record.Flags = RowFlagSelected | RowFlagSubtotal | RowFlagHidden | RowFlagCollapsed;
        StoreLong(record.RowData, row);
    }
    for (int col = 0; col < 4; ++col) {
        ColRecord& record = grid.ColTable[col];
        record.SourceCol = col, record.Width = 40, record.MergeCol = 1, record.ColFlags = ColFlagHidden;
        ReplaceText(record.ColKey, L"key");
        ReplaceText(record.ColFormat, L"#");
        StoreLong(record.ColData, col);
    }
    grid.SortIndicatorCol = 2;
    grid.OptionWord &= ~OptionMergeStale;
}

struct Kept {
    bool Text, Format, Data;
    int Box;
    friend bool operator==(const Kept&, const Kept&) = default;
};
std::ostream& operator<<(std::ostream& out, const Kept& kept)
{
    return out << kept.Text << kept.Format << kept.Data << kept.Box;
}
Kept KeptAt(Grid& grid, int row, int col)
{
    const CellRecord& cell = grid.RowTable[row].Cells[col];
    const CellFormat* format = cell.Format;
    return {cell.Text != nullptr, format && format->ForeColor == 5, format && format->Data,
            cell.State >> CheckStateShift};
}
constexpr Kept untouched = {true, true, true, lorvChecked};

TEST(ClearCells, FreesWhatItIsAskedFor)
{
    struct Case {
        int What;
        Kept Expected;
    };
    const Case cases[] = {
        {lorvClearEverything, {false, false, false, lorvNoCheckbox}},
        {lorvClearText, {false, true, true, lorvChecked}},
        {lorvClearFormatting, {true, false, true, lorvChecked}},
        {lorvClearData, {true, true, false, lorvUnchecked}},
        {4, untouched},
        {-1, untouched},
    };
    for (const Case& each : cases) {
        HeapBalance balance;
        Grid grid;
        Fill(grid);
        ASSERT_EQ(ClearCells(grid, lorvClearEverywhere, each.What), S_OK);
        for (int row = 0; row < 4; ++row)
            for (int col = 0; col < 4; ++col)
                EXPECT_EQ(KeptAt(grid, row, col), each.Expected) << each.What << ": " << row << "," << col;
        EXPECT_EQ(grid.SortIndicatorCol, -1);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    }
}

// Formatting that goes leaves a cell with data the mark of a back colour, black.
TEST(ClearCells, LeavesABackColourWhereDataIsKept)
{
    Grid grid;
    Fill(grid);
    ClearCells(grid, lorvClearEverywhere, lorvClearFormatting);
    const CellFormat* format = CellFormatOf(grid, 1, 1);
    ASSERT_NE(format, nullptr);
    EXPECT_EQ(format->BackColorSet, 1);
    EXPECT_EQ(format->BackColor, 0u);
    EXPECT_EQ(format->Alignment, Unset);
}

TEST(ClearCells, ReachesTheCellsThatItIsToldTo)
{
    struct Case {
        int Where;
        int16_t Mode;
        bool (*Inside)(int row, int col);
    };
    const Case cases[] = {
        {lorvClearEverywhere, 0, [](int, int) { return true; }},
        {lorvClearScrollable, 0, [](int row, int col) { return row >= 1 && col >= 1; }},
        {lorvClearSelection, lorvSelectionFree,
         [](int row, int col) { return row >= 1 && row <= 2 && col >= 2 && col <= 3; }},
        {lorvClearSelection, lorvSelectionByRow,
         [](int row, int col) { return row >= 1 && row <= 2 && col >= 1; }},
        {lorvClearSelection, lorvSelectionListBox,
         [](int row, int col) { return row >= 1 && row <= 2 && col >= 1; }},
        {lorvClearSelection, lorvSelectionByColumn,
         [](int row, int col) { return row >= 1 && col >= 2 && col <= 3; }},
    };
    for (const Case& each : cases) {
        Grid grid;
        Fill(grid);
        grid.Row = 2, grid.RowSel = 1, grid.Col = 2, grid.ColSel = 3;
        grid.SelectionMode = each.Mode;
        ASSERT_EQ(ClearCells(grid, each.Where, lorvClearText), S_OK);
        for (int row = 0; row < 4; ++row)
            for (int col = 0; col < 4; ++col)
                EXPECT_EQ(KeptAt(grid, row, col).Text, !each.Inside(row, col))
                    << each.Where << " mode " << each.Mode << ": " << row << "," << col;
    }
}

TEST(ClearCells, CleansTheTablesOnlyWithEverythingOrDataEverywhere)
{
    for (int where = 0; where <= 2; ++where)
        for (int what = 0; what <= 3; ++what) {
            Grid grid;
            Fill(grid);
            ASSERT_EQ(ClearCells(grid, where, what), S_OK);
            bool cleaned =
                where == lorvClearEverywhere && (what == lorvClearEverything || what == lorvClearData);
            for (int index = 0; index < 4; ++index) {
                const RowRecord& row = grid.RowTable[index];
                EXPECT_EQ(row.RowData == nullptr, cleaned) << where << what;
                EXPECT_EQ(row.Status, cleaned ? lorvrsNew : lorvrsModified);
                EXPECT_EQ(row.OutlineLevel, cleaned ? 0 : 2);
                EXPECT_EQ(row.Flags, RowFlagSelected | RowFlagCollapsed |
                                         (cleaned ? 0 : RowFlagSubtotal | RowFlagHidden));
                EXPECT_EQ(row.Height, 30);
                EXPECT_EQ(row.MergeRow, 1);
                const ColRecord& col = grid.ColTable[index];
                EXPECT_EQ(col.ColData == nullptr, cleaned);
                EXPECT_EQ(col.SourceCol, cleaned ? -1 : index);
                EXPECT_EQ(col.Width, 40);
                EXPECT_EQ(col.MergeCol, 1);
                EXPECT_EQ(col.ColFlags, ColFlagHidden);
                EXPECT_STREQ(col.ColKey, L"key");
                EXPECT_STREQ(col.ColFormat, L"#");
            }
            EXPECT_EQ(grid.Rows, 4);
            EXPECT_EQ(grid.Cols, 4);
        }
}

TEST(ClearCells, RefusesAnUnknownPlace)
{
    for (int where : {3, -1, 100}) {
        Grid grid;
        Fill(grid);
        EXPECT_EQ(ClearCells(grid, where, lorvClearEverything), LORV_E_VALUE);
        EXPECT_EQ(KeptAt(grid, 1, 1), untouched);
    }
}

TEST(ClearCells, TakesASelectionThatLiesOutside)
{
    Grid grid;
    Fill(grid);
    grid.Row = grid.Col = -1, grid.RowSel = 1, grid.ColSel = 1;
    EXPECT_EQ(ClearCells(grid, lorvClearSelection, lorvClearText), S_OK);
    EXPECT_FALSE(KeptAt(grid, 1, 1).Text);
    EXPECT_TRUE(KeptAt(grid, 2, 2).Text);
    grid.FixedCols = grid.Cols;
    grid.SelectionMode = lorvSelectionByRow;
    EXPECT_EQ(ClearCells(grid, lorvClearSelection, lorvClearText), S_OK);
    EXPECT_TRUE(KeptAt(grid, 2, 2).Text);
    EXPECT_TRUE(KeptAt(grid, 1, 3).Text);
}

TEST(ClearCells, SurvivesDataThatShrinksTheGridWhenItGoes)
{
    FakeDispatch inRow, inCol, inCell;
    Grid grid;
    Fill(grid);
    auto store = [](VARIANT*& slot, FakeDispatch& object) {
        OwnedVariant value;
        value.Get().vt = VT_DISPATCH, value.Get().pdispVal = &object;
        object.AddRef();
        ASSERT_EQ(StoreHeapVariant(slot, value.Get()), S_OK);
    };
    store(grid.RowTable[1].RowData, inRow);
    store(grid.ColTable[1].ColData, inCol);
    store(CellFormatOf(grid, 0, 2)->Data, inCell);
    inRow.OnLastRelease = [&] { ResizeRows(grid, 3); };
    inCol.OnLastRelease = [&] { ResizeCols(grid, 3); };
    inCell.OnLastRelease = [&] { ResizeBoth(grid, 1, 1); };
    EXPECT_EQ(ClearCells(grid, lorvClearEverywhere, lorvClearEverything), S_OK);
    EXPECT_EQ(grid.Rows, 1);
    EXPECT_EQ(grid.Cols, 1);
}

// Moving

TEST(MoveRow, MovesTheRecordAndLeavesTheNumbersOfTheView)
{
    struct Case {
        int From, To;
        const wchar_t* Expected;
    };
    const Case cases[] = {
        {1, 3, L"0 2 3 1 4 "}, {3, 1, L"0 3 1 2 4 "}, {0, 4, L"1 2 3 4 0 "}, {4, 0, L"4 0 1 2 3 "}};
    for (const Case& each : cases) {
        Grid grid;
        Number(grid, 5, 2);
        StoreLong(grid.RowTable[each.From].RowData, 7);
        grid.RowTable[each.From].Status = lorvrsModified;
        grid.Row = grid.RowSel = 2, grid.TopRow = 2;
        ASSERT_EQ(MoveRow(grid, each.From, each.To), S_OK);
        for (int row = 0; row < 5; ++row) {
            EXPECT_EQ(grid.RowTable[row].RowData != nullptr, row == each.To) << row;
            EXPECT_EQ(grid.RowTable[row].Status == lorvrsModified, row == each.To) << row;
        }
        EXPECT_EQ(RowOrder(grid), each.Expected);
        EXPECT_EQ(grid.Row, 2);
        EXPECT_EQ(grid.RowSel, 2);
        EXPECT_EQ(grid.TopRow, 2);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    }
}

TEST(MoveRow, ToItsOwnPlaceIsNothingEvenOutside)
{
    Grid grid;
    Number(grid, 5, 2);
    for (int row : {3, -1, 99})
        EXPECT_EQ(MoveRow(grid, row, row), S_OK) << row;
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
}

TEST(MoveRow, RefusesPlacesOutside)
{
    Grid grid;
    Number(grid, 5, 2);
    EXPECT_EQ(MoveRow(grid, 3, 5), LORV_E_INDEX);
    EXPECT_EQ(MoveRow(grid, 5, 3), LORV_E_INDEX);
    EXPECT_EQ(MoveRow(grid, 3, -1), LORV_E_INDEX);
    EXPECT_EQ(MoveRow(grid, -1, 3), LORV_E_INDEX);
    EXPECT_EQ(RowOrder(grid), L"0 1 2 3 4 ");
}

// The columns of a bound grid may move, its rows may not.
TEST(MoveRow, IsRefusedWhileBoundButMoveColIsNot)
{
    Grid grid;
    grid.DesignModeCache = 0;
    grid.BoundKind = VT_VARIANT;
    EXPECT_EQ(MoveRow(grid, 1, 2), LORV_E_BOUND);
    EXPECT_EQ(MoveRow(grid, 1, 1), LORV_E_BOUND);
    EXPECT_EQ(MoveCol(grid, 1, 2), S_OK);
    grid.BoundKind = BoundNone;
}

TEST(MoveCol, MovesTheColumnAndTheCellsOfEveryRow)
{
    struct Case {
        int From, To;
        const wchar_t* Expected;
    };
    const Case cases[] = {{1, 3, L"0 2 3 1 "}, {3, 1, L"0 3 1 2 "}, {0, 3, L"1 2 3 0 "}};
    for (const Case& each : cases) {
        HeapBalance balance;
        Grid grid;
        Number(grid, 3, 4);
        for (int col = 0; col < 4; ++col)
            SetCellText(grid, 2, col, std::to_wstring(col).c_str());
        StoreLong(grid.ColTable[each.From].ColData, 7);
        SetCellProperty(grid, 2, each.From, CellSelector::ForeColor, 5);
        grid.OptionWord &= ~OptionMergeStale;
        ASSERT_EQ(MoveCol(grid, each.From, each.To), S_OK);
        EXPECT_EQ(ColOrder(grid), each.Expected);
        for (int col = 0; col < 4; ++col) {
            EXPECT_EQ(grid.ColTable[col].ColData != nullptr, col == each.To) << col;
            EXPECT_EQ(CellFormatOf(grid, 2, col) != nullptr, col == each.To) << col;
            EXPECT_EQ(TextAt(grid, 2, col), TextAt(grid, 0, col));
            EXPECT_EQ(std::wstring(grid.ColTable[col].ColKey), TextAt(grid, 0, col));
            EXPECT_EQ(std::to_wstring(grid.ColTable[col].Width), TextAt(grid, 0, col));
        }
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    }
}

TEST(MoveCol, TakesTheSortIndicatorOfTheMovedColumnAlone)
{
    Grid grid;
    grid.SortIndicatorCol = 2;
    MoveCol(grid, 2, 5);
    EXPECT_EQ(grid.SortIndicatorCol, 5);
    MoveCol(grid, 1, 7);
    EXPECT_EQ(grid.SortIndicatorCol, 5);
}

TEST(MoveCol, RefusesPlacesOutside)
{
    Grid grid;
    EXPECT_EQ(MoveCol(grid, 1, 10), LORV_E_INDEX);
    EXPECT_EQ(MoveCol(grid, 10, 1), LORV_E_INDEX);
    EXPECT_EQ(MoveCol(grid, -1, 1), LORV_E_INDEX);
    EXPECT_EQ(MoveCol(grid, 1, -1), LORV_E_INDEX);
    EXPECT_EQ(MoveCol(grid, 10, 10), S_OK);
}

TEST(MoveRowBlock, MovesBeforeTheDestination)
{
    struct Case {
        int First, Last, Destination;
        const wchar_t* Expected;
    };
    const Case cases[] = {
        {1, 2, 5, L"0 3 4 1 2 5 "}, {1, 2, 6, L"0 3 4 5 1 2 "}, {3, 5, 1, L"0 3 4 5 1 2 "},
        {4, 4, 0, L"4 0 1 2 3 5 "}, {1, 2, 3, L"0 1 2 3 4 5 "}, {1, 2, 1, L"0 1 2 3 4 5 "},
        {0, 5, 6, L"0 1 2 3 4 5 "},
    };
    for (const Case& each : cases) {
        Grid grid;
        Number(grid, 6, 2);
        ASSERT_EQ(MoveRowBlock(grid, each.First, each.Last, each.Destination), S_OK);
        EXPECT_EQ(RowOrder(grid), each.Expected);
        EXPECT_EQ(HasOption(grid, OptionMergeStale), each.Destination != each.First);
    }
}

TEST(MoveRowBlock, RefusesWhatIsNoBlockOrNoPlace)
{
    struct Case {
        int First, Last, Destination;
    };
    const Case cases[] = {{-1, 2, 4}, {1, 6, 0}, {3, 2, 5}, {1, 3, 2}, {1, 3, 3}, {1, 2, -1}, {1, 2, 7}};
    Grid grid;
    Number(grid, 6, 2);
    for (const Case& each : cases)
        EXPECT_EQ(MoveRowBlock(grid, each.First, each.Last, each.Destination), LORV_E_INDEX)
            << each.First << " " << each.Last << " " << each.Destination;
    EXPECT_EQ(RowOrder(grid), L"0 1 2 3 4 5 ");
}

// Column keys

TEST(FindColKey, FindsTheFirstInAnyCase)
{
    Grid grid;
    ReplaceText(grid.ColTable[0].ColKey, L"Name");
    ReplaceText(grid.ColTable[3].ColKey, L"Amount");
    ReplaceText(grid.ColTable[5].ColKey, L"AMOUNT");
    EXPECT_EQ(FindColKey(grid, L"name"), 0);
    EXPECT_EQ(FindColKey(grid, L"aMOUNT"), 3);
    EXPECT_EQ(FindColKey(grid, L"nam"), -1);
    EXPECT_EQ(FindColKey(grid, L""), 1) << "an empty key names the first column without one";
    EXPECT_EQ(FindColKey(grid, nullptr), 1);
    ResizeCols(grid, 0);
    EXPECT_EQ(FindColKey(grid, L"name"), -1);
    EXPECT_EQ(FindColKey(grid, L""), -1);
}

TEST(SelectionRange, IsOrderedAndFollowsTheMode)
{
    struct Case {
        int16_t Mode;
        CellRange Expected;
    };
    const Case cases[] = {{lorvSelectionFree, {2, 3, 5, 7}},
                          {lorvSelectionByRow, {2, 1, 5, 9}},
                          {lorvSelectionListBox, {2, 1, 5, 9}},
                          {lorvSelectionByColumn, {1, 3, 49, 7}}};
    for (const Case& each : cases) {
        Grid grid;
        grid.Row = 5, grid.RowSel = 2, grid.Col = 3, grid.ColSel = 7;
        grid.SelectionMode = each.Mode;
        EXPECT_TRUE(SelectionRange(grid) == each.Expected) << each.Mode;
    }
}
} // namespace
