// The zones that a moving pointer finds, and the drags that begin in them: sizes of rows and columns, frozen
// rows and columns.

#include "core/merge.h"
#include "support/mouse_grid.h"
#include "view/metrics.h"
#include "view/resources.h"

namespace
{
constexpr DISPID BeforeUserResizeId = 17, AfterUserResizeId = 18;
} // namespace

class Zones : public GridUnderMouse
{
protected:
    Zones()
    {
        grid.AllowUserResizing = lorvResizeBoth;
        RecalculateLayout(grid);
        Settle();
    }
    MouseZone ZoneAt(int x, int y)
    {
        SetCursor(nullptr);
        Hover(x, y);
        return ZoneOf(grid);
    }
    // Joins the headers of columns 1 and 2.
    void MergeHeaders()
    {
        grid.MergeCellsFixed = lorvMergeFree;
        grid.RowTable[0].MergeRow = 1;
        SetCellText(grid, 0, 1, L"x");
        SetCellText(grid, 0, 2, L"x");
        RebuildMergeLinks(grid);
        ASSERT_EQ(MergedRangeOf(grid, 0, 1).Col2, 2);
    }
};

TEST_F(Zones, LieOnOneSideOfTheLine)
{
    EXPECT_EQ(ZoneAt(145, 10), MouseZone::None);
    EXPECT_EQ(ZoneAt(146, 10), MouseZone::ResizeCol);
    EXPECT_EQ(ZoneAt(150, 10), MouseZone::ResizeCol) << "the line itself belongs to the column before it";
    EXPECT_EQ(ZoneAt(151, 10), MouseZone::None);
    EXPECT_EQ(ZoneAt(25, 75), MouseZone::None);
    EXPECT_EQ(ZoneAt(25, 76), MouseZone::ResizeRow);
    EXPECT_EQ(ZoneAt(25, 80), MouseZone::ResizeRow);
    EXPECT_EQ(ZoneAt(25, 81), MouseZone::None);
    EXPECT_EQ(ZoneAt(148, 50), MouseZone::None) << "only headers have them";
}

TEST_F(Zones, KnowWhatAPressWouldResize)
{
    Hover(148, 10);
    EXPECT_EQ(Told(), "BeforeUserResize(-1,2) MouseMove(0,0,148,10)");
    EXPECT_EQ(TheMouse().ZoneIndex, 2);
    EXPECT_EQ(TheMouse().DragAnchor, 100);
    EXPECT_EQ(TheMouse().DragLine, LineAtRest);
    EXPECT_EQ(GetCursor(), GridCursorOf(GridCursor::ResizeCol));
    Hover(25, 78);
    EXPECT_EQ(Told(), "BeforeUserResize(3,-1) MouseMove(0,0,25,78)");
    EXPECT_EQ(TheMouse().ZoneIndex, 3);
    EXPECT_EQ(TheMouse().DragAnchor, 60);
    EXPECT_EQ(GetCursor(), GridCursorOf(GridCursor::ResizeRow));
}

TEST_F(Zones, DependOnWhatMayBeResized)
{
    const struct {
        int Allowed;
        MouseZone Col, Row;
    } cases[] = {
        {lorvResizeNone, MouseZone::None, MouseZone::None},
        {lorvResizeColumns, MouseZone::ResizeCol, MouseZone::None},
        {lorvResizeRows, MouseZone::None, MouseZone::ResizeRow},
        {lorvResizeBoth, MouseZone::ResizeCol, MouseZone::ResizeRow},
        {lorvResizeBothUniform, MouseZone::ResizeCol, MouseZone::ResizeRow},
    };
    for (const auto& each : cases) {
        grid.AllowUserResizing = static_cast<int16_t>(each.Allowed);
        EXPECT_EQ(ZoneAt(148, 10), each.Col) << each.Allowed;
        EXPECT_EQ(ZoneAt(25, 78), each.Row) << each.Allowed;
    }
    grid.AllowUserResizing = lorvResizeBoth;
    EXPECT_EQ(ZoneAt(48, 18), MouseZone::ResizeCol) << "columns come first where both are";
}

TEST_F(Zones, RefusedOnesShowNoCursor)
{
    refuse = [](DISPID id) { return id == BeforeUserResizeId; };
    EXPECT_EQ(ZoneAt(148, 10), MouseZone::None);
    EXPECT_NE(GetCursor(), GridCursorOf(GridCursor::ResizeCol));
    EXPECT_EQ(ZoneAt(25, 78), MouseZone::None);
    EXPECT_EQ(Told("MouseMove"), "BeforeUserResize(-1,2) BeforeUserResize(3,-1)");
}

TEST_F(Zones, WithoutOneTheCursorIsThePropertys)
{
    grid.MousePointer = lorvCross;
    HCURSOR cross = LoadCursorW(nullptr, IDC_CROSS);
    ZoneAt(120, 50);
    EXPECT_EQ(GetCursor(), cross);
    ZoneAt(148, 10);
    EXPECT_EQ(GetCursor(), GridCursorOf(GridCursor::ResizeCol));
    refuse = [](DISPID id) { return id == BeforeUserResizeId; };
    ZoneAt(148, 10);
    EXPECT_EQ(GetCursor(), nullptr) << "a refusal asks for none";
}

TEST_F(Zones, HiddenColumnsLeaveTheirLineToTheNeighbour)
{
    HideCol(2);
    EXPECT_EQ(ZoneAt(98, 10), MouseZone::ResizeCol);
    EXPECT_EQ(TheMouse().ZoneIndex, 1);
    MergeHeaders();
    EXPECT_EQ(ZoneAt(98, 10), MouseZone::ResizeCol) << "a merged header whose last column is hidden";
    EXPECT_EQ(TheMouse().ZoneIndex, 1);
}

TEST_F(Zones, MergedHeadersHaveTheLineOfTheirLastColumn)
{
    MergeHeaders();
    EXPECT_EQ(ZoneAt(98, 10), MouseZone::None);
    EXPECT_EQ(ZoneAt(148, 10), MouseZone::ResizeCol);
    EXPECT_EQ(TheMouse().ZoneIndex, 2);
}

TEST_F(Zones, StretchedLastColumnHasNone)
{
    EXPECT_EQ(ZoneAt(248, 10), MouseZone::ResizeCol);
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(ZoneAt(248, 10), MouseZone::None);
    EXPECT_EQ(Told("MouseMove"), "BeforeUserResize(-1,4)") << "not asked the second time";
}

TEST_F(Zones, ColumnWiderThanTheWindowIsResizedAtItsEdge)
{
    grid.ColTable[1].Width = 900;
    int edge = ClientRectOf(grid).right;
    EXPECT_EQ(ZoneAt(edge - 2, 10), MouseZone::ResizeCol);
    EXPECT_EQ(TheMouse().ZoneIndex, 1);
}

TEST_F(Zones, MirroredColumnsHaveTheirLinesOnTheLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    EXPECT_EQ(ZoneAt(right - 148, 10), MouseZone::ResizeCol);
    EXPECT_EQ(TheMouse().ZoneIndex, 2);
    EXPECT_EQ(TheMouse().DragAnchor, right - 100);
    EXPECT_EQ(ZoneAt(right - 152, 10), MouseZone::None);
}

TEST_F(Zones, FreezeLinesLieOnBothSides)
{
    grid.AllowUserFreezing = lorvFreezeBoth;
    EXPECT_EQ(ZoneAt(45, 50), MouseZone::None);
    EXPECT_EQ(ZoneAt(46, 50), MouseZone::FreezeCols);
    EXPECT_EQ(ZoneAt(52, 50), MouseZone::FreezeCols);
    EXPECT_EQ(GetCursor(), GridCursorOf(GridCursor::FreezeCols));
    EXPECT_EQ(ZoneAt(54, 50), MouseZone::FreezeCols);
    EXPECT_EQ(ZoneAt(55, 50), MouseZone::None);
    EXPECT_EQ(ZoneAt(120, 24), MouseZone::FreezeRows);
    EXPECT_EQ(GetCursor(), GridCursorOf(GridCursor::FreezeRows));
    EXPECT_EQ(ZoneAt(120, 25), MouseZone::None);
    grid.AllowUserFreezing = lorvFreezeRows;
    EXPECT_EQ(ZoneAt(52, 50), MouseZone::None);
    grid.AllowUserFreezing = lorvFreezeColumns;
    EXPECT_EQ(ZoneAt(120, 24), MouseZone::None);
    ASSERT_EQ(S_OK, SetFrozenCols(grid, 2));
    EXPECT_EQ(ZoneAt(148, 50), MouseZone::FreezeCols);
    EXPECT_EQ(ZoneAt(152, 50), MouseZone::FreezeCols);
}

TEST_F(Zones, DragEdgeIsTheInsideOfTheSelectionsBorder)
{
    grid.OLEDragMode = lorvOLEDragAutomatic;
    Click(70, 30);
    Click(170, 70, VK_SHIFT); // 50,20 to 200,80
    EXPECT_EQ(ZoneAt(53, 50), MouseZone::DragEdge);
    EXPECT_EQ(GetCursor(), GridCursorOf(GridCursor::Move));
    EXPECT_EQ(ZoneAt(200, 50), MouseZone::DragEdge);
    EXPECT_EQ(ZoneAt(120, 50), MouseZone::None);
    EXPECT_EQ(ZoneAt(205, 50), MouseZone::None);
    grid.SelectionMode = lorvSelectionListBox;
    EXPECT_EQ(ZoneAt(53, 50), MouseZone::None) << "no row of the list is selected";
    grid.RowTable[4].Flags |= RowFlagSelected;
    EXPECT_EQ(ZoneAt(102, 90), MouseZone::DragEdge) << "each cell of a selected row has one";
    grid.OLEDragMode = lorvOLEDragManual;
    EXPECT_EQ(ZoneAt(102, 90), MouseZone::None);
}

TEST_F(Zones, AreForgottenBesideTheCellsAndByOtherGrids)
{
    EXPECT_EQ(ZoneAt(248, 10), MouseZone::ResizeCol);
    Hover(258, 10);
    EXPECT_EQ(ZoneOf(grid), MouseZone::None);
    EXPECT_EQ(ZoneAt(148, 10), MouseZone::ResizeCol);
    Grid other;
    EXPECT_EQ(ZoneOf(other), MouseZone::None);
}

class Resizing : public Zones
{
protected:
    // The widths of all columns, and alike the heights of the first rows.
    std::string Widths() const
    {
        std::string text;
        for (int col = 0; col < grid.Cols; ++col)
            text += std::to_string(grid.ColTable[col].Width) + " ";
        return text;
    }
    std::string Heights() const
    {
        std::string text;
        for (int row = 0; row < 6; ++row)
            text += std::to_string(grid.RowTable[row].Height) + " ";
        return text;
    }
};

TEST_F(Resizing, SetsTheSizeThatTheLineWasDraggedTo)
{
    Gesture(148, 10, {MoveTo(160, 10), MoveTo(180, 30), ReleaseAt(180, 30)});
    EXPECT_EQ(Told(), "AfterUserResize(-1,2)") << "neither MouseDown nor MouseUp nor Click";
    EXPECT_EQ(Widths(), "50 50 80 50 50 ");
    EXPECT_EQ(ZoneOf(grid), MouseZone::None);
    EXPECT_EQ(GetCapture(), nullptr);
    Gesture(25, 78, {MoveTo(25, 95), ReleaseAt(25, 95)});
    EXPECT_EQ(Told(), "AfterUserResize(3,-1)");
    EXPECT_EQ(Heights(), "20 20 20 35 20 20 ");
}

TEST_F(Resizing, LeavesOnePixelAtLeast)
{
    Gesture(148, 10, {MoveTo(20, 10), ReleaseAt(20, 10)});
    EXPECT_EQ(Widths(), "50 50 1 50 50 ");
    Gesture(25, 78, {MoveTo(25, -500), ReleaseAt(25, -500)});
    EXPECT_EQ(Heights(), "20 20 20 1 20 20 ");
}

TEST_F(Resizing, EndsWithoutEffectOnEscapeAndWithoutAMove)
{
    Gesture(148, 10, {MoveTo(180, 10), Escape(), ReleaseAt(180, 10)});
    EXPECT_EQ(Widths(), "50 50 50 50 50 ");
    EXPECT_EQ(ZoneOf(grid), MouseZone::None);
    EXPECT_EQ(GetCapture(), nullptr);
    DropMouseMessages();
    Gesture(148, 10, {MoveTo(148, 10), ReleaseAt(148, 10)});
    EXPECT_EQ(Widths(), "50 50 50 50 50 ") << "the system tells of a move when there was none";
    EXPECT_EQ(ZoneOf(grid), MouseZone::ResizeCol);
    EXPECT_EQ(Told(), "");
}

TEST_F(Resizing, ReleaseAfterEscapeIsNoClick)
{
    Gesture(148, 10, {MoveTo(180, 10), Escape()});
    Release(180, 10);
    EXPECT_EQ(Told(), "");
    Click(120, 70);
    EXPECT_NE(Told().find("Click"), std::string::npos) << "the next press counts again";
}

TEST_F(Resizing, WaitsForTheMouse)
{
    // Nothing is queued: the loop waits, and the timer's steps come from outside.
    static HWND window;
    static int step;
    window = grid.Window, step = 0;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
        constexpr UINT messages[] = {WM_MOUSEMOVE, WM_LBUTTONUP};
        if (step < 2)
            PostMessageW(window, messages[step++], 0, MAKELPARAM(170, 10));
    });
    Gesture(148, 10, {});
    KillTimer(nullptr, timer);
    EXPECT_EQ(Widths(), "50 50 70 50 50 ");
}

TEST_F(Resizing, EndsWhenTheMouseIsTakenAway)
{
    static HWND other;
    other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { SetCapture(other); });
    Gesture(148, 10, {MoveTo(180, 10)});
    KillTimer(nullptr, timer);
    EXPECT_EQ(GetCapture(), other) << "it is the other window's";
    ReleaseCapture();
    DestroyWindow(other);
    EXPECT_EQ(Widths(), "50 50 50 50 50 ");
    EXPECT_EQ(Told(), "");
}

TEST_F(Resizing, EndsWithTheWindow)
{
    static HWND window;
    window = grid.Window;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { DestroyWindow(window); });
    Gesture(148, 10, {MoveTo(180, 10)});
    KillTimer(nullptr, timer);
    EXPECT_EQ(grid.Window, nullptr);
    EXPECT_EQ(Widths(), "50 50 50 50 50 ");
}

TEST_F(Resizing, SizesWholeSelectedColumnsTogether)
{
    Click(75, 10);            // column 1
    Click(175, 10, VK_SHIFT); // to 3
    ASSERT_EQ(Selection(), "1,1:30,3");
    Gesture(148, 10, {MoveTo(160, 10), ReleaseAt(160, 10)});
    EXPECT_EQ(Told(), "AfterUserResize(-1,2)");
    EXPECT_EQ(Widths(), "50 60 60 60 50 ");
    Gesture(276, 10, {MoveTo(290, 10), ReleaseAt(290, 10)});
    EXPECT_EQ(Widths(), "50 60 60 60 60 ") << "a column outside the selection alone";
    SetOption(grid, OptionAllowBigSelection, false);
    Gesture(168, 10, {MoveTo(150, 10), ReleaseAt(150, 10)});
    EXPECT_EQ(Widths(), "50 60 40 60 60 ");
}

TEST_F(Resizing, SizesWholeSelectedRowsTogether)
{
    Click(25, 30);
    Click(25, 70, VK_SHIFT);
    ASSERT_EQ(Selection(), "1,1:3,4");
    Gesture(25, 58, {MoveTo(25, 70), ReleaseAt(25, 70)});
    EXPECT_EQ(Heights(), "20 30 30 30 20 20 ");
    Click(75, 90);
    Gesture(25, 48, {MoveTo(25, 60), ReleaseAt(25, 60)});
    EXPECT_EQ(Heights(), "20 40 30 30 20 20 ") << "no whole rows are selected any more";
}

TEST_F(Resizing, UniformHeightsResetEveryRow)
{
    grid.AllowUserResizing = lorvResizeBothUniform;
    Gesture(25, 78, {MoveTo(25, 90), ReleaseAt(25, 90)});
    EXPECT_EQ(Told(), "AfterUserResize(3,-1)");
    EXPECT_EQ(grid.UniformRowHeight, 30);
    for (int row = 0; row < grid.Rows; ++row)
        EXPECT_EQ(grid.RowTable[row].Height, UnsetLength);
    EXPECT_EQ(EffectiveRowHeight(grid, 7), 30);
    Gesture(148, 10, {MoveTo(160, 10), ReleaseAt(160, 10)});
    EXPECT_EQ(Widths(), "50 50 60 50 50 ") << "columns are never uniform";
}

TEST_F(Resizing, MirroredColumnsGrowToTheLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    Gesture(right - 148, 10, {MoveTo(right - 170, 10), ReleaseAt(right - 170, 10)});
    EXPECT_EQ(Widths(), "50 50 70 50 50 ");
    Gesture(right - 168, 10, {MoveTo(right - 20, 10), ReleaseAt(right - 20, 10)});
    EXPECT_EQ(Widths(), "50 50 1 50 50 ");
}

TEST_F(Resizing, MarksSpilledTextsForTheColumnsOnly)
{
    grid.MergeCells = lorvMergeSpill;
    SetOption(grid, OptionMergeStale, false);
    act = [this](DISPID id, DISPPARAMS&) {
        if (id == AfterUserResizeId)
            EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    };
    grid.Redraw = lorvRDNone; // nothing rebuilds the links meanwhile
    Gesture(25, 78, {MoveTo(25, 90), ReleaseAt(25, 90)});
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    Gesture(148, 10, {MoveTo(160, 10), ReleaseAt(160, 10)});
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    grid.Redraw = lorvRDBuffered;
}

TEST_F(Resizing, DrawsItsLineUnderThePointer)
{
    static COLORREF before, during;
    InvalidateRect(grid.Window, nullptr, FALSE);
    UpdateWindow(grid.Window);
    static HWND window;
    window = grid.Window;
    auto pixel = [] {
        HDC dc = GetDC(window);
        COLORREF colour = GetPixel(dc, 180, 150);
        ReleaseDC(window, dc);
        return colour;
    };
    before = pixel();
    during = CLR_INVALID;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
        if (GetCapture() != window || during != CLR_INVALID) // before the gesture or after it
            return;
        HDC dc = GetDC(window);
        during = GetPixel(dc, 180, 150);
        ReleaseDC(window, dc);
        PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
    });
    Gesture(148, 10, {MoveTo(165, 10), MoveTo(180, 10)});
    KillTimer(nullptr, timer);
    DropMouseMessages();
    EXPECT_EQ(during, before ^ 0xFFFFFF);
    UpdateWindow(grid.Window);
    EXPECT_EQ(pixel(), before);
}

class Freezing : public GridUnderMouse
{
protected:
    Freezing() { grid.AllowUserFreezing = lorvFreezeBoth; }
};

TEST_F(Freezing, FreezesTheColumnsUpToTheNearestLine)
{
    Gesture(52, 50, {MoveTo(130, 60), ReleaseAt(130, 60)});
    EXPECT_EQ(Told(), "AfterUserFreeze");
    EXPECT_EQ(grid.FrozenCols, 2) << "past the middle of column 2";
    Gesture(152, 50, {MoveTo(120, 60), ReleaseAt(120, 60)});
    EXPECT_EQ(grid.FrozenCols, 1) << "before the middle of column 2";
    Gesture(102, 50, {MoveTo(5, 60), ReleaseAt(5, 60)});
    EXPECT_EQ(grid.FrozenCols, 0) << "never into the fixed columns";
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Freezing, FreezesTheRowsUpToTheNearestLine)
{
    Gesture(120, 22, {MoveTo(120, 73), ReleaseAt(120, 73)});
    EXPECT_EQ(Told(), "AfterUserFreeze");
    EXPECT_EQ(grid.FrozenRows, 3);
    Gesture(120, 82, {MoveTo(120, 67), ReleaseAt(120, 67)});
    EXPECT_EQ(grid.FrozenRows, 2);
}

TEST_F(Freezing, ClickOnTheLineKeepsWhatIsFrozen)
{
    ASSERT_EQ(S_OK, SetFrozenCols(grid, 2));
    Settle();
    Gesture(152, 50, {ReleaseAt(152, 50)});
    EXPECT_EQ(grid.FrozenCols, 2);
    EXPECT_EQ(Told(), "AfterUserFreeze");
}

TEST_F(Freezing, EscapeLeavesNothingFrozen)
{
    ASSERT_EQ(S_OK, SetFrozenRows(grid, 2));
    Settle();
    Gesture(120, 62, {MoveTo(120, 130), Escape()});
    EXPECT_EQ(grid.FrozenRows, 0);
    EXPECT_EQ(Told(), "");
    Release(120, 130);
    EXPECT_EQ(Told(), "") << "no click either";
}

TEST_F(Freezing, BeginsAtTheTopOfTheSheet)
{
    grid.AllowUserFreezing = lorvFreezeRows;
    SendMessageW(grid.Window, WM_VSCROLL, SB_PAGEDOWN, 0);
    ASSERT_GT(grid.TopRow, 1);
    Gesture(120, 22, {MoveTo(120, 55), ReleaseAt(120, 55)});
    EXPECT_EQ(grid.FrozenRows, 2);
    EXPECT_EQ(grid.TopRow, 3);
}

TEST_F(Freezing, MirroredColumnsFreezeFromTheRight)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    Gesture(right - 52, 50, {MoveTo(right - 130, 60), ReleaseAt(right - 130, 60)});
    EXPECT_EQ(grid.FrozenCols, 2);
}

TEST_F(Freezing, BehindTheLastRowEverythingFreezes)
{
    Resize(5, 5);
    Gesture(120, 22, {MoveTo(120, 180), ReleaseAt(120, 180)});
    EXPECT_EQ(grid.FrozenRows, 4);
}

TEST_F(Freezing, WindowThatGoesEndsIt)
{
    static HWND window;
    window = grid.Window;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { DestroyWindow(window); });
    Gesture(52, 50, {MoveTo(130, 60)});
    KillTimer(nullptr, timer);
    EXPECT_EQ(grid.Window, nullptr);
    EXPECT_EQ(grid.FrozenCols, 0);
}
