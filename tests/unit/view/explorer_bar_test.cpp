// Headers that sort on a click and are dragged to other places, rows that are dragged, and the buttons of
// cells.

#include "core/events.h"
#include "support/mouse_grid.h"
#include "view/gap_mark.h"
#include "view/metrics.h"

namespace
{
constexpr DISPID BeforeSortId = 13, BeforeMoveColumnId = 15, BeforeMoveRowId = 44;
} // namespace

class ExplorerBarClicks : public GridUnderMouse
{
protected:
    ExplorerBarClicks()
    {
        Resize(6, 5);
        Write(2, {L"d", L"a", L"c", L"b", L"e"});
        grid.ExplorerBar = lorvExSortAndMove;
        Settle();
    }

    void Write(int col, std::initializer_list<const wchar_t*> texts)
    {
        int row = 1;
        for (const wchar_t* text : texts)
            SetCellText(grid, row++, col, text);
    }
    std::string Column(int col)
    {
        std::string text;
        for (int row = 1; row < grid.Rows; ++row) {
            const wchar_t* cell = GetCellText(grid, row, col);
            text += cell && *cell ? static_cast<char>(*cell) : '-';
        }
        return text;
    }
    // The first letters of the headers, which the columns bear with them.
    std::string Headers()
    {
        std::string text;
        for (int col = 0; col < grid.Cols; ++col) {
            const wchar_t* cell = GetCellText(grid, 0, col);
            text += cell && *cell ? static_cast<char>(*cell) : '-';
        }
        return text;
    }
    void NameHeaders()
    {
        const wchar_t* const names[] = {L"0", L"1", L"2", L"3", L"4"};
        for (int col = 0; col < grid.Cols; ++col)
            SetCellText(grid, 0, col, names[col]);
        Settle();
    }
    void ClickHeader(int x = 120) { Gesture(x, 10, {ReleaseAt(x, 10)}); }
    void SetLong(DISPPARAMS& parameters, LONG value) { *parameters.rgvarg[0].plVal = value; }
};

TEST_F(ExplorerBarClicks, SortTheColumnAndTurnItsOrderRound)
{
    ClickHeader();
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,10) BeforeSort(2,1) LeaveCell BeforeRowColChange(1,1,4,1) "
                      "BeforeSelChange(1,1,4,1) EnterCell RowColChange AfterRowColChange(1,1,4,1) SelChange "
                      "AfterSelChange(1,1,4,1) AfterSort(2,1)");
    EXPECT_EQ(Column(2), "abcde");
    EXPECT_EQ(grid.ColTable[2].ColSort, 1);
    EXPECT_EQ(grid.SortIndicatorCol, 2);
    EXPECT_EQ(Selection(), "4,1:4,1") << "the current row is found again";
    ClickHeader();
    EXPECT_EQ(Column(2), "edcba");
    EXPECT_EQ(grid.ColTable[2].ColSort, 2);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ExplorerBarClicks, ToggleEachKindOfOrder)
{
    const struct {
        int Before, After;
    } cases[] = {{0, 1}, {1, 2}, {2, 1}, {3, 4}, {4, 3}, {5, 6}, {6, 5}, {7, 8}, {8, 7}, {9, 1}, {10, 1}};
    for (const auto& each : cases) {
        grid.ColTable[2].ColSort = static_cast<int16_t>(each.Before);
        ClickHeader();
        EXPECT_EQ(grid.ColTable[2].ColSort, each.After) << each.Before;
    }
}

TEST_F(ExplorerBarClicks, HandlersChangeOrRefuseTheOrder)
{
    short wanted = 2;
    act = [&](DISPID id, DISPPARAMS& parameters) {
        if (id == BeforeSortId)
            *parameters.rgvarg[0].piVal = wanted;
    };
    ClickHeader();
    EXPECT_EQ(Column(2), "edcba");
    EXPECT_EQ(grid.ColTable[2].ColSort, 2);
    for (short refusal : {short{0}, short{11}, short{-1}}) {
        wanted = refusal;
        Told();
        ClickHeader();
        EXPECT_EQ(grid.ColTable[2].ColSort, 2);
        EXPECT_EQ(Told().find("AfterSort"), std::string::npos);
    }
}

TEST_F(ExplorerBarClicks, OnlyBitsOfSortingSort)
{
    const struct {
        int Bar;
        const char* Told;
    } cases[] = {
        {lorvExNone, "BeforeMouseDown(1,0,120,10) LeaveCell"},
        {lorvExMove, "BeforeMouseDown(1,0,120,10)"},
        {4, "BeforeMouseDown(1,0,120,10) BeforeSort(2,1)"},
        {lorvExSort, "BeforeMouseDown(1,0,120,10) BeforeSort(2,2)"},
        {lorvExMoveRows, "BeforeMouseDown(1,0,120,10) LeaveCell"},
    };
    for (const auto& each : cases) {
        grid.ExplorerBar = static_cast<int16_t>(each.Bar);
        ClickHeader();
        std::string told = Told();
        EXPECT_EQ(told.substr(0, std::string(each.Told).size()), each.Told) << each.Bar;
        if (each.Bar == lorvExMove)
            EXPECT_EQ(told, each.Told) << "no selection either";
        Release(120, 10);
        Told();
        DropMouseMessages();
    }
}

TEST_F(ExplorerBarClicks, NeedTheButtonHeld)
{
    HoldKeys({});
    Send(WM_LBUTTONDOWN, 120, 10);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,10)");
}

TEST_F(ExplorerBarClicks, ReleasedOutsideDoNothing)
{
    Gesture(120, 10, {MoveTo(120, 150), ReleaseAt(120, 150)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,10)");
    Gesture(120, 10, {MoveTo(120, 150), MoveTo(120, 10), ReleaseAt(120, 10)});
    EXPECT_NE(Told().find("AfterSort"), std::string::npos) << "the pointer came back";
    Gesture(120, 10, {Escape()});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,10)");
}

TEST_F(ExplorerBarClicks, LeaveFixedColumnsAndCellsAlone)
{
    Click(20, 10);
    EXPECT_EQ(Told().find("Sort"), std::string::npos);
    Click(120, 50);
    EXPECT_NE(Told().find("MouseDown(1,0,120,50)"), std::string::npos);
}

TEST_F(ExplorerBarClicks, FindARowWithoutCellsByItsData)
{
    Resize(1, 5);
    Resize(6, 5);
    Write(2, {L"d", L"a"});
    ASSERT_EQ(grid.RowTable[4].Cells, nullptr);
    VARIANT data = {};
    data.vt = VT_I4;
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.RowTable[4].RowData, data));
    MoveCursor(grid, 4, 1, 0);
    ClickHeader();
    EXPECT_EQ(grid.Row, 2) << "empty cells sort first";
}

TEST_F(ExplorerBarClicks, ListsKeepTheNumberOfTheCurrentRow)
{
    grid.SelectionMode = lorvSelectionListBox;
    ClickHeader();
    EXPECT_EQ(Selection(), "1,1:1,1");
    EXPECT_EQ(Column(2), "abcde");
}

TEST_F(ExplorerBarClicks, HighBitsLeaveBlanksAtTheEndsWhereTheyAre)
{
    Write(2, {L"", L"c", L"", L"b", L""});
    grid.ExplorerBar = static_cast<int16_t>(lorvExSort | 0x1000);
    grid.ColTable[2].ColSort = 1;
    ClickHeader();
    EXPECT_EQ(Column(2), "-cb--") << "only what lies between takes part";
    Write(2, {L"", L"c", L"", L"b", L""});
    grid.ExplorerBar = lorvExSort;
    grid.ColTable[2].ColSort = 1;
    ClickHeader();
    EXPECT_EQ(Column(2), "cb---");
}

TEST_F(ExplorerBarClicks, BoundGridsAreToldAndNotSorted)
{
    FakeSource source;
    grid.LorvDataSource = &source;
    ClickHeader();
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,10) BeforeSort(2,1)");
    EXPECT_EQ(grid.ColTable[2].ColSort, 1);
    grid.LorvDataSource = nullptr;
    EXPECT_EQ(Column(2), "dacbe");
}

class MovingColumns : public ExplorerBarClicks
{
protected:
    MovingColumns() { NameHeaders(); }
};

TEST_F(MovingColumns, DropsTheColumnAtTheGap)
{
    Gesture(70, 10, {MoveTo(84, 10), MoveTo(210, 10), ReleaseAt(210, 10)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,70,10) BeforeMoveColumn(1,4) AfterMoveColumn(1,4)");
    EXPECT_EQ(Headers(), "02341") << "the gap before column 4 is taken as the position";
    Gesture(210, 10, {MoveTo(60, 10), ReleaseAt(60, 10)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,210,10) BeforeMoveColumn(4,1) AfterMoveColumn(4,1)");
    EXPECT_EQ(Headers(), "01234");
}

TEST_F(MovingColumns, BehindTheLastColumnIsToldAsItIs)
{
    Gesture(70, 10, {MoveTo(245, 10), ReleaseAt(245, 10)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,70,10) BeforeMoveColumn(1,5) AfterMoveColumn(1,4)");
    EXPECT_EQ(Headers(), "02341");
}

TEST_F(MovingColumns, NeedsMoreThanThirteenPixelsInsideTheHeader)
{
    Gesture(70, 10, {MoveTo(83, 10), ReleaseAt(83, 10)});
    EXPECT_NE(Told().find("BeforeSort(1,1)"), std::string::npos) << "13 pixels are a click";
    Gesture(70, 10, {MoveTo(84, 10), ReleaseAt(84, 10)});
    EXPECT_NE(Told().find("BeforeMoveColumn(1,2)"), std::string::npos);
    Gesture(70, 10, {MoveTo(170, 60), ReleaseAt(170, 60)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,70,10)") << "the pointer left the headers";
    grid.ExplorerBar = lorvExSort;
    Gesture(70, 10, {MoveTo(170, 10), ReleaseAt(170, 10)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,70,10)") << "columns may not be moved";
}

TEST_F(MovingColumns, HandlersChooseThePosition)
{
    LONG position = 1;
    act = [&](DISPID id, DISPPARAMS& parameters) {
        if (id == BeforeMoveColumnId)
            SetLong(parameters, position);
    };
    Gesture(70, 10, {MoveTo(210, 10), ReleaseAt(210, 10)});
    EXPECT_EQ(Headers(), "01234") << "its own position moves nothing";
    EXPECT_NE(Told().find("AfterMoveColumn(1,1)"), std::string::npos);
    position = -7;
    Gesture(170, 10, {MoveTo(210, 10), ReleaseAt(210, 10)});
    EXPECT_EQ(Headers(), "03124") << "fixed columns stay where they are";
    position = 99;
    Gesture(70, 10, {MoveTo(110, 10), ReleaseAt(110, 10)});
    EXPECT_EQ(Headers(), "01243");
}

TEST_F(MovingColumns, EscapeLeavesTheColumns)
{
    Gesture(70, 10, {MoveTo(210, 10), Escape()});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,70,10)");
    EXPECT_EQ(Headers(), "01234");
    Release(210, 10);
    EXPECT_EQ(Told(), "");
}

TEST_F(MovingColumns, ScrollsAtTheEndsOfTheSheet)
{
    for (int col = 1; col < 5; ++col)
        grid.ColTable[col].Width = 150;
    RecalculateLayout(grid);
    Settle();
    int right = 300;
    Gesture(120, 10, {MoveTo(right + 20, 10), MoveTo(180, 10), ReleaseAt(180, 10)});
    EXPECT_EQ(grid.LeftCol, 1) << "the current cell is shown in the end";
    EXPECT_EQ(Told(),
              "BeforeMouseDown(1,0,120,10) BeforeScroll(1,1,1,2) AfterScroll(1,1,1,2) "
              "BeforeMoveColumn(1,3) BeforeScroll(1,2,1,1) AfterScroll(1,2,1,1) AfterMoveColumn(1,3)");
}

TEST_F(MovingColumns, MirroredSheetsScrollOnAtTheLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    for (int col = 1; col < 5; ++col)
        grid.ColTable[col].Width = 150;
    RecalculateLayout(grid);
    Settle();
    int right = ClientRectOf(grid).right;
    Gesture(right - 120, 10, {MoveTo(-20, 10), Escape()});
    EXPECT_EQ(grid.LeftCol, 2);
    Gesture(right - 120, 10, {MoveTo(right - 20, 10), Escape()});
    EXPECT_EQ(grid.LeftCol, 1);
}

TEST_F(MovingColumns, MirroredGapsCountFromTheRight)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = 300;
    RECT client = {};
    GetClientRect(grid.Window, &client);
    right = client.right;
    Gesture(right - 70, 10, {MoveTo(right - 210, 10), ReleaseAt(right - 210, 10)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0," + std::to_string(right - 70) +
                          ",10) BeforeMoveColumn(1,4) AfterMoveColumn(1,4)");
}

// What stands on the screen while a gesture waits for its next message.
namespace
{
class Looks
{
public:
    // After each look the next message is sent. The last one has to end the gesture.
    Looks(HWND window, std::initializer_list<Queued> messages, std::initializer_list<POINT> points)
    {
        shared = {window, messages, points, {}};
        timer_ = SetTimer(nullptr, 0, 10, Look);
    }
    ~Looks() { KillTimer(nullptr, timer_); }

    // The colour that the point had at this look, both from 0.
    static COLORREF At(size_t look, size_t point) { return shared.Colours.at(look).at(point); }
    static size_t Count() { return shared.Colours.size(); }
    static std::vector<COLORREF> Now(HWND window, const std::vector<POINT>& points)
    {
        HDC dc = GetDC(window);
        std::vector<COLORREF> colours;
        for (POINT point : points)
            colours.push_back(GetPixel(dc, point.x, point.y));
        ReleaseDC(window, dc);
        return colours;
    }

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD)
    {
        size_t next = shared.Colours.size();
        if (next >= shared.Messages.size())
            return;
        shared.Colours.push_back(Now(shared.Window, shared.Points));
        const Queued& message = shared.Messages[next];
        PostMessageW(shared.Window, message.Message, message.Message == WM_KEYDOWN ? VK_ESCAPE : 0,
                     MAKELPARAM(message.X, message.Y));
    }

    static inline struct {
        HWND Window;
        std::vector<Queued> Messages;
        std::vector<POINT> Points;
        std::vector<std::vector<COLORREF>> Colours;
    } shared;
    UINT_PTR timer_;
};

// The left edge of a cell that is drawn so.
COLORREF LeftEdge(HWND window, UINT edge)
{
    HDC screen = GetDC(window), dc = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 50, 20);
    HGDIOBJ previous = SelectObject(dc, bitmap);
    RECT cell = {0, 0, 50, 20};
    DrawEdge(dc, &cell, edge, BF_RECT | BF_SOFT);
    COLORREF colour = GetPixel(dc, 0, 10);
    SelectObject(dc, previous);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(window, screen);
    return colour;
}

void Paint(HWND window)
{
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
}
} // namespace

TEST_F(ExplorerBarClicks, PressedHeadersAreSunkenWhileThePointerIsOverThem)
{
    COLORREF sunken = LeftEdge(grid.Window, EDGE_SUNKEN), raised = LeftEdge(grid.Window, EDGE_RAISED);
    ASSERT_NE(sunken, raised);
    Paint(grid.Window);
    const POINT edge = {100, 10};
    COLORREF before = Looks::Now(grid.Window, {edge})[0];
    Looks looks(grid.Window, {MoveTo(120, 60), MoveTo(122, 12), Escape()}, {edge});
    Gesture(120, 10, {});
    ASSERT_EQ(Looks::Count(), 3u);
    EXPECT_EQ(Looks::At(0, 0), sunken);
    EXPECT_EQ(Looks::At(1, 0), raised);
    EXPECT_EQ(Looks::At(2, 0), sunken);
    Hover(270, 100);
    UpdateWindow(grid.Window);
    EXPECT_EQ(Looks::Now(grid.Window, {edge})[0], before);
}

// Whether the points show the pattern: neighbours of two colours, in turn.
static bool IsPattern(size_t look, size_t first)
{
    return Looks::At(look, first) == Looks::At(look, first + 3) &&
           Looks::At(look, first + 1) == Looks::At(look, first + 2) &&
           Looks::At(look, first) != Looks::At(look, first + 1);
}

TEST_F(MovingColumns, MarkStandsInTheGapAndACopyFollowsThePointer)
{
    Paint(grid.Window);
    const std::vector<POINT> points = {{198, 150}, {199, 150}, {198, 151}, {199, 151}, // the mark's left half
                                       {200, 150}, {201, 150}, {200, 151}, {201, 151}, // its right half
                                       {197, 150}, {202, 150},                         // beside it
                                       {191, 10},                                      // the copy's edge
                                       {150, 150}};                                    // where it was before
    std::vector<COLORREF> before = Looks::Now(grid.Window, points);
    Looks looks(grid.Window, {MoveTo(151, 10), MoveTo(211, 10), Escape()},
                {points[0], points[1], points[2], points[3], points[4], points[5], points[6], points[7],
                 points[8], points[9], points[10], points[11]});
    Gesture(70, 10, {});
    ASSERT_EQ(Looks::Count(), 3u);
    EXPECT_TRUE(IsPattern(2, 0));
    EXPECT_TRUE(IsPattern(2, 4));
    EXPECT_EQ(Looks::At(2, 8), before[8]);
    EXPECT_EQ(Looks::At(2, 9), before[9]);
    EXPECT_EQ(Looks::At(2, 10), LeftEdge(grid.Window, EDGE_SUNKEN));
    EXPECT_NE(Looks::At(2, 10), before[10]);
    EXPECT_NE(Looks::At(1, 11), before[11]) << "the mark before the third column";
    EXPECT_EQ(Looks::At(2, 11), before[11]) << "it has gone on";
    Hover(270, 100);
    UpdateWindow(grid.Window);
    EXPECT_EQ(Looks::Now(grid.Window, points), before);
}

class MovingRows : public ExplorerBarClicks
{
protected:
    MovingRows() { grid.ExplorerBar = lorvExMoveRows; }
};

TEST_F(MovingRows, DropsTheRowAtTheGap)
{
    Gesture(20, 30, {MoveTo(20, 45), MoveTo(20, 85), ReleaseAt(20, 85)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,20,30) BeforeMoveRow(1,4) AfterMoveRow(1,4)");
    EXPECT_EQ(Column(2), "acbde");
    Gesture(20, 110, {MoveTo(20, 25), ReleaseAt(20, 25)});
    EXPECT_EQ(Column(2), "eacbd");
    Told();
    Gesture(20, 30, {MoveTo(20, 190), ReleaseAt(20, 190)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,20,30) BeforeMoveRow(1,6) AfterMoveRow(1,5)");
    EXPECT_EQ(Column(2), "acbde");
}

TEST_F(MovingRows, PressWithoutADragSelectsNothing)
{
    Gesture(20, 70, {ReleaseAt(20, 70)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,20,70)");
    EXPECT_EQ(Selection(), "1,1:1,1");
    Gesture(20, 70, {MoveTo(120, 110), ReleaseAt(120, 110)});
    EXPECT_EQ(Column(2), "dacbe") << "the drag has to begin over the headers";
}

TEST_F(MovingRows, HandlersChooseThePosition)
{
    act = [&](DISPID id, DISPPARAMS& parameters) {
        if (id == BeforeMoveRowId)
            SetLong(parameters, 0);
    };
    Gesture(20, 70, {MoveTo(20, 110), ReleaseAt(20, 110)});
    EXPECT_EQ(Column(2), "cdabe") << "the fixed row stays where it is";
}

TEST_F(MovingRows, DataOfOthersCannotBeMoved)
{
    FakeSource source;
    grid.LorvDataSource = &source;
    Gesture(20, 30, {MoveTo(20, 85), ReleaseAt(20, 85)});
    grid.LorvDataSource = nullptr;
    EXPECT_EQ(Told().find("BeforeMoveRow"), std::string::npos);
    DropMouseMessages();
    Release(20, 30);
}

TEST_F(MovingRows, ByProgramGivesTheFinalPosition)
{
    HoldKeys({VK_LBUTTON});
    Queue({MoveTo(20, 85), ReleaseAt(20, 85)});
    EXPECT_EQ(DragRowWithMouse(grid, 1), 4);
    Queue({MoveTo(20, 85), Escape()});
    EXPECT_EQ(DragRowWithMouse(grid, 1), 1);
    EXPECT_EQ(DragRowWithMouse(grid, 0), 0) << "fixed rows are not dragged";
    HoldKeys({});
    EXPECT_EQ(DragRowWithMouse(grid, 2), 2) << "nor without the button";
}

TEST(Gaps, LieBeforeTheEntryWhoseMiddleIsPastThePointer)
{
    Grid grid;
    ResizeBoth(grid, 4, 6);
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].Width = 50;
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Height = 20;
    SetFixedCounts(grid, 1, 1, 0, 1);
    grid.LeftCol = 3; // column 2 is scrolled away
    const struct {
        int X, Gap;
    } cases[] = {{-10, 1}, {10, 1}, {74, 1}, {75, 3}, {124, 3}, {125, 4}, {249, 6}, {900, 6}};
    for (const auto& each : cases)
        EXPECT_EQ(ColumnGapAt(grid, each.X), each.Gap) << each.X;
    EXPECT_EQ(RowGapAt(grid, 29), 1);
    EXPECT_EQ(RowGapAt(grid, 30), 2);
    EXPECT_EQ(RowGapAt(grid, 900), 4);
    ResizeBoth(grid, 0, 0);
    EXPECT_EQ(ColumnGapAt(grid, 10), 0);
    EXPECT_EQ(RowGapAt(grid, 10), 0);
}

TEST_F(MovingRows, MarkStandsInTheGap)
{
    Paint(grid.Window);
    Looks looks(grid.Window, {MoveTo(25, 85), Escape()},
                {{150, 78}, {151, 78}, {150, 79}, {151, 79}, {150, 80}, {151, 80}, {150, 81}, {151, 81}});
    Gesture(25, 30, {});
    ASSERT_EQ(Looks::Count(), 2u);
    EXPECT_FALSE(IsPattern(0, 0));
    EXPECT_TRUE(IsPattern(1, 0));
    EXPECT_TRUE(IsPattern(1, 4));
}
