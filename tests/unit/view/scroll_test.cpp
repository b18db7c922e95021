#include "view/scroll.h"

#include "support/grid_window.h"
#include "view/messages.h"

namespace
{
using Layout = GridInWindow;
using Scrolling = GridInWindow;

int BarWidth()
{
    return GetSystemMetrics(SM_CXHSCROLL); // crosswise on purpose
}
int BarHeight()
{
    return GetSystemMetrics(SM_CYVSCROLL);
}

// Layout

TEST_F(Layout, VerticalBarCountsPixelsFromTheFrozenHeight)
{
    EXPECT_EQ(grid.MaxTopRow, 22);
    SCROLLINFO bar = Bar(SB_VERT);
    EXPECT_EQ(bar.nMin, 20);
    EXPECT_EQ(bar.nMax, 620);
    EXPECT_EQ(bar.nPage, 180u);
    EXPECT_EQ(bar.nPos, 20);
    EXPECT_EQ(Bar(SB_HORZ).nMax, 0);
    EXPECT_EQ(grid.MaxLeftCol, 1);
}

TEST_F(Layout, IsTheSameWhenItIsMadeAgain)
{
    for (int i = 0; i < 3; ++i)
        RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, 22);
    EXPECT_EQ(Bar(SB_VERT).nPage, 180u);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Layout, EachBarTakesItsRoomByTheMetricOfTheOther)
{
    Resize(31, 21);
    EXPECT_EQ(Bar(SB_VERT).nPage, static_cast<UINT>(Height - BarHeight() - RowHeight));
    EXPECT_EQ(Bar(SB_HORZ).nPage, static_cast<UINT>(Width - BarWidth() - ColWidth));
    EXPECT_EQ(grid.MaxTopRow, 31 - (Height - BarHeight() - RowHeight) / RowHeight);
    EXPECT_EQ(grid.MaxLeftCol, 21 - (Width - BarWidth() - ColWidth) / ColWidth);
}

TEST_F(Layout, HorizontalBarCanForceTheVerticalOne)
{
    Resize(10, 21); // 200 pixels: the rows just fit without a horizontal bar
    EXPECT_EQ(Bar(SB_VERT).nMax, 200);
    EXPECT_EQ(Bar(SB_HORZ).nPage, static_cast<UINT>(Width - BarWidth() - ColWidth));
}

TEST_F(Layout, BarsAppearOnlyWhereScrollBarsAllows)
{
    struct {
        int ScrollBars;
        bool Vertical, Horizontal;
    } const cases[] = {{lorvScrollBarNone, false, false},
                       {lorvScrollBarHorizontal, false, true},
                       {lorvScrollBarVertical, true, false},
                       {lorvScrollBarBoth, true, true}};
    for (const auto& c : cases) {
        grid.ScrollBars = static_cast<int16_t>(c.ScrollBars);
        Resize(31, 21);
        EXPECT_EQ(Bar(SB_VERT).nMax > 0, c.Vertical) << c.ScrollBars;
        EXPECT_EQ(Bar(SB_HORZ).nMax > 0, c.Horizontal) << c.ScrollBars;
    }
}

TEST_F(Layout, BarThatIsOffIsHiddenHoweverItCameThere)
{
    RecalculateLayout(grid);
    LONG_PTR style = GetWindowLongPtrW(grid.Window, GWL_STYLE);
    SetWindowLongPtrW(grid.Window, GWL_STYLE, style | WS_HSCROLL);
    RecalculateLayout(grid); // with the range that the bar has
    EXPECT_FALSE(GetWindowLongPtrW(grid.Window, GWL_STYLE) & WS_HSCROLL);
}

TEST_F(Layout, BarThatCouldMoveNothingGoes)
{
    Resize(2, 5);
    grid.RowTable[1].Height = 400; // one scrollable row, taller than the window
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, 1);
    EXPECT_EQ(Bar(SB_VERT).nMax, 0);
}

TEST_F(Layout, SheetThatFitsStartsAtTheFrozenEnd)
{
    grid.TopRow = 12;
    Resize(6, 5);
    EXPECT_EQ(grid.MaxTopRow, 1);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(Bar(SB_VERT).nMax, 0);
}

TEST_F(Layout, PositionPastTheLastComesBackWithEvents)
{
    grid.TopRow = 30;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.TopRow, 22);
    EXPECT_EQ(Fired(), "BeforeScroll(30,1,22,1) AfterScroll(30,1,22,1)");
    EXPECT_EQ(Bar(SB_VERT).nPos, 620 - 180 + 1) << "the system keeps the thumb within the page";
}

TEST_F(Layout, RefusedPositionStaysWithTheNewRange)
{
    grid.TopRow = 30;
    refuse = [](DISPID id) { return id == BeforeScrollId; };
    grid.RowTable[1].Height = 40;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.TopRow, 30);
    EXPECT_EQ(Bar(SB_VERT).nMax, 640);
    EXPECT_EQ(Fired(), "BeforeScroll(30,1,22,1)");
    refuse = nullptr;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.TopRow, 22) << "the guard of layouts is off again";
}

TEST_F(Layout, IsNotMadeWithoutRedrawOrWindowOrInADesigner)
{
    grid.RowTable[1].Height = 40;
    grid.Redraw = lorvRDNone;
    RecalculateLayout(grid);
    EXPECT_EQ(Bar(SB_VERT).nMax, 620);
    grid.Redraw = lorvRDDirect;
    grid.DesignModeCache = 1;
    RecalculateLayout(grid);
    EXPECT_EQ(Bar(SB_VERT).nMax, 620);
    grid.DesignModeCache = 0;
    HWND window = std::exchange(grid.Window, nullptr);
    RecalculateLayout(grid);
    grid.Window = window;
    EXPECT_EQ(Bar(SB_VERT).nMax, 620);
    RecalculateLayout(grid);
    EXPECT_EQ(Bar(SB_VERT).nMax, 640);
}

TEST_F(Layout, HandlersOfScrollEventsFindTheLayoutOfEveryGridLeftAlone)
{
    Grid other;
    other.Window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    ResizeBoth(other, 50, 2);
    other.MaxTopRow = -7;
    events.On = [&](DISPID, DISPPARAMS&) {
        RecalculateLayout(grid);
        RecalculateLayout(other);
    };
    grid.TopRow = 30;
    RecalculateLayout(grid);
    EXPECT_EQ(other.MaxTopRow, -7);
    EXPECT_EQ(Fired(), "BeforeScroll(30,1,22,1) AfterScroll(30,1,22,1)");
    RecalculateLayout(other);
    EXPECT_GT(other.MaxTopRow, 0);
    DestroyWindow(std::exchange(other.Window, nullptr));
}

TEST_F(Layout, RowsThatAHandlerTakesAwayAreNotScrolledTo)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeScrollId)
            ResizeRows(grid, 3);
    };
    grid.TopRow = 30;
    RecalculateLayout(grid);
    EXPECT_LE(grid.TopRow, 3);
}

TEST_F(Layout, WindowMayDieInAHandler)
{
    events.On = [&](DISPID, DISPPARAMS&) {
        if (HWND window = std::exchange(grid.Window, nullptr))
            DestroyWindow(window);
    };
    grid.TopRow = 30;
    RecalculateLayout(grid);
    EXPECT_EQ(Fired(), "BeforeScroll(30,1,22,1)");
}

// Scroll codes

struct CodeCase {
    int Code, From, To;
};

TEST_F(Scrolling, CodesLeadToTheirRows)
{
    SetOption(grid, OptionScrollTrack, false);
    const CodeCase cases[] = {
        {SB_LINEUP, 5, 4},   {SB_LINEUP, 1, 1},   {SB_LINEDOWN, 5, 6},  {SB_LINEDOWN, 22, 22},
        {SB_PAGEDOWN, 1, 9}, {SB_PAGEUP, 22, 14}, {SB_PAGEUP, 2, 1},    {SB_PAGEDOWN, 20, 22},
        {SB_TOP, 15, 1},     {SB_BOTTOM, 3, 22},  {SB_ENDSCROLL, 5, 5}, {SB_THUMBTRACK, 5, 5},
        {99, 5, 5},
    };
    for (const CodeCase& c : cases) {
        grid.TopRow = c.From;
        ScrollVertical(grid, c.Code, 0, false);
        EXPECT_EQ(grid.TopRow, c.To) << "code " << c.Code << " from " << c.From;
    }
}

TEST_F(Scrolling, LinesPassHiddenRows)
{
    for (int row : {5, 6, 8})
        HideRow(row);
    RecalculateLayout(grid);
    grid.TopRow = 4;
    ScrollVertical(grid, SB_LINEDOWN, 0, false);
    EXPECT_EQ(grid.TopRow, 7);
    ScrollVertical(grid, SB_LINEDOWN, 0, false);
    EXPECT_EQ(grid.TopRow, 9);
    ScrollVertical(grid, SB_LINEUP, 0, false);
    EXPECT_EQ(grid.TopRow, 7);
    grid.TopRow = 6; // hidden: the row on screen first is 7, the one before it is 4
    ScrollVertical(grid, SB_LINEDOWN, 0, false);
    EXPECT_EQ(grid.TopRow, 9);
}

TEST_F(Scrolling, DirectCodeNamesTheRowAndPassesHiddenOnes)
{
    HideRow(10);
    ScrollVertical(grid, ScrollDirect, 10, false);
    EXPECT_EQ(grid.TopRow, 11);
    ScrollVertical(grid, ScrollDirect, 0, false);
    EXPECT_EQ(grid.TopRow, 1);
    ScrollVertical(grid, ScrollDirect, 1000, false);
    EXPECT_EQ(grid.TopRow, grid.MaxTopRow);
}

TEST_F(Scrolling, EventsNameOldAndNewPositions)
{
    ScrollVertical(grid, ScrollDirect, 5, false);
    EXPECT_EQ(Fired(), "BeforeScroll(1,1,5,1) AfterScroll(1,1,5,1)");
    ScrollVertical(grid, ScrollDirect, 5, false);
    EXPECT_EQ(Fired(), "") << "nothing moves";
}

TEST_F(Scrolling, RefusedScrollLeavesPositionAndBar)
{
    int position = Bar(SB_VERT).nPos;
    refuse = [](DISPID id) { return id == BeforeScrollId; };
    ScrollVertical(grid, ScrollDirect, 5, true);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(Bar(SB_VERT).nPos, position);
    EXPECT_EQ(Fired(), "BeforeScroll(1,1,5,1)");
}

TEST_F(Scrolling, BarFollows)
{
    ScrollVertical(grid, ScrollDirect, 5, false);
    EXPECT_EQ(Bar(SB_VERT).nPos, 100);
    ScrollVertical(grid, SB_LINEDOWN, 0, false);
    EXPECT_EQ(Bar(SB_VERT).nPos, 120);
    ScrollVertical(grid, SB_LINEUP, 0, false);
    EXPECT_EQ(Bar(SB_VERT).nPos, 100);
    ScrollVertical(grid, SB_TOP, 0, false);
    EXPECT_EQ(Bar(SB_VERT).nPos, 20);
}

TEST_F(Scrolling, ThumbStandsForTheRowUnderIt)
{
    struct {
        int Position, Row;
    } const cases[] = {{99, 4}, {100, 5}, {119, 5}, {20, 1}, {441, 22}};
    for (const auto& c : cases) {
        grid.TopRow = 10;
        SCROLLINFO info = {sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, c.Position, 0};
        SetScrollInfo(grid.Window, SB_VERT, &info, FALSE);
        ScrollVertical(grid, SB_THUMBPOSITION, 0, false);
        EXPECT_EQ(grid.TopRow, c.Row) << c.Position;
    }
}

TEST_F(Scrolling, DraggedThumbScrollsAtOnceOnlyWithScrollTrack)
{
    for (bool track : {false, true}) {
        grid.TopRow = 10;
        SetOption(grid, OptionScrollTrack, track);
        SCROLLINFO info = {sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, 100, 0};
        SetScrollInfo(grid.Window, SB_VERT, &info, FALSE);
        ScrollVertical(grid, SB_THUMBTRACK, 0, false);
        EXPECT_EQ(grid.TopRow, track ? 5 : 10);
    }
}

TEST_F(Scrolling, WithoutABarOnlyForceScrolls)
{
    struct {
        int ScrollBars;
        bool Rows, Cols;
    } const cases[] = {{0, false, false}, {1, false, true}, {2, true, false}, {3, true, true}};
    Resize(31, 21);
    for (const auto& c : cases) {
        grid.TopRow = grid.LeftCol = 1;
        grid.ScrollBars = static_cast<int16_t>(c.ScrollBars);
        ScrollVertical(grid, ScrollDirect, 3, false);
        ScrollHorizontal(grid, ScrollDirect, 3, false);
        EXPECT_EQ(grid.TopRow, c.Rows ? 3 : 1) << c.ScrollBars;
        EXPECT_EQ(grid.LeftCol, c.Cols ? 3 : 1) << c.ScrollBars;
        ScrollVertical(grid, ScrollDirect, 4, true);
        ScrollHorizontal(grid, ScrollDirect, 4, true);
        EXPECT_EQ(grid.TopRow, 4) << c.ScrollBars;
        EXPECT_EQ(grid.LeftCol, 4) << c.ScrollBars;
    }
}

TEST_F(Scrolling, SheetWithoutScrollableRowsStays)
{
    grid.FixedRows = 31;
    grid.TopRow = 31;
    ScrollVertical(grid, SB_TOP, 0, true);
    ScrollVertical(grid, ScrollDirect, 5, true);
    EXPECT_EQ(grid.TopRow, 31);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Scrolling, PageDownPassesARowTallerThanThePage)
{
    grid.RowTable[4].Height = 500;
    RecalculateLayout(grid);
    grid.TopRow = 4;
    ScrollVertical(grid, SB_PAGEDOWN, 0, false);
    EXPECT_EQ(grid.TopRow, 5);
}

TEST_F(Scrolling, TallRowIsShownFromItsTop)
{
    grid.RowTable[15].Height = 500;
    RecalculateLayout(grid);
    EXPECT_EQ(TopForRow(grid, 15), 15);
}

TEST_F(Scrolling, FirstRowThatShowsAnother)
{
    grid.TopRow = 5;
    EXPECT_EQ(TopForRow(grid, -1), 5);
    EXPECT_EQ(TopForRow(grid, 0), 5) << "fixed rows are always in view";
    EXPECT_EQ(TopForRow(grid, 3), 3);
    EXPECT_EQ(TopForRow(grid, 13), 5) << "the last row that fits wholly";
    EXPECT_EQ(TopForRow(grid, 14), 7) << "one more than is needed: the edge itself is no room";
}

TEST_F(Scrolling, FrozenRowsNeverScroll)
{
    grid.FrozenRows = 2;
    grid.TopRow = 8;
    EXPECT_EQ(TopForRow(grid, 2), 8);
    EXPECT_EQ(TopForRow(grid, 3), 3);
}

TEST_F(Scrolling, PagesOverlapByARow)
{
    EXPECT_EQ(NextPageTop(grid, 1), 9);
    EXPECT_EQ(PrevPageTop(grid, 22), 14);
    EXPECT_EQ(PrevPageTop(grid, 1), 1);
    EXPECT_EQ(NextPageTop(grid, 30), 30);
}

TEST_F(Scrolling, ColumnsScrollAsRowsDo)
{
    Resize(5, 21);
    EXPECT_EQ(grid.MaxLeftCol, 16);
    const CodeCase cases[] = {{SB_LINELEFT, 5, 4},  {SB_LINERIGHT, 5, 6}, {SB_PAGERIGHT, 1, 5},
                              {SB_PAGELEFT, 10, 6}, {SB_LEFT, 9, 1},      {SB_RIGHT, 2, 16}};
    for (const CodeCase& c : cases) {
        grid.LeftCol = c.From;
        ScrollHorizontal(grid, c.Code, 0, false);
        EXPECT_EQ(grid.LeftCol, c.To) << "code " << c.Code;
    }
    grid.LeftCol = 1;
    Settle();
    ScrollHorizontal(grid, ScrollDirect, 3, false);
    EXPECT_EQ(Fired(), "BeforeScroll(1,1,1,3) AfterScroll(1,1,1,3)");
}

TEST_F(Scrolling, PageRightStopsAtAWideColumnButMovesALine)
{
    Resize(5, 21);
    grid.ColTable[4].Width = 500;
    RecalculateLayout(grid);
    EXPECT_EQ(NextPageLeft(grid, 4), 4);
    grid.LeftCol = 4;
    ScrollHorizontal(grid, SB_PAGERIGHT, 0, false);
    EXPECT_EQ(grid.LeftCol, 5);
}

TEST_F(Scrolling, CodesSwapWhenColumnsRunFromTheRight)
{
    Resize(5, 21);
    SetOption(grid, OptionRightToLeft, true);
    const CodeCase cases[] = {
        {SB_LINELEFT, 5, 6}, {SB_LINERIGHT, 5, 4}, {SB_PAGELEFT, 1, 5}, {SB_PAGERIGHT, 10, 6}};
    for (const CodeCase& c : cases) {
        grid.LeftCol = c.From;
        ScrollHorizontal(grid, c.Code, 0, false);
        EXPECT_EQ(grid.LeftCol, c.To) << "code " << c.Code;
    }
}

TEST_F(Scrolling, MirroredBarStandsAtItsOtherEnd)
{
    Resize(5, 21);
    SetOption(grid, OptionRightToLeft, true);
    RecalculateLayout(grid);
    EXPECT_EQ(Bar(SB_HORZ).nPos, 1050 - 250) << "at the start";
    ScrollHorizontal(grid, ScrollDirect, 16, false);
    EXPECT_EQ(Bar(SB_HORZ).nPos, 50) << "at the end";
    ScrollHorizontal(grid, ScrollDirect, 3, false);
    EXPECT_EQ(Bar(SB_HORZ).nPos, 50 - 150 - 250 + 1050);
}

TEST_F(Scrolling, MessagesScroll)
{
    LRESULT result = 0;
    EXPECT_TRUE(ProcessWindowMessage(grid, WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0), 0, result));
    EXPECT_EQ(grid.TopRow, 2);
    Resize(31, 21);
    EXPECT_TRUE(ProcessWindowMessage(grid, WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), 0, result));
    EXPECT_EQ(grid.LeftCol, 2);
}

TEST_F(Scrolling, MessagesFromInsideAScrollAreDropped)
{
    LRESULT result = 0;
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeScrollId)
            ProcessWindowMessage(grid, WM_VSCROLL, MAKEWPARAM(SB_BOTTOM, 0), 0, result);
    };
    ProcessWindowMessage(grid, WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0), 0, result);
    EXPECT_EQ(Fired(), "BeforeScroll(1,1,2,1) AfterScroll(1,1,2,1)");
}

TEST_F(Scrolling, ScrolledPartIsInvalidated)
{
    Settle();
    ScrollVertical(grid, ScrollDirect, 5, false);
    EXPECT_EQ(Invalid().top, RowHeight) << "the fixed rows stay as they are";
}

TEST_F(Scrolling, WindowMayDieBeforeTheScroll)
{
    events.On = [&](DISPID, DISPPARAMS&) {
        if (HWND window = std::exchange(grid.Window, nullptr))
            DestroyWindow(window);
    };
    ScrollVertical(grid, ScrollDirect, 5, true);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(Scrolling, RowsMayGoBeforeTheScroll)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeScrollId) {
            events.On = nullptr;
            ResizeRows(grid, 4);
        }
    };
    ScrollVertical(grid, ScrollDirect, 20, true);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(Scrolling, LastRowsInView)
{
    EXPECT_EQ(BottomRowOf(grid), 9) << "it ends at the edge";
    grid.RowTable[3].Height = 25;
    EXPECT_EQ(BottomRowOf(grid), 9) << "partly visible";
    HideRow(30);
    grid.TopRow = 28;
    EXPECT_EQ(BottomRowOf(grid), 29) << "hidden rows at the end do not count";
    EXPECT_EQ(RightColOf(grid), 4);
    Resize(1, 1);
    EXPECT_EQ(BottomRowOf(grid), 1) << "nothing in view: where the scroll position stands";
}
} // namespace
