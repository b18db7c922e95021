#include "support/grid_window.h"

namespace
{
using Layout = GridInWindow;

int BarWidth()
{
    return GetSystemMetrics(SM_CXHSCROLL); // crosswise on purpose
}
int BarHeight()
{
    return GetSystemMetrics(SM_CYVSCROLL);
}

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

TEST_F(Layout, RoomOfABarThatGoesIsThereForTheOtherAxis)
{
    Resize(2, 6); // 300 pixels wide, which just fits without a vertical bar
    grid.RowTable[1].Height = 400;
    RecalculateLayout(grid);
    EXPECT_EQ(Bar(SB_VERT).nMax, 0);
    EXPECT_EQ(grid.MaxLeftCol, 1);
    EXPECT_EQ(Bar(SB_HORZ).nMax, 0) << "it was on only for the vertical bar's sake";
}

TEST_F(Layout, RowsAreNotMeasuredAgainWhenTheHorizontalBarGoes)
{
    Resize(31, 2);
    grid.ColTable[1].Width = 500; // one scrollable column, wider than the window
    RecalculateLayout(grid);
    EXPECT_EQ(Bar(SB_HORZ).nMax, 0);
    EXPECT_EQ(grid.MaxTopRow, 31 - (Height - BarHeight() - RowHeight) / RowHeight);
    EXPECT_EQ(Bar(SB_VERT).nPage, static_cast<UINT>(Height - RowHeight)) << "the page is, though";
}

TEST_F(Layout, OnlyThePositionThatIsPastTheLastMoves)
{
    grid.TopRow = 30, grid.LeftCol = 0;
    RecalculateLayout(grid);
    EXPECT_EQ(Fired(), "BeforeScroll(30,0,22,0) AfterScroll(30,0,22,0)");
    EXPECT_EQ(grid.LeftCol, 0);
}

TEST_F(Layout, SheetWithoutScrollablePartEndsAtItsFixedPart)
{
    grid.FixedRows = 31, grid.FixedCols = 5;
    grid.TopRow = 31, grid.LeftCol = 5;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, 31);
    EXPECT_EQ(grid.MaxLeftCol, 5);
    EXPECT_EQ(Bar(SB_VERT).nMax, 0);
    EXPECT_EQ(Fired(), "");
}
} // namespace
