#include "view/selection.h"

#include "core/cell_pos.h"
#include "core/errors.h"
#include "support/grid_window.h"
#include "view/messages.h"
#include "view/metrics.h"

namespace
{
class Selection : public GridInWindow
{
protected:
    Selection()
    {
        MoveCursor(grid, 3, 2, CursorSilent);
        FireSelectionEvents(grid);
        Settle();
    }
    CellRange Corners() const { return {grid.Row, grid.Col, grid.RowSel, grid.ColSel}; }
    int Reports() // waiting in the queue; they are taken out
    {
        MSG message = {};
        int count = 0;
        while (PeekMessageW(&message, grid.Window, MessageReportSelection, MessageReportSelection, PM_REMOVE))
            ++count;
        return count;
    }
    bool IsFlagged(int row) const { return (grid.RowTable[row].Flags & RowFlagSelected) != 0; }
};
using ListBox = Selection;

// Moving the cursor

TEST_F(Selection, MoveIsAnnouncedAndReportedInOrder)
{
    EXPECT_EQ(SetCurrentRow(grid, 5), S_OK);
    EXPECT_EQ(Fired(),
              "LeaveCell BeforeRowColChange(3,2,5,2) BeforeSelChange(3,2,5,2) EnterCell RowColChange "
              "AfterRowColChange(3,2,5,2) SelChange AfterSelChange(3,2,5,2)");
    EXPECT_EQ(Corners(), CellRange(5, 2, 5, 2));
}

TEST_F(Selection, KeyboardMoveScrollsBeforeItReports)
{
    MoveCursor(grid, 14, 2, CursorShowCell);
    EXPECT_EQ(Fired(),
              "LeaveCell BeforeRowColChange(3,2,14,2) BeforeSelChange(3,2,14,2) BeforeScroll(1,1,7,1) "
              "AfterScroll(1,1,7,1) EnterCell RowColChange AfterRowColChange(3,2,14,2) SelChange "
              "AfterSelChange(3,2,14,2)");
}

TEST_F(Selection, SetterDoesNotScroll)
{
    SetCurrentRow(grid, 25);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(Selection, MoveToTheSameCellIsNothing)
{
    EXPECT_EQ(MoveCursor(grid, 3, 2, CursorReport), S_OK);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Selection, MoveToTheCellCollapsesTheSelection)
{
    ExtendSelection(grid, 6, 4, CursorReport);
    Settle();
    MoveCursor(grid, 3, 2, CursorReport);
    EXPECT_EQ(Fired(), "BeforeSelChange(3,2,3,2) SelChange AfterSelChange(6,4,3,2)")
        << "the announcement names the old cell, not the old corner";
    EXPECT_EQ(Corners(), CellRange(3, 2, 3, 2));
}

TEST_F(Selection, SilentMoveIsAnnouncedButNotReported)
{
    MoveCursor(grid, 5, 3, CursorSilent);
    EXPECT_EQ(Fired(), "LeaveCell BeforeRowColChange(3,2,5,3)");
    EXPECT_EQ(Corners(), CellRange(5, 3, 5, 3));
    FireSelectionEvents(grid);
    EXPECT_EQ(Fired(), "EnterCell RowColChange AfterRowColChange(3,2,5,3) SelChange AfterSelChange(3,2,5,3)");
    FireSelectionEvents(grid);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Selection, RefusedMoveFiresNothingMore)
{
    refuse = [](DISPID id) { return id == BeforeRowColChangeId; };
    EXPECT_EQ(SetCurrentRow(grid, 5), S_OK);
    EXPECT_EQ(Fired(), "LeaveCell BeforeRowColChange(3,2,5,2)");
    EXPECT_EQ(Corners(), CellRange(3, 2, 3, 2));
}

TEST_F(Selection, RefusedSelectionKeepsTheCell)
{
    refuse = [](DISPID id) { return id == BeforeSelChangeId; };
    SetCurrentRow(grid, 5);
    EXPECT_EQ(Fired(), "LeaveCell BeforeRowColChange(3,2,5,2) BeforeSelChange(3,2,5,2)");
    EXPECT_EQ(Corners(), CellRange(3, 2, 3, 2));
}

TEST_F(Selection, RefusedKeyboardMoveScrollsAllTheSame)
{
    refuse = [](DISPID id) { return id == BeforeRowColChangeId; };
    MoveCursor(grid, 14, 2, CursorShowCell);
    EXPECT_EQ(Fired(), "LeaveCell BeforeRowColChange(3,2,14,2) BeforeScroll(1,1,7,1) AfterScroll(1,1,7,1)");
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(grid.TopRow, 7);
}

TEST_F(Selection, NoCurrentRowIsLegal)
{
    EXPECT_EQ(SetCurrentRow(grid, -1), S_OK);
    EXPECT_EQ(grid.Row, -1);
    EXPECT_EQ(grid.RowSel, -1);
    EXPECT_EQ(SetCurrentRow(grid, -2), LORV_E_INDEX);
    EXPECT_EQ(SetCurrentCol(grid, -1), S_OK);
    EXPECT_EQ(SetCurrentCol(grid, -2), LORV_E_INDEX);
}

TEST_F(Selection, CellsOutsideTheGridAreRefused)
{
    EXPECT_EQ(MoveCursor(grid, 31, 0, CursorReport), LORV_E_INDEX);
    EXPECT_EQ(MoveCursor(grid, 0, 5, CursorReport), LORV_E_INDEX);
    EXPECT_EQ(ExtendSelection(grid, 31, 0, CursorReport), LORV_E_INDEX);
    EXPECT_EQ(ExtendSelection(grid, 0, 5, CursorReport), LORV_E_INDEX);
    EXPECT_EQ(SetCurrentRow(grid, 31), LORV_E_INDEX);
    EXPECT_EQ(SetCurrentCol(grid, 5), LORV_E_INDEX);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Selection, BelowMinusOneKeepsACoordinate)
{
    MoveCursor(grid, -2, 4, CursorReport);
    EXPECT_EQ(Corners(), CellRange(3, 4, 3, 4));
    MoveCursor(grid, 7, -5, CursorReport);
    EXPECT_EQ(Corners(), CellRange(7, 4, 7, 4));
}

TEST_F(Selection, LockKeepsEverything)
{
    grid.EditFlags |= EditFlagSelectionLocked;
    EXPECT_EQ(MoveCursor(grid, 5, 3, CursorShow), S_OK);
    EXPECT_EQ(ExtendSelection(grid, 5, 3, CursorShow), S_OK);
    EXPECT_EQ(Corners(), CellRange(3, 2, 3, 2));
    EXPECT_EQ(Fired(), "");
    SetCurrentRow(grid, 5);
    EXPECT_EQ(grid.Row, 5) << "the setter unlocks";
}

TEST_F(Selection, HandlerMayTakeTheTargetAway)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeSelChangeId) {
            events.On = nullptr;
            ResizeRows(grid, 10);
        }
    };
    EXPECT_EQ(MoveCursor(grid, 25, 2, CursorShow), S_OK);
    EXPECT_LT(grid.Row, 10);
    EXPECT_LT(grid.RowSel, 10);
}

// Extending

TEST_F(Selection, ExtensionMovesOnlyTheOtherCorner)
{
    EXPECT_EQ(ExtendSelection(grid, 6, 4, CursorReport), S_OK);
    EXPECT_EQ(Fired(), "BeforeSelChange(3,2,6,4) SelChange AfterSelChange(3,2,6,4)");
    EXPECT_EQ(Corners(), CellRange(3, 2, 6, 4));
    ExtendSelection(grid, -1, 3, CursorReport);
    EXPECT_EQ(Fired(), "BeforeSelChange(6,4,6,3) SelChange AfterSelChange(6,4,6,3)");
    ExtendSelection(grid, 6, 3, CursorReport);
    EXPECT_EQ(Fired(), "") << "no change";
}

TEST_F(Selection, RefusedExtensionKeepsTheCorner)
{
    refuse = [](DISPID id) { return id == BeforeSelChangeId; };
    EXPECT_EQ(ExtendSelection(grid, 6, 4, CursorReport), S_OK);
    EXPECT_EQ(Fired(), "BeforeSelChange(3,2,6,4)");
    EXPECT_EQ(Corners(), CellRange(3, 2, 3, 2));
}

TEST_F(Selection, ExtensionScrollsByItsMode)
{
    Resize(31, 21);
    struct {
        int Mode;
        bool Row, Col;
    } const cases[] = {{CursorSilent, false, false}, {CursorReport, false, false},
                       {CursorShow, true, true},     {CursorShowCell, false, false},
                       {CursorShowRow, true, false}, {CursorShowCol, false, true}};
    for (const auto& c : cases) {
        grid.TopRow = grid.LeftCol = 1;
        grid.RowSel = 3, grid.ColSel = 2;
        ExtendSelection(grid, 20, 15, c.Mode);
        EXPECT_EQ(grid.TopRow != 1, c.Row) << c.Mode;
        EXPECT_EQ(grid.LeftCol != 1, c.Col) << c.Mode;
    }
}

TEST_F(Selection, ModeOfTheCellShowsTheCell)
{
    grid.TopRow = 15;
    ExtendSelection(grid, 20, 3, CursorShowCell);
    EXPECT_EQ(grid.TopRow, 3);
}

TEST_F(Selection, ExtensionInvalidatesTheBandThatChanged)
{
    ExtendSelection(grid, 5, 3, CursorReport);
    Settle();
    ExtendSelection(grid, 7, 3, CursorReport);
    RECT band = {100, 120, 200, 160};
    RECT invalid = Invalid();
    EXPECT_TRUE(EqualRect(&invalid, &band));
}

TEST_F(Selection, PresentCornerScrollsOnlyWhereOneColumnScrolls)
{
    for (int cols : {5, 2}) {
        Resize(31, cols);
        grid.Row = grid.RowSel = 3, grid.Col = grid.ColSel = 1;
        FireSelectionEvents(grid);
        grid.TopRow = 15;
        Settle();
        EXPECT_EQ(ExtendSelection(grid, 3, 1, CursorShow), S_OK);
        EXPECT_EQ(grid.TopRow, cols == 5 ? 15 : 3) << cols;
        EXPECT_EQ(Fired(), cols == 5 ? "" : "BeforeScroll(15,1,3,1) AfterScroll(15,1,3,1)");
    }
}

TEST_F(Selection, ExtensionOutOfTheFrozenPartRepaintsAll)
{
    struct {
        int SelectionMode, Mode, Row, RowSel;
        bool All;
    } const cases[] = {
        {lorvSelectionFree, CursorSilent, 2, 25, true},     {lorvSelectionFree, CursorReport, 2, 25, false},
        {lorvSelectionByColumn, CursorSilent, 2, 25, true}, {lorvSelectionByRow, CursorSilent, 2, 25, false},
        {lorvSelectionListBox, CursorSilent, 2, 25, false}, {lorvSelectionFree, CursorSilent, 2, 8, false},
        {lorvSelectionFree, CursorSilent, 4, 25, false}};
    grid.FrozenRows = 2;
    grid.TopRow = 3;
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        grid.SelectionMode = static_cast<int16_t>(c.SelectionMode);
        grid.Row = c.Row, grid.Col = 2;
        grid.RowSel = c.RowSel - 1, grid.ColSel = 2;
        FireSelectionEvents(grid);
        Settle();
        ExtendSelection(grid, c.RowSel, 2, c.Mode);
        RECT client = ClientRectOf(grid), invalid = Invalid();
        EXPECT_EQ(EqualRect(&invalid, &client) != FALSE, c.All);
        Reports();
    }
}

TEST_F(Selection, HeadersAreRepaintedWhereTheyShowTheSelection)
{
    for (bool mirrored : {false, true})
        for (int lines : {12, 13}) {
            SetOption(grid, OptionRightToLeft, mirrored);
            grid.GridLinesFixed = static_cast<int16_t>(lines);
            MoveCursor(grid, 3, 2, CursorSilent);
            const auto headersAfter = [&](auto change) {
                Settle();
                change();
                RECT client = ClientRectOf(grid), invalid = Invalid();
                EXPECT_EQ(invalid.top == 0, lines == 13);
                EXPECT_EQ(mirrored ? invalid.right == client.right : invalid.left == 0, lines == 13);
            };
            headersAfter([&] { MoveCursor(grid, 5, 3, CursorSilent); });
            headersAfter([&] { ExtendSelection(grid, 6, 4, CursorReport); });
        }
}

TEST_F(Selection, HostsMayAskForNoPositionsOutsideTheGrid)
{
    grid.Flags |= lorvCFV7SelectionEvents;
    SetCurrentRow(grid, -1);
    EXPECT_EQ(Fired(), "LeaveCell EnterCell RowColChange SelChange");
}

// Rectangles

TEST(RectDifference, IsTheBandBetweenRectanglesThatShareThreeEdges)
{
    const RECT base = {10, 10, 50, 50};
    struct {
        RECT Other;
        bool Shares;
        RECT Band;
    } const cases[] = {
        {{10, 10, 80, 50}, true, {50, 10, 80, 50}},
        {{30, 10, 50, 50}, true, {10, 10, 30, 50}},
        {{10, 10, 50, 90}, true, {10, 50, 50, 90}},
        {{10, 5, 50, 50}, true, {10, 5, 50, 10}},
        {{5, 10, 55, 50}, false, {}},
        {{10, 5, 50, 55}, false, {}},
        {{10, 10, 60, 60}, false, {}},
        {{10, 10, 32000, 50}, false, {}},
        {{10, 10, 31999, 50}, true, {50, 10, 31999, 50}},
        {{10, 10, 50, 50}, true, {50, 10, 50, 50}},
    };
    for (const auto& c : cases) {
        RECT band = {};
        EXPECT_EQ(RectDifference(band, base, c.Other), c.Shares) << c.Other.left << ' ' << c.Other.right;
        if (c.Shares) {
            EXPECT_TRUE(EqualRect(&band, &c.Band)) << c.Other.left << ' ' << c.Other.right;
        }
    }
}

TEST_F(Selection, RectangleIsThatOfTheCellWhileNothingIsHighlighted)
{
    grid.RowSel = 5, grid.ColSel = 3;
    const RECT cell = {100, 60, 150, 80}, all = {100, 60, 200, 120};
    grid.HighLight = lorvHighlightNever;
    RECT area = SelectionPixelRect(grid, false);
    EXPECT_TRUE(EqualRect(&area, &cell));
    area = SelectionPixelRect(grid, true);
    EXPECT_TRUE(EqualRect(&area, &all));
    grid.HighLight = lorvHighlightAlways;
    area = SelectionPixelRect(grid, false);
    EXPECT_TRUE(EqualRect(&area, &all));
}

TEST_F(Selection, RectangleIsMirroredWithTheColumns)
{
    SetOption(grid, OptionRightToLeft, true);
    grid.RowSel = 5, grid.ColSel = 3;
    RECT client = {};
    GetClientRect(grid.Window, &client);
    const RECT expected = {client.right - 200, 60, client.right - 100, 120};
    RECT area = SelectionPixelRect(grid, true);
    EXPECT_TRUE(EqualRect(&area, &expected));
}

TEST_F(Selection, RectangleCoversWhatTheModeSelects)
{
    grid.RowSel = 5, grid.ColSel = 3;
    struct {
        int Mode;
        RECT Area;
    } const cases[] = {{lorvSelectionByRow, {50, 60, 250, 120}},
                       {lorvSelectionListBox, {50, 60, 250, 120}},
                       {lorvSelectionByColumn, {100, 20, 200, 620}}};
    for (const auto& c : cases) {
        grid.SelectionMode = static_cast<int16_t>(c.Mode);
        RECT area = SelectionPixelRect(grid, false);
        EXPECT_TRUE(EqualRect(&area, &c.Area)) << c.Mode;
    }
}

TEST_F(Selection, RectangleEndsAtTheCeilingOfCoordinates)
{
    grid.RowTable[4].Height = grid.ColTable[3].Width = MaxPixels;
    grid.RowSel = 5, grid.ColSel = 4;
    RECT area = SelectionPixelRect(grid, true);
    EXPECT_EQ(area.right, MaxPixels);
    EXPECT_EQ(area.bottom, MaxPixels);
}

TEST_F(Selection, MergesThatReachOutOfItRepaintTheScrollablePart)
{
    struct {
        int Row, Col, Links; // in a selection of rows 3 to 5 and columns 2 and 3
        bool Merges, Reach;
    } const cases[] = {
        {3, 3, LinkAbove, true, true},  {5, 2, LinkBelow, true, true},  {4, 2, LinkLeft, true, true},
        {4, 3, LinkRight, true, true},  {3, 2, LinkBelow, true, false}, {4, 2, LinkAbove, true, false},
        {4, 2, LinkRight, true, false}, {5, 3, LinkLeft, true, false},  {3, 3, LinkAbove, false, false},
    };
    for (int row : {3, 4, 5})
        for (int col : {2, 3})
            SetCellText(grid, row, col, L"x");
    for (bool mirrored : {false, true})
        for (const auto& c : cases) {
            SCOPED_TRACE(&c - cases);
            SetOption(grid, OptionRightToLeft, mirrored);
            grid.MergeCells = c.Merges ? lorvMergeFree : lorvMergeNever;
            grid.RowTable[c.Row].Cells[c.Col].State |= static_cast<uint8_t>(c.Links);
            SetOption(grid, OptionMergeStale, false);
            Settle();
            grid.RowSel = 3, grid.ColSel = 2;
            SelectionPixelRect(grid, true);
            EXPECT_EQ(Invalid().right, 0) << "of a single cell nothing is repainted";
            grid.RowSel = 5, grid.ColSel = 3;
            SelectionPixelRect(grid, true);
            LONG right = ClientRectOf(grid).right;
            RECT invalid = Invalid(), area = {mirrored ? 0 : 50, 20, mirrored ? right - 50 : right, 200};
            RECT none = {};
            EXPECT_TRUE(EqualRect(&invalid, c.Reach ? &area : &none));
            grid.RowTable[c.Row].Cells[c.Col].State = 0;
        }
}

// Rows of a list box

TEST_F(ListBox, BurstOfMovesIsReportedOnceByTheMessageLoop)
{
    grid.SelectionMode = lorvSelectionListBox;
    MoveCursor(grid, 5, 2, CursorShowCell);
    MoveCursor(grid, 6, 2, CursorShowCell);
    EXPECT_EQ(Fired(), "LeaveCell BeforeRowColChange(3,2,5,2) BeforeSelChange(3,2,5,2) "
                       "LeaveCell BeforeRowColChange(5,2,6,2) BeforeSelChange(5,2,6,2)");
    EXPECT_EQ(Reports(), 1);
    LRESULT result = 0;
    ProcessWindowMessage(grid, MessageReportSelection, 0, 0, result);
    EXPECT_EQ(Fired(), "EnterCell RowColChange AfterRowColChange(3,2,6,2) SelChange AfterSelChange(3,2,6,2)");
}

TEST_F(ListBox, SetterSelectsTheRowAlone)
{
    grid.SelectionMode = lorvSelectionListBox;
    SetRowSelected(grid, 9, true);
    SetCurrentRow(grid, 5);
    EXPECT_TRUE(IsFlagged(5));
    EXPECT_FALSE(IsFlagged(9));
}

TEST_F(ListBox, RowsAreSetOverARangeInEitherOrder)
{
    SetRowSelected(grid, 20, true);
    EXPECT_TRUE(SetRowsSelected(grid, 8, 6, true, false));
    EXPECT_TRUE(IsFlagged(6) && IsFlagged(7) && IsFlagged(8) && IsFlagged(20));
    EXPECT_FALSE(SetRowsSelected(grid, 6, 8, true, false)) << "no change";
    EXPECT_TRUE(SetRowsSelected(grid, 6, 8, true, true));
    EXPECT_FALSE(IsFlagged(20));
    SetRowsSelected(grid, -5, 100, true, false);
    EXPECT_TRUE(IsFlagged(0) && IsFlagged(30));
}

TEST_F(ListBox, RowInvalidatesItsBand)
{
    EXPECT_TRUE(SetRowSelected(grid, 3, true));
    RECT invalid = Invalid();
    EXPECT_EQ(invalid.top, 60);
    EXPECT_EQ(invalid.bottom, 80);
    EXPECT_FALSE(SetRowSelected(grid, 3, true));
}

TEST_F(ListBox, RunningDragAnswersForItsRows)
{
    grid.SelectionMode = lorvSelectionListBox;
    grid.RowTable[4].Flags |= RowFlagSelected;
    grid.RowSel = 5;
    grid.PaintMode |= PaintMouseHeld | PaintListDragAdds;
    EXPECT_TRUE(IsRowSelected(grid, 5));
    EXPECT_FALSE(IsRowSelected(grid, 6));
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListDragAdds);
    EXPECT_FALSE(IsRowSelected(grid, 4)) << "the drag takes it away";
    grid.SelectionMode = lorvSelectionFree;
    EXPECT_TRUE(IsRowSelected(grid, 4));
}

TEST_F(ListBox, RowBeingEditedIsSelectedAndNoDragCounts)
{
    grid.SelectionMode = lorvSelectionListBox;
    grid.RowTable[9].Flags |= RowFlagSelected;
    grid.RowSel = 5;
    grid.PaintMode |= PaintMouseHeld | PaintListDragAdds;
    grid.ActiveEditor = EditorText;
    EXPECT_TRUE(IsRowSelected(grid, 3)) << "the current row";
    EXPECT_FALSE(IsRowSelected(grid, 4)) << "by its flag alone";
    EXPECT_TRUE(IsRowSelected(grid, 9));
    grid.SelectionMode = lorvSelectionFree;
    EXPECT_TRUE(IsRowSelected(grid, 4)) << "elsewhere an edit changes nothing";
    grid.ActiveEditor = 0;
}

TEST_F(ListBox, ColumnSetterSelectsTheCurrentRowAlone)
{
    grid.SelectionMode = lorvSelectionListBox;
    SetRowSelected(grid, 9, true);
    EXPECT_EQ(SetCurrentCol(grid, 3), S_OK);
    EXPECT_TRUE(IsFlagged(3));
    EXPECT_FALSE(IsFlagged(9));
}

TEST_F(ListBox, NoCurrentRowSelectsNothing)
{
    grid.SelectionMode = lorvSelectionListBox;
    SetRowSelected(grid, 9, true);
    EXPECT_EQ(SetCurrentRow(grid, -1), S_OK);
    for (int row = 0; row < grid.Rows; ++row)
        EXPECT_FALSE(IsFlagged(row)) << row;
}

TEST_F(ListBox, ExtensionIsReportedByTheMessageLoopToo)
{
    grid.SelectionMode = lorvSelectionListBox;
    ExtendSelection(grid, 5, 2, CursorReport);
    ExtendSelection(grid, 6, 2, CursorReport);
    EXPECT_EQ(Fired(), "BeforeSelChange(3,2,5,2) BeforeSelChange(5,2,6,2)");
    EXPECT_EQ(Reports(), 1);
}

TEST_F(ListBox, DragThatLosesTheFocusTakesEffect)
{
    grid.SelectionMode = lorvSelectionListBox;
    grid.RowSel = 5;
    grid.PaintMode |= PaintListDragAdds;
    LRESULT result = 0;
    ProcessWindowMessage(grid, WM_KILLFOCUS, 0, 0, result);
    EXPECT_TRUE(IsFlagged(3) && IsFlagged(4) && IsFlagged(5));
    EXPECT_EQ(grid.PaintMode & PaintListDragAdds, 0u);
}

TEST_F(ListBox, ChangedRowsAreReportedWithoutAMove)
{
    grid.SelectionMode = lorvSelectionListBox;
    ReportListChange(grid, true);
    ReportListChange(grid, false);
    EXPECT_EQ(Reports(), 1);
    FireSelectionEvents(grid);
    EXPECT_EQ(Fired(), "SelChange AfterSelChange(3,2,3,2)");
    FireSelectionEvents(grid);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Selection, ChangedRowsMeanNothingOutsideAListBox)
{
    grid.PaintMode |= PaintListChanged;
    FireSelectionEvents(grid);
    EXPECT_EQ(Fired(), "");
    EXPECT_EQ(grid.PaintMode & PaintListChanged, 0u);
}
} // namespace
