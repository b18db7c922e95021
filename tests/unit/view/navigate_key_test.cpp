// The keys that move the current cell and the selection.

#include "view/navigate_key.h"

#include "core/cell_pos.h"
#include "core/merge.h"
#include "support/grid_window.h"
#include "support/held_keys.h"
#include "view/messages.h"
#include "view/scroll.h"
#include "view/selection.h"

namespace
{
class NavigateKeys : public GridInWindow
{
protected:
    NavigateKeys() { StandAt(5, 2); }

    void StandAt(int row, int col)
    {
        grid.Row = grid.RowSel = grid.LastRow = grid.LastRowSel = row;
        grid.Col = grid.ColSel = grid.LastCol = grid.LastColSel = col;
        Settle();
    }
    void Press(int key, std::initializer_list<int> held = {})
    {
        HeldKeys keys(held);
        NavigateKey(grid, key);
    }
    CellPos Cursor() const { return {grid.Row, grid.Col}; }
    CellPos Corner() const { return {grid.RowSel, grid.ColSel}; }
};

struct Move {
    int Key;
    std::initializer_list<int> Held;
    CellPos From, To;
};
std::string Describe(const Move& move)
{
    std::string text = std::to_string(move.Key);
    for (int key : move.Held)
        text += "+" + std::to_string(key);
    return text + " from " + std::to_string(move.From.Row) + "," + std::to_string(move.From.Col);
}
} // namespace

TEST_F(NavigateKeys, MoveTheCursor)
{
    const Move moves[] = {
        {VK_TAB, {}, {5, 2}, {5, 3}},
        {VK_TAB, {}, {5, 4}, {6, 1}},
        {VK_TAB, {}, {30, 4}, {30, 4}},
        {VK_TAB, {VK_CONTROL}, {5, 4}, {6, 1}},
        {VK_TAB, {VK_SHIFT}, {5, 2}, {5, 1}},
        {VK_TAB, {VK_SHIFT}, {5, 1}, {4, 4}},
        {VK_TAB, {VK_SHIFT}, {1, 1}, {1, 1}},
        {VK_TAB, {VK_SHIFT, VK_CONTROL}, {5, 1}, {4, 4}},
        {VK_PRIOR, {}, {13, 2}, {5, 2}},
        {VK_PRIOR, {}, {5, 2}, {1, 2}},
        {VK_PRIOR, {VK_CONTROL}, {13, 2}, {1, 2}},
        {VK_NEXT, {}, {5, 2}, {13, 2}},
        {VK_NEXT, {}, {25, 2}, {30, 2}},
        {VK_NEXT, {VK_CONTROL}, {5, 2}, {30, 2}},
        {VK_END, {}, {5, 2}, {5, 4}},
        {VK_END, {VK_CONTROL}, {5, 2}, {30, 4}},
        {VK_HOME, {}, {5, 3}, {5, 1}},
        {VK_HOME, {VK_CONTROL}, {5, 3}, {1, 1}},
        {VK_UP, {}, {5, 2}, {4, 2}},
        {VK_UP, {}, {1, 2}, {1, 2}},
        {VK_UP, {VK_CONTROL}, {5, 2}, {1, 2}},
        {VK_DOWN, {}, {5, 2}, {6, 2}},
        {VK_DOWN, {}, {30, 2}, {30, 2}},
        {VK_DOWN, {VK_CONTROL}, {5, 2}, {30, 2}},
        {VK_LEFT, {}, {5, 2}, {5, 1}},
        {VK_LEFT, {}, {5, 1}, {5, 1}},
        {VK_LEFT, {VK_CONTROL}, {5, 3}, {5, 1}},
        {VK_RIGHT, {}, {5, 2}, {5, 3}},
        {VK_RIGHT, {}, {5, 4}, {5, 4}},
        {VK_RIGHT, {VK_CONTROL}, {5, 2}, {5, 4}},
        // From where only a program gets to.
        {VK_UP, {}, {0, 2}, {1, 2}},
        {VK_LEFT, {}, {5, 0}, {5, 1}},
        {VK_DOWN, {}, {-1, 2}, {1, 2}},
        {VK_UP, {}, {-1, -1}, {1, -1}},
        {VK_NEXT, {}, {-1, 2}, {8, 2}},
        {VK_PRIOR, {}, {-1, 2}, {1, 2}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.To) << Describe(move);
        EXPECT_EQ(Corner(), move.To) << Describe(move);
    }
}

TEST_F(NavigateKeys, ShiftMovesTheOtherCorner)
{
    const Move moves[] = {
        {VK_PRIOR, {VK_SHIFT}, {13, 2}, {5, 2}}, {VK_PRIOR, {VK_SHIFT, VK_CONTROL}, {13, 2}, {1, 2}},
        {VK_NEXT, {VK_SHIFT}, {5, 2}, {13, 2}},  {VK_NEXT, {VK_SHIFT, VK_CONTROL}, {5, 2}, {30, 2}},
        {VK_END, {VK_SHIFT}, {5, 2}, {5, 4}},    {VK_END, {VK_SHIFT, VK_CONTROL}, {5, 2}, {30, 4}},
        {VK_HOME, {VK_SHIFT}, {5, 3}, {5, 1}},   {VK_HOME, {VK_SHIFT, VK_CONTROL}, {5, 3}, {1, 1}},
        {VK_UP, {VK_SHIFT}, {5, 2}, {4, 2}},     {VK_UP, {VK_SHIFT, VK_CONTROL}, {5, 2}, {1, 2}},
        {VK_DOWN, {VK_SHIFT}, {5, 2}, {6, 2}},   {VK_DOWN, {VK_SHIFT, VK_CONTROL}, {5, 2}, {30, 2}},
        {VK_LEFT, {VK_SHIFT}, {5, 2}, {5, 1}},   {VK_LEFT, {VK_SHIFT, VK_CONTROL}, {5, 3}, {5, 1}},
        {VK_RIGHT, {VK_SHIFT}, {5, 2}, {5, 3}},  {VK_RIGHT, {VK_SHIFT, VK_CONTROL}, {5, 2}, {5, 4}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.From) << Describe(move);
        EXPECT_EQ(Corner(), move.To) << Describe(move);
    }
}

TEST_F(NavigateKeys, ShiftGoesOnFromTheOtherCorner)
{
    for (int i = 0; i < 3; ++i)
        Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Cursor(), (CellPos{5, 2}));
    EXPECT_EQ(Corner(), (CellPos{8, 2}));
    Press(VK_NEXT, {VK_SHIFT});
    EXPECT_EQ(Corner(), (CellPos{16, 2}));
    Press(VK_DOWN);
    EXPECT_EQ(Cursor(), (CellPos{6, 2})); // from the current cell again
}

TEST_F(NavigateKeys, WithoutAllowSelectionShiftMovesTheCursor)
{
    SetOption(grid, OptionAllowSelection, false);
    Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Cursor(), (CellPos{6, 2}));
    EXPECT_EQ(Corner(), (CellPos{6, 2}));
}

TEST_F(NavigateKeys, AMirroredGridSwapsLeftAndRightAlone)
{
    SetOption(grid, OptionRightToLeft, true);
    const Move moves[] = {
        {VK_LEFT, {}, {5, 2}, {5, 3}},
        {VK_RIGHT, {}, {5, 2}, {5, 1}},
        {VK_LEFT, {VK_CONTROL}, {5, 2}, {5, 4}},
        {VK_RIGHT, {VK_CONTROL}, {5, 3}, {5, 1}},
        {VK_HOME, {}, {5, 3}, {5, 1}},
        {VK_END, {}, {5, 2}, {5, 4}},
        {VK_TAB, {}, {5, 2}, {5, 3}},
        {VK_UP, {}, {5, 2}, {4, 2}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.To) << Describe(move);
    }
}

TEST_F(NavigateKeys, OtherKeysDoNothing)
{
    grid.IsSearching = 1;
    for (int key = 0; key < 256; ++key) {
        bool navigates = key == VK_TAB || (key >= VK_PRIOR && key <= VK_DOWN);
        if (!navigates)
            Press(key, {VK_CONTROL});
    }
    EXPECT_EQ(Fired(), "");
    EXPECT_EQ(grid.IsSearching, 1);
}

// Hidden rows and columns

TEST_F(NavigateKeys, StepOverHiddenRowsAndColumns)
{
    HideRow(6);
    HideRow(7);
    HideCol(2);
    const Move moves[] = {
        {VK_DOWN, {}, {5, 1}, {8, 1}},        {VK_UP, {}, {8, 1}, {5, 1}},  {VK_RIGHT, {}, {5, 1}, {5, 3}},
        {VK_LEFT, {}, {5, 3}, {5, 1}},        {VK_TAB, {}, {5, 1}, {5, 3}}, {VK_TAB, {}, {5, 4}, {8, 1}},
        {VK_TAB, {VK_SHIFT}, {8, 1}, {5, 4}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.To) << Describe(move);
    }
}

TEST_F(NavigateKeys, StayWhereOnlyHiddenOnesAreLeft)
{
    for (int row = 6; row < 31; ++row)
        HideRow(row);
    HideCol(1);
    HideCol(3);
    HideCol(4);
    for (int key : {VK_DOWN, VK_NEXT, VK_LEFT, VK_RIGHT, VK_TAB, VK_HOME, VK_END}) {
        Press(key);
        EXPECT_EQ(Cursor(), (CellPos{5, 2})) << key;
    }
}

// First on in the direction of travel, then back.
TEST_F(NavigateKeys, AHiddenTargetGivesWay)
{
    HideRow(1);
    HideRow(2);
    HideRow(13);
    HideRow(29);
    HideRow(30);
    HideCol(1);
    HideCol(4);
    const Move moves[] = {
        {VK_NEXT, {}, {5, 2}, {14, 2}},
        {VK_UP, {VK_CONTROL}, {5, 2}, {3, 2}},
        {VK_DOWN, {VK_CONTROL}, {5, 2}, {28, 2}},
        {VK_HOME, {}, {5, 3}, {5, 2}},
        {VK_END, {}, {5, 2}, {5, 3}},
        {VK_END, {VK_CONTROL}, {5, 2}, {28, 3}},
        {VK_HOME, {VK_CONTROL}, {5, 3}, {3, 2}},
        {VK_TAB, {}, {5, 3}, {6, 2}},
        {VK_TAB, {VK_SHIFT}, {5, 2}, {4, 3}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.To) << Describe(move);
    }
}

// Merged ranges

namespace
{
class NavigateMerged : public NavigateKeys
{
protected:
    void Merge(int row1, int col1, int row2, int col2)
    {
        grid.MergeCells = lorvMergeFree;
        for (int row = row1; row <= row2; ++row)
            for (int col = col1; col <= col2; ++col)
                SetCellText(grid, row, col, L"same");
        if (row1 != row2)
            grid.ColTable[col1].MergeCol = 1;
        else
            grid.RowTable[row1].MergeRow = 1;
        MarkMergeStale(grid);
        RebuildMergeLinks(grid);
        Settle();
    }
};
} // namespace

TEST_F(NavigateMerged, RowsAreLeftInOneStep)
{
    Merge(5, 2, 7, 2);
    const Move moves[] = {
        {VK_DOWN, {}, {5, 2}, {8, 2}}, {VK_DOWN, {}, {6, 2}, {8, 2}}, {VK_UP, {}, {7, 2}, {4, 2}},
        {VK_UP, {}, {8, 2}, {7, 2}},   {VK_DOWN, {}, {4, 2}, {5, 2}}, {VK_DOWN, {}, {5, 3}, {6, 3}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.To) << Describe(move);
    }
}

TEST_F(NavigateMerged, ColumnsAreLeftInOneStep)
{
    Merge(5, 1, 5, 3);
    const Move moves[] = {
        {VK_RIGHT, {}, {5, 1}, {5, 4}}, {VK_TAB, {}, {5, 2}, {5, 4}},         {VK_LEFT, {}, {5, 4}, {5, 3}},
        {VK_LEFT, {}, {5, 3}, {5, 3}},  {VK_TAB, {VK_SHIFT}, {5, 2}, {4, 4}},
    };
    for (const Move& move : moves) {
        StandAt(move.From.Row, move.From.Col);
        Press(move.Key, move.Held);
        EXPECT_EQ(Cursor(), move.To) << Describe(move);
    }
}

TEST_F(NavigateMerged, OneAtTheEdgeIsLeftByNoStep)
{
    Merge(28, 2, 30, 2);
    StandAt(28, 2);
    Press(VK_DOWN);
    EXPECT_EQ(Cursor(), (CellPos{28, 2}));
}

TEST_F(NavigateMerged, TheOtherCornerStepsOverThemToo)
{
    Merge(6, 2, 9, 2);
    Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Corner(), (CellPos{6, 2}));
    Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Corner(), (CellPos{10, 2}));
}

// What is fired

TEST_F(NavigateKeys, AMoveBringsTheCellIntoViewBeforeItIsReported)
{
    StandAt(9, 2);
    Press(VK_DOWN);
    EXPECT_EQ(Fired(),
              "LeaveCell BeforeRowColChange(9,2,10,2) BeforeSelChange(9,2,10,2) BeforeScroll(1,1,3,1) "
              "AfterScroll(1,1,3,1) EnterCell RowColChange AfterRowColChange(9,2,10,2) SelChange "
              "AfterSelChange(9,2,10,2)");
}

TEST_F(NavigateKeys, AnExtensionShowsTheMovingCorner)
{
    StandAt(9, 2);
    Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Fired(), "BeforeScroll(1,1,3,1) AfterScroll(1,1,3,1) BeforeSelChange(9,2,10,2) SelChange "
                       "AfterSelChange(9,2,10,2)");
}

TEST_F(NavigateKeys, ARefusedMoveScrollsAllTheSame)
{
    StandAt(9, 2);
    refuse = [](DISPID id) { return id == BeforeRowColChangeId; };
    Press(VK_DOWN, {VK_CONTROL});
    EXPECT_EQ(Fired(), "LeaveCell BeforeRowColChange(9,2,30,2) BeforeScroll(1,1,22,1) AfterScroll(1,1,22,1)");
    EXPECT_EQ(Cursor(), (CellPos{9, 2}));
}

TEST_F(NavigateKeys, EndATypedSearchFirst)
{
    grid.IsSearching = 1;
    Press(VK_DOWN);
    EXPECT_EQ(Fired().substr(0, 12), "52 LeaveCell");
    EXPECT_EQ(grid.IsSearching, 0);
    grid.IsSearching = 1;
    grid.TopRow = 22;
    StandAt(30, 2);
    Press(VK_DOWN); // one that leads nowhere, too
    EXPECT_EQ(Fired(), "52");
}

TEST_F(NavigateKeys, AHandlerMayTakeTheRowsAway)
{
    grid.IsSearching = 1;
    events.On = [this](DISPID id, DISPPARAMS&) {
        if (id == 52)
            ResizeRows(grid, 3);
    };
    Press(VK_DOWN, {VK_CONTROL});
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(NavigateKeys, AGridWithFixedRowsOnlyHasNothingToMoveTo)
{
    grid.FixedRows = 31;
    grid.FixedCols = 5;
    for (int key : {VK_TAB, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_HOME, VK_END}) {
        Press(key);
        Press(key, {VK_CONTROL});
        Press(key, {VK_SHIFT});
    }
    EXPECT_EQ(Cursor(), (CellPos{5, 2}));
    EXPECT_EQ(Corner(), (CellPos{5, 2}));
}

TEST_F(NavigateKeys, AnEmptyGridHasNothingToMoveTo)
{
    ResizeBoth(grid, 0, 0);
    Settle();
    for (int key : {VK_TAB, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_HOME, VK_END})
        Press(key);
    EXPECT_EQ(Fired(), "");
}

// List box

namespace
{
class NavigateListBox : public NavigateKeys
{
protected:
    NavigateListBox() { grid.SelectionMode = lorvSelectionListBox; }
    std::string Flagged() const
    {
        std::string rows;
        for (int row = 0; row < grid.Rows; ++row)
            if (grid.RowTable[row].Flags & RowFlagSelected)
                rows += (rows.empty() ? "" : " ") + std::to_string(row);
        return rows;
    }
    int Reports()
    {
        MSG message = {};
        int count = 0;
        while (PeekMessageW(&message, grid.Window, MessageReportSelection, MessageReportSelection, PM_REMOVE))
            ++count;
        return count;
    }
};
} // namespace

TEST_F(NavigateListBox, TheSelectedRowFollowsTheCursor)
{
    SetRowSelected(grid, 20, true);
    Press(VK_DOWN);
    EXPECT_EQ(Flagged(), "6");
    Press(VK_DOWN, {VK_SHIFT});
    Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Flagged(), "6 7 8");
    EXPECT_EQ(Reports(), 1); // for all of them together
    EXPECT_TRUE(grid.PaintMode & PaintListChanged);
}

TEST_F(NavigateListBox, WithoutAllowSelectionItIsOneRow)
{
    SetOption(grid, OptionAllowSelection, false);
    Press(VK_DOWN, {VK_SHIFT});
    Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Flagged(), "7");
}

TEST_F(NavigateListBox, TabSelectsOneRow)
{
    Press(VK_DOWN, {VK_SHIFT});
    Press(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(Flagged(), "5");
}

TEST_F(NavigateListBox, NothingIsReportedWhenNothingChanges)
{
    SetRowSelected(grid, 30, true);
    StandAt(30, 2);
    Reports();
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListChanged);
    Press(VK_DOWN);
    EXPECT_EQ(Reports(), 0);
    EXPECT_FALSE(grid.PaintMode & PaintListChanged);
}
