// What a press selects, and what a drag makes of it.

#include "support/mouse_grid.h"
#include "view/mouse.h"
#include "view/selection.h"
#include "view/selection_click.h"

class SelectionClicks : public GridUnderMouse
{
protected:
    void Mode(int mode) { grid.SelectionMode = static_cast<int16_t>(mode); }
    // The selected rows of a list box, by their flags: "2 3 ".
    std::string ListRows() const
    {
        std::string text;
        for (int row = 0; row < grid.Rows; ++row)
            if (grid.RowTable[row].Flags & RowFlagSelected)
                text += std::to_string(row) + " ";
        return text;
    }
    void Report() { SendMessageW(grid.Window, MessageReportSelection, 0, 0); }
    bool ReportWaits() const
    {
        MSG message = {};
        return PeekMessageW(&message, grid.Window, MessageReportSelection, MessageReportSelection, PM_REMOVE);
    }
};

TEST_F(SelectionClicks, DependOnTheModeAndOnWhatWasHit)
{
    struct Case {
        int Mode;
        int X, Y;
        int Modifier;
        const char* Selection;
    };
    constexpr int free = lorvSelectionFree, byRow = lorvSelectionByRow, byCol = lorvSelectionByColumn;
    constexpr int none = VK_LBUTTON;
    const Case cases[] = {
        {free, 120, 70, none, "3,2:3,2"},      {free, 120, 70, VK_SHIFT, "5,3:3,2"},
        {free, 10, 10, none, "1,1:30,4"},      {free, 120, 10, none, "1,2:30,2"},
        {free, 120, 10, VK_SHIFT, "1,3:30,2"}, {free, 10, 70, none, "3,1:3,4"},
        {free, 10, 70, VK_SHIFT, "5,1:3,4"},   {byRow, 120, 70, none, "3,2:3,2"},
        {byRow, 120, 10, none, "5,2:5,2"},     {byRow, 10, 70, none, "3,1:3,4"},
        {byRow, 10, 10, none, "1,1:30,4"},     {byCol, 120, 70, VK_SHIFT, "5,3:3,2"},
        {byCol, 120, 10, none, "1,2:30,2"},    {byCol, 10, 70, none, "3,3:3,3"},
        {byCol, 10, 10, none, "1,1:30,4"},
    };
    for (const Case& each : cases) {
        Mode(lorvSelectionFree);
        MoveCursor(grid, 5, 3, CursorSilent);
        Mode(each.Mode);
        Click(each.X, each.Y, each.Modifier);
        EXPECT_EQ(Selection(), each.Selection) << each.Mode << " at " << each.X << "," << each.Y;
    }
}

TEST_F(SelectionClicks, HeadersSelectNothingWholeWithoutEitherPermission)
{
    for (Option option : {OptionAllowBigSelection, OptionAllowSelection}) {
        SetOption(grid, option, false);
        MoveCursor(grid, 5, 3, CursorSilent);
        Click(120, 10);
        EXPECT_EQ(Selection(), "5,2:5,2") << "a fixed row keeps the row";
        Click(10, 70);
        EXPECT_EQ(Selection(), "3,2:3,2") << "a fixed column keeps the column";
        Click(10, 10);
        EXPECT_EQ(Selection(), "3,2:3,2");
        SetOption(grid, option, true);
    }
    SetOption(grid, OptionAllowSelection, false);
    Click(120, 110, VK_SHIFT);
    EXPECT_EQ(Selection(), "5,2:5,2") << "Shift extends nothing";
}

TEST_F(SelectionClicks, HeadersReportOnceThroughTheExtension)
{
    Press(120, 10);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,10) LeaveCell BeforeRowColChange(1,1,1,2) "
                      "BeforeSelChange(1,2,30,2) EnterCell RowColChange AfterRowColChange(1,1,1,2) SelChange "
                      "AfterSelChange(1,1,30,2) MouseDown(1,0,120,10)");
    Release(120, 10);
    EXPECT_EQ(grid.TopRow, 1) << "the far corner is not scrolled to";
}

TEST_F(SelectionClicks, GridsWithoutCellsOfTheirOwnSelectNothing)
{
    Resize(1, 5);
    EXPECT_FALSE(SelectionClick(grid, {120, 10}));
    Resize(31, 1);
    EXPECT_FALSE(SelectionClick(grid, {20, 50}));
    Resize(31, 5);
    EXPECT_FALSE(SelectionClick(grid, {120, -1})) << "outside the client area";
    EXPECT_FALSE(SelectionClick(grid, {270, 50})) << "beside the cells";
    EXPECT_TRUE(SelectionClick(grid, {120, 50}));
}

TEST_F(SelectionClicks, ListRowsAreSelectedAloneTogetherOrOneByOne)
{
    Mode(lorvSelectionListBox);
    Click(120, 70);
    EXPECT_EQ(ListRows(), "3 ");
    Click(120, 110, VK_SHIFT);
    EXPECT_EQ(ListRows(), "3 4 5 ");
    Click(120, 150, VK_CONTROL);
    EXPECT_EQ(ListRows(), "3 4 5 7 ");
    Click(120, 90, VK_CONTROL);
    EXPECT_EQ(ListRows(), "3 5 7 ");
    Click(120, 30);
    EXPECT_EQ(ListRows(), "1 ");
    SetOption(grid, OptionAllowSelection, false);
    Click(120, 70, VK_CONTROL);
    EXPECT_EQ(ListRows(), "3 ") << "one row alone";
    SetOption(grid, OptionAllowSelection, true);
    DropMouseMessages();
}

TEST_F(SelectionClicks, ListReportsByOneMessage)
{
    Mode(lorvSelectionListBox);
    Click(120, 70);
    Click(120, 90);
    Told();
    EXPECT_TRUE(ReportWaits());
    EXPECT_FALSE(ReportWaits()) << "posted once for both";
    Report();
    EXPECT_EQ(Told(), "EnterCell RowColChange AfterRowColChange(1,1,4,2) SelChange AfterSelChange(1,1,4,2)");
}

TEST_F(SelectionClicks, CtrlClickOnTheSameRowAsksWithEqualPositions)
{
    Mode(lorvSelectionListBox);
    Click(120, 70);
    Told();
    Press(120, 70, VK_CONTROL);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,2,120,70) BeforeSelChange(3,2,3,2) MouseDown(1,2,120,70)");
    EXPECT_EQ(ListRows(), "");
    Release(120, 70);
    EXPECT_EQ(ListRows(), "") << "the release takes the row's new state";
    Press(120, 90, VK_CONTROL);
    EXPECT_EQ(Told().find("BeforeSelChange(4,2,4,2)"), std::string::npos);
    Release(120, 90);
}

TEST_F(SelectionClicks, CornerOfAListSelectsAllAndCannotBeDragged)
{
    Mode(lorvSelectionListBox);
    Resize(5, 5);
    Press(10, 10);
    EXPECT_EQ(ListRows(), "1 2 3 4 ");
    EXPECT_FALSE(grid.PaintMode & PaintMouseHeld);
    EXPECT_TRUE(grid.PaintMode & PaintListChanged);
    EXPECT_TRUE(ReportWaits());
    DragTo(120, 50);
    Release(120, 50);
    EXPECT_EQ(ListRows(), "1 2 3 4 ");
    Click(120, 10);
    EXPECT_EQ(ListRows(), "1 ") << "a fixed row means the first one";
    Click(10, 70);
    EXPECT_EQ(Selection(), "3,2:3,2") << "a fixed column keeps the column";
}

TEST_F(SelectionClicks, RightPressOnAListLeavesNoDragBehind)
{
    Mode(lorvSelectionListBox);
    Send(WM_RBUTTONDOWN, 120, 70);
    EXPECT_EQ(ListRows(), "3 ");
    EXPECT_FALSE(grid.PaintMode & PaintListDragAdds);
}

class DragSelection : public SelectionClicks
{
protected:
    // What a tick of the timer does with the pointer at that point.
    void Tick(int x, int y) { UpdateMouseZone(grid, {x, y}); }
    bool TimerRuns() const { return TheMouse().TimerWindow == grid.Window; }
};

TEST_F(DragSelection, ExtendsWhileTheButtonIsHeld)
{
    Press(70, 30);
    Told();
    EXPECT_FALSE(TimerRuns());
    DragTo(120, 70);
    EXPECT_EQ(Told(), "BeforeSelChange(1,1,3,2) SelChange AfterSelChange(1,1,3,2) MouseMove(1,0,120,70)");
    EXPECT_TRUE(TimerRuns());
    DragTo(121, 71);
    EXPECT_EQ(Told(), "MouseMove(1,0,121,71)");
    DragTo(20, 5);
    EXPECT_EQ(Selection(), "1,1:1,1") << "never into the fixed cells";
    DragTo(120, 50);
    Told();
    Release(120, 50);
    EXPECT_EQ(Told(), "MouseUp(1,0,120,50) Click");
    EXPECT_FALSE(TimerRuns());
    EXPECT_EQ(Selection(), "1,1:2,2");
}

TEST_F(DragSelection, MovesTheCursorWhereNothingMayBeSelected)
{
    SetOption(grid, OptionAllowSelection, false);
    Press(70, 30);
    DragTo(120, 70);
    EXPECT_EQ(Selection(), "3,2:3,2");
    Release(120, 70);
}

TEST_F(DragSelection, GoesOnScrollingWithTheTimer)
{
    Press(120, 150);
    DragTo(120, 250);
    EXPECT_EQ(grid.RowSel, 12) << "rows go on below the window";
    EXPECT_GT(grid.TopRow, 1);
    DragTo(120, 9000);
    EXPECT_EQ(grid.RowSel, 30) << "up to the last one";
    Release(120, 190);
    Press(120, 30);
    int top = grid.TopRow;
    Told();
    for (int tick = 0; tick < 3; ++tick)
        Tick(120, 5);
    EXPECT_EQ(grid.TopRow, top - 3) << "one row each time";
    Tick(120, -3000);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(Told("LeaveCell").find("MouseMove"), std::string::npos) << "a tick is no move";
    Release(120, 190);
}

TEST_F(DragSelection, TimerTakesThePointerWhereItIs)
{
    POINT pointer = {}; // the window goes to the pointer, so that nobody is told of a move
    ASSERT_TRUE(GetCursorPos(&pointer));
    SetWindowPos(grid.Window, nullptr, pointer.x - 170, pointer.y - 110, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Press(70, 30);
    SendMessageW(grid.Window, WM_TIMER, DragTimer + 1, 0);
    EXPECT_EQ(Selection(), "1,1:1,1") << "there is one timer";
    SendMessageW(grid.Window, WM_TIMER, DragTimer, 0);
    EXPECT_EQ(Selection(), "1,1:5,3");
    Release(70, 30);
}

TEST_F(DragSelection, StepsOverHiddenRowsOnTheWayBack)
{
    for (int row : {9, 10, 11})
        HideRow(row);
    RecalculateLayout(grid);
    SendMessageW(grid.Window, WM_VSCROLL, SB_LINEDOWN, 0);
    while (grid.TopRow < 12)
        SendMessageW(grid.Window, WM_VSCROLL, SB_LINEDOWN, 0);
    ASSERT_EQ(grid.TopRow, 12);
    Press(120, 90);
    Tick(120, 15);
    EXPECT_EQ(grid.RowSel, 8);
    EXPECT_EQ(grid.TopRow, 8);
    Release(120, 90);
}

TEST_F(DragSelection, StaysInTheFrozenPartWhereItBegan)
{
    ASSERT_EQ(S_OK, SetFrozenRows(grid, 3));
    for (int line = 0; line < 4; ++line)
        SendMessageW(grid.Window, WM_VSCROLL, SB_LINEDOWN, 0);
    ASSERT_EQ(grid.TopRow, 8);
    Press(120, 30);
    DragTo(120, 70);
    EXPECT_EQ(Selection(), "1,2:3,2");
    EXPECT_EQ(grid.TopRow, 8);
    Release(120, 70);
    Press(120, 150);
    DragTo(120, 70);
    EXPECT_LT(grid.TopRow, 8) << "one that began below it scrolls back";
    Release(120, 70);
}

TEST_F(DragSelection, WholeRowsAndColumnsStayWhole)
{
    Press(10, 30);
    DragTo(120, 70);
    EXPECT_EQ(Selection(), "1,1:3,4");
    EXPECT_EQ(grid.LeftCol, 1);
    Release(120, 70);
    Press(70, 10);
    DragTo(170, 70);
    EXPECT_EQ(Selection(), "1,1:30,3");
    EXPECT_EQ(grid.TopRow, 1) << "only columns are scrolled to";
    Release(170, 70);
    Press(10, 10);
    DragTo(120, 70);
    EXPECT_EQ(Selection(), "1,1:30,4") << "everything stays everything";
    EXPECT_FALSE(TimerRuns());
    Release(120, 70);
}

TEST_F(DragSelection, OverAListTakesEffectAtTheRelease)
{
    Mode(lorvSelectionListBox);
    Press(120, 30);
    DragTo(120, 70);
    EXPECT_EQ(ListRows(), "1 ");
    EXPECT_TRUE(IsRowSelected(grid, 3)) << "it shows already";
    Release(120, 70);
    EXPECT_EQ(ListRows(), "1 2 3 ");
    Press(120, 50, VK_CONTROL); // takes row 2 away
    DragTo(120, 70);
    EXPECT_FALSE(IsRowSelected(grid, 3));
    Release(120, 70);
    EXPECT_EQ(ListRows(), "1 ");
    ReportWaits();
}

TEST_F(DragSelection, ReleaseBringsTheFarCornerIntoView)
{
    const struct {
        int Mode;
        bool Scrolls;
    } cases[] = {{lorvSelectionFree, true}, {lorvSelectionByRow, true}, {lorvSelectionByColumn, false}};
    for (const auto& each : cases) {
        Mode(lorvSelectionFree);
        grid.TopRow = 1;
        Mode(each.Mode);
        Press(120, 30);
        grid.RowSel = 29; // out of view
        Release(120, 30);
        EXPECT_EQ(grid.TopRow > 1, each.Scrolls) << each.Mode;
    }
}

TEST_F(DragSelection, EndsWhenTheButtonWasReleasedElsewhere)
{
    Press(70, 30);
    DragTo(120, 70);
    ASSERT_TRUE(TimerRuns());
    HoldKeys({});
    Tick(170, 110);
    EXPECT_FALSE(TimerRuns());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(grid.PaintMode & PaintMouseHeld);
    EXPECT_EQ(Selection(), "1,1:3,2");
    Press(70, 30);
    HoldKeys({});
    Hover(170, 110);
    EXPECT_EQ(Selection(), "1,1:1,1") << "a move notices it as well";
}

TEST_F(DragSelection, EndsWithTheCapture)
{
    Press(70, 30);
    DragTo(120, 70);
    SendMessageW(grid.Window, WM_CANCELMODE, 0, 0);
    EXPECT_FALSE(TimerRuns());
    EXPECT_EQ(GetCapture(), nullptr);
    Press(70, 30);
    DragTo(120, 70);
    ReleaseCapture();
    EXPECT_FALSE(TimerRuns());
    EXPECT_FALSE(grid.PaintMode & PaintMouseHeld);
    Press(70, 30);
    DragTo(120, 70);
    SetFocus(nullptr);
    EXPECT_FALSE(TimerRuns());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DragSelection, EndsWithTheWindow)
{
    Press(70, 30);
    DragTo(120, 70);
    ASSERT_TRUE(TimerRuns());
    DestroyWindow(grid.Window);
    EXPECT_EQ(grid.Window, nullptr);
}
