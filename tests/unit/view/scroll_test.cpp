#include "view/scroll.h"

#include "support/grid_window.h"
#include "support/pixels.h"
#include "view/messages.h"
#include "view/metrics.h"

namespace
{
using Scrolling = GridInWindow;

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

TEST_F(Scrolling, NegativePositionKeepsItsLowWord)
{
    ScrollVertical(grid, ScrollDirect, static_cast<int>(0xFFFF0007), false);
    EXPECT_EQ(grid.TopRow, 7);
    ScrollVertical(grid, ScrollDirect, -1, false);
    EXPECT_EQ(grid.TopRow, 22) << "a row far down, not one before the first";
}

TEST_F(Scrolling, LineUpCountsFromTheRowShownAtOrAboveTheFirst)
{
    for (int row : {5, 6})
        HideRow(row);
    RecalculateLayout(grid);
    grid.TopRow = 6;
    ScrollVertical(grid, SB_LINEUP, 0, false);
    EXPECT_EQ(grid.TopRow, 3) << "row 4 is the one at or above it";
}

TEST_F(Scrolling, LineUpEndsAtTheFrozenPart)
{
    for (int row = 0; row < 5; ++row)
        HideRow(row);
    RecalculateLayout(grid);
    grid.TopRow = 5;
    ScrollVertical(grid, SB_LINEUP, 0, false);
    EXPECT_EQ(grid.TopRow, 1) << "though nothing shows there";
}

TEST_F(Scrolling, LineDownStopsAtTheLastRowButOne)
{
    for (int row = 1; row < grid.Rows; ++row)
        grid.RowTable[row].Height = 400;
    HideRow(29);
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, 30);
    grid.TopRow = 28;
    ScrollVertical(grid, SB_LINEDOWN, 0, false);
    EXPECT_EQ(grid.TopRow, 29) << "hidden, but the walk ends here";
    ScrollVertical(grid, SB_LINEDOWN, 0, false);
    EXPECT_EQ(grid.TopRow, 30);
}

TEST_F(Scrolling, PagesStopAtTheFrozenPartAndInsideItAtTheFixedOne)
{
    grid.FrozenRows = 4;
    RecalculateLayout(grid);
    EXPECT_EQ(PrevPageTop(grid, 7), 5) << "frozen rows are no target of a page";
    EXPECT_EQ(PrevPageTop(grid, 5), 5);
    EXPECT_EQ(PrevPageTop(grid, 4), 1) << "from within them they are";
    EXPECT_EQ(PrevPageTop(grid, 1), 1);
    EXPECT_EQ(NextPageTop(grid, 5), 5 + (Height - 5 * RowHeight) / RowHeight - 1);
    EXPECT_EQ(NextPageTop(grid, 2), 2 + (Height - RowHeight) / RowHeight - 1);
}

TEST_F(Scrolling, PageUpPassesARowTallerThanThePage)
{
    grid.RowTable[10].Height = 500;
    EXPECT_EQ(PrevPageTop(grid, 10), 9);
    EXPECT_EQ(PrevPageTop(grid, 12), 10);
}

TEST_F(Scrolling, PageLeftStopsAtAWideColumnButMovesALine)
{
    Resize(5, 21);
    grid.ColTable[4].Width = 500;
    RecalculateLayout(grid);
    EXPECT_EQ(PrevPageLeft(grid, 4), 4);
    grid.LeftCol = 4;
    ScrollHorizontal(grid, SB_PAGELEFT, 0, false);
    EXPECT_EQ(grid.LeftCol, 3);
}

TEST_F(Scrolling, FirstColumnThatShowsAnotherIsTheSameFromEitherSide)
{
    Resize(5, 21);
    grid.ColTable[12].Width = 500;
    RecalculateLayout(grid);
    grid.LeftCol = 4;
    for (int col = -1; col < grid.Cols; ++col) {
        SetOption(grid, OptionRightToLeft, false);
        int left = LeftForCol(grid, col);
        SetOption(grid, OptionRightToLeft, true);
        EXPECT_EQ(LeftForCol(grid, col), left) << col;
    }
    EXPECT_EQ(LeftForCol(grid, 2), 2);
    EXPECT_EQ(LeftForCol(grid, 8), 4) << "it ends at the edge";
    EXPECT_EQ(LeftForCol(grid, 9), 6);
    EXPECT_EQ(LeftForCol(grid, 12), 12) << "wider than the window";
}

TEST_F(Scrolling, CellIsInViewUpToTheEdgeItself)
{
    EXPECT_TRUE(IsCellVisible(grid, 10, 4)) << "it begins where the window ends";
    EXPECT_FALSE(IsCellVisible(grid, 11, 4));
    HideRow(3);
    EXPECT_TRUE(IsCellVisible(grid, 3, -1)) << "hidden, between rows in view";
    grid.TopRow = 5;
    EXPECT_FALSE(IsCellVisible(grid, 4, -1));
    EXPECT_TRUE(IsCellVisible(grid, 0, -1));
    EXPECT_TRUE(IsCellVisible(grid, -1, -1));
}

TEST_F(Scrolling, FrozenRowsBelowTheEdgeAreNotInView)
{
    grid.FrozenRows = 20, grid.TopRow = 21;
    EXPECT_TRUE(IsCellVisible(grid, 10, -1));
    EXPECT_FALSE(IsCellVisible(grid, 11, -1));
    EXPECT_FALSE(IsCellVisible(grid, 21, -1));
}

TEST_F(Scrolling, ThumbOfAMirroredBarIsReadFromItsOtherEnd)
{
    Resize(5, 21);
    SetOption(grid, OptionRightToLeft, true);
    RecalculateLayout(grid);
    for (int position : {100, 149, 150}) {
        SCROLLINFO info = {sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, 50 - position - 250 + 1050, 0};
        SetScrollInfo(grid.Window, SB_HORZ, &info, FALSE);
        ScrollHorizontal(grid, SB_THUMBPOSITION, 0, false);
        EXPECT_EQ(grid.LeftCol, position / 50) << position;
    }
}

TEST_F(Scrolling, FrozenColumnsAreLeftOutAtTheSideWhereTheyStand)
{
    Resize(5, 21);
    grid.FrozenCols = 1;
    for (bool mirrored : {false, true}) {
        SetOption(grid, OptionRightToLeft, mirrored);
        grid.LeftCol = 2;
        RecalculateLayout(grid);
        Settle();
        ScrollHorizontal(grid, ScrollDirect, 3, false);
        RECT client = ClientRectOf(grid), invalid = Invalid();
        EXPECT_EQ(invalid.left, mirrored ? 0 : 100);
        EXPECT_EQ(invalid.right, mirrored ? client.right - 100 : client.right);
    }
}

TEST_F(Scrolling, AfterScrollIsForTheAxisThatMoved)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeScrollId)
            grid.MaxTopRow = grid.TopRow, grid.LeftCol = 2;
    };
    ScrollVertical(grid, ScrollDirect, 5, true);
    EXPECT_EQ(Fired(), "BeforeScroll(1,1,5,1)");
}

TEST_F(Scrolling, BitsAreMovedOnlyWhereCellsLookAlikeInEveryPlace)
{
    auto picture = MakePicture(4, 4, 0);
    struct {
        int MergeCells, MergeCellsFixed, Redraw;
        bool WallPaper;
        bool Moved;
    } const cases[] = {{0, 0, lorvRDDirect, false, true},
                       {0, 0, lorvRDBuffered, false, true},
                       {lorvMergeFree, 0, lorvRDDirect, false, false},
                       {0, lorvMergeFree, lorvRDDirect, false, false},
                       {0, 0, lorvRDNone, false, false},
                       {0, 0, lorvRDDirect, true, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        grid.TopRow = 1;
        grid.MergeCells = static_cast<int16_t>(c.MergeCells);
        grid.MergeCellsFixed = static_cast<int16_t>(c.MergeCellsFixed);
        grid.Redraw = c.Redraw;
        grid.WallPaper = c.WallPaper ? picture.Get() : nullptr;
        Settle();
        HDC dc = GetDC(grid.Window);
        RECT old = {100, 60, 110, 80}, fresh = {100, 20, 110, 40};
        FillRect(dc, &fresh, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        FillRect(dc, &old, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        ScrollVertical(grid, ScrollDirect, 3, true);
        EXPECT_EQ(GetPixel(dc, 105, 30) == RGB(0, 0, 0), c.Moved);
        ReleaseDC(grid.Window, dc);
        EXPECT_EQ(Invalid().top, RowHeight) << "all is painted anew";
        EXPECT_EQ(Invalid().bottom, Height - (Height - ClientRectOf(grid).bottom));
    }
    grid.WallPaper = nullptr;
}
} // namespace
