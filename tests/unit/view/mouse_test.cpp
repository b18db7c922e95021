// Presses, releases, clicks, moves and double clicks: which events in which order, and what they leave
// behind.

#include "support/mouse_grid.h"
#include "view/resources.h"

namespace
{
constexpr DISPID BeforeMouseDownId = 5;
const std::string MovedFromFirst =
    "LeaveCell BeforeRowColChange(1,1,3,2) BeforeSelChange(1,1,3,2) EnterCell "
    "RowColChange AfterRowColChange(1,1,3,2) SelChange AfterSelChange(1,1,3,2)";
} // namespace

using Mouse = GridUnderMouse;

TEST_F(Mouse, PressOnACellMovesTheCursorBetweenItsTwoEvents)
{
    Press(120, 70);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,70) " + MovedFromFirst + " MouseDown(1,0,120,70)");
    EXPECT_EQ(GetCapture(), grid.Window);
    EXPECT_TRUE(grid.PaintMode & PaintMouseHeld);
    Release(121, 72);
    EXPECT_EQ(Told(), "MouseUp(1,0,121,72) Click");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Mouse, ModifiersTravelWithTheEvents)
{
    HoldKeys({VK_SHIFT, VK_CONTROL, VK_MENU});
    Send(WM_RBUTTONUP, 10, 10);
    EXPECT_EQ(Told(), "MouseUp(2,7,10,10) Click");
}

TEST_F(Mouse, RefusedPressTakesTheFocusOfTheControlButNotOfACell)
{
    SetFocus(nullptr);
    Told();
    refuse = [](DISPID id) { return id == BeforeMouseDownId; };
    Press(120, 70);
    EXPECT_EQ(Told(), "SetFocus BeforeMouseDown(1,0,120,70)");
    EXPECT_EQ(GetFocus(), grid.Window);
    EXPECT_EQ(Selection(), "1,1:1,1");
    EXPECT_EQ(GetCapture(), nullptr);
    Release(120, 70);
    EXPECT_EQ(Told(), "MouseUp(1,0,120,70) Click");
}

TEST_F(Mouse, PressBesideTheCellsIsToldAndHoldsNothing)
{
    Press(270, 30);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,270,30) MouseDown(1,0,270,30)");
    EXPECT_EQ(GetCapture(), nullptr);
    refuse = [](DISPID id) { return id == BeforeMouseDownId; };
    Press(270, 30);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,270,30)");
    EXPECT_EQ(Selection(), "1,1:1,1");
}

TEST_F(Mouse, PressEndsASearchFirst)
{
    for (UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN}) {
        grid.IsSearching = 1;
        Send(message, 270, 30);
        EXPECT_EQ(Told().substr(0, 29), "EndAutoSearch BeforeMouseDown");
        EXPECT_EQ(grid.IsSearching, 0);
    }
}

TEST_F(Mouse, PressUnlocksTheSelection)
{
    grid.EditFlags |= EditFlagSelectionLocked;
    Click(120, 70);
    EXPECT_EQ(Selection(), "3,2:3,2");
}

TEST_F(Mouse, OtherButtonsLeaveTheSelectionLocked)
{
    grid.EditFlags |= EditFlagSelectionLocked;
    for (UINT message : {WM_RBUTTONDOWN, WM_MBUTTONDOWN}) {
        Send(message, 120, 70);
        EXPECT_EQ(Selection(), "1,1:1,1") << message;
        EXPECT_TRUE(grid.EditFlags & EditFlagSelectionLocked) << message;
    }
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
}

TEST_F(Mouse, PressPutsThePointerOfTheHostAgainThroughItsSetter)
{
    PropertySink sink;
    Connection connection(grid.PropertySinks, &sink);
    Click(120, 70);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>());
    grid.MousePointer = lorvCross;
    Click(120, 70);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{DISPID_MOUSEPOINTER});
}

TEST_F(Mouse, PressStopsWhereAHandlerTakesTheFocusAway)
{
    act = [](DISPID id, DISPPARAMS&) {
        if (id == BeforeMouseDownId)
            SetFocus(nullptr);
    };
    Press(120, 70);
    EXPECT_EQ(Told("KillFocus"), "BeforeMouseDown(1,0,120,70)");
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Selection(), "1,1:1,1");
}

TEST_F(Mouse, ReleaseOutsideIsNoClick)
{
    Press(120, 70);
    Told();
    Release(120, 900);
    EXPECT_EQ(Told("AfterScroll"), "MouseUp(1,0,120,900)");
    Send(WM_RBUTTONUP, -5, 10);
    EXPECT_EQ(Told(), "MouseUp(2,0,-5,10)");
}

TEST_F(Mouse, DoubleClickSuppressesTheClickOfItsRelease)
{
    Click(120, 70);
    Told();
    Send(WM_LBUTTONDBLCLK, 120, 70);
    Release(120, 70);
    EXPECT_EQ(Told(), "DblClick MouseUp(1,0,120,70)");
    Click(120, 70);
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,120,70) MouseDown(1,0,120,70) MouseUp(1,0,120,70) Click");
    Send(WM_RBUTTONDBLCLK, 120, 70);
    Send(WM_RBUTTONUP, 120, 70);
    EXPECT_EQ(Told(), "DblClick MouseUp(2,0,120,70)");
    Send(WM_RBUTTONDOWN, 120, 70);
    Send(WM_RBUTTONUP, 120, 70);
    EXPECT_EQ(Told(), "BeforeMouseDown(2,0,120,70) MouseDown(2,0,120,70) MouseUp(2,0,120,70) Click");
}

TEST_F(Mouse, RightPressInsideTheSelectionKeepsIt)
{
    Click(70, 30);
    Click(170, 70, VK_SHIFT);
    EXPECT_EQ(Selection(), "1,1:3,3");
    Told();
    Send(WM_RBUTTONDOWN, 120, 50);
    EXPECT_EQ(Told(), "BeforeMouseDown(2,0,120,50) MouseDown(2,0,120,50)");
    EXPECT_EQ(Selection(), "1,1:3,3");
    Send(WM_RBUTTONDOWN, 120, 90);
    EXPECT_EQ(Selection(), "4,2:4,2");
    Send(WM_MBUTTONDOWN, 170, 90);
    EXPECT_EQ(Selection(), "4,3:4,3");
    EXPECT_EQ(GetCapture(), nullptr) << "only the left button drags";
}

TEST_F(Mouse, RefusedRightPressDoesNothing)
{
    refuse = [](DISPID id) { return id == BeforeMouseDownId; };
    Send(WM_RBUTTONDOWN, 120, 90);
    EXPECT_EQ(Told(), "BeforeMouseDown(2,0,120,90)");
    EXPECT_EQ(Selection(), "1,1:1,1");
}

TEST_F(Mouse, RightPressThatCanSelectNothingIsNotTold)
{
    Resize(1, 5);
    Send(WM_RBUTTONDOWN, 120, 10);
    EXPECT_EQ(Told(), "BeforeMouseDown(2,0,120,10)");
    Send(WM_RBUTTONDOWN, 120, 90);
    EXPECT_EQ(Told(), "BeforeMouseDown(2,0,120,90) MouseDown(2,0,120,90)") << "beside the cells it is";
}

TEST_F(Mouse, MoveTellsTheButtonsHeld)
{
    HoldKeys({VK_RBUTTON, VK_MBUTTON, VK_SHIFT});
    Hover(120, 70);
    EXPECT_EQ(Told(), "MouseMove(6,1,120,70)");
    HoldKeys({});
    Hover(-3, 70);
    EXPECT_EQ(Told(), "MouseMove(0,0,-3,70)");
}

TEST_F(Mouse, PointerOverACellIsRememberedAndForgotten)
{
    Hover(120, 10);
    EXPECT_EQ(grid.HoverRow, 0);
    EXPECT_EQ(grid.HoverCol, 2);
    ValidateRect(grid.Window, nullptr);
    Hover(70, 10);
    RECT both = {50, 0, 150, 20}, invalid = Invalid();
    EXPECT_TRUE(EqualRect(&both, &invalid)) << "the old and the new cell";
    ValidateRect(grid.Window, nullptr);
    Hover(71, 10);
    invalid = Invalid();
    EXPECT_TRUE(IsRectEmpty(&invalid));
    HoldKeys({VK_LBUTTON});
    Hover(120, 10);
    EXPECT_EQ(grid.HoverCol, 1) << "not while a button is held";
    HoldKeys({});
    grid.TracksMouse = true;
    Send(WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(grid.HoverRow, -1);
    EXPECT_EQ(grid.HoverCol, -1);
    EXPECT_FALSE(grid.TracksMouse);
    Hover(270, 10);
    EXPECT_EQ(grid.HoverCol, -1) << "beside the cells";
}

TEST_F(Mouse, DoubleClickOnAResizeLineFitsTheColumn)
{
    grid.AllowUserResizing = lorvResizeColumns;
    SetCellText(grid, 2, 2, L"W");
    Hover(148, 10);
    Told();
    Send(WM_LBUTTONDBLCLK, 148, 10);
    EXPECT_EQ(Told(), "DblClick AfterUserResize(-1,2)");
    EXPECT_LT(grid.ColTable[2].Width, 50);
    EXPECT_EQ(grid.ColTable[1].Width, 50);
}

TEST_F(Mouse, WithoutAutoSizeMouseADoubleClickOnAResizeLineIsJustTold)
{
    grid.AllowUserResizing = lorvResizeColumns;
    grid.MouseOptions &= ~uint32_t{MouseOptionAutoSizeMouse};
    Hover(148, 10);
    Told();
    Send(WM_LBUTTONDBLCLK, 148, 10);
    EXPECT_EQ(Told(), "DblClick");
    EXPECT_EQ(grid.ColTable[2].Width, 50);
}

TEST_F(Mouse, ClickOnAResizeLineLeavesTheZoneForTheDoubleClick)
{
    grid.AllowUserResizing = lorvResizeColumns;
    Gesture(148, 10, {ReleaseAt(148, 10)});
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(grid.ColTable[2].Width, 50);
    Send(WM_LBUTTONDBLCLK, 148, 10);
    EXPECT_EQ(Told(), "DblClick AfterUserResize(-1,2)");
}

TEST_F(Mouse, CursorIsTheOneThatThePropertyNames)
{
    const struct {
        int Pointer;
        HCURSOR Cursor;
    } cases[] = {
        {lorvArrow, LoadCursorW(nullptr, IDC_ARROW)},
        {lorvCross, LoadCursorW(nullptr, IDC_CROSS)},
        {lorvIBeam, LoadCursorW(nullptr, IDC_IBEAM)},
        {lorvSize, LoadCursorW(nullptr, IDC_SIZEALL)},
        {lorvSizeNESW, LoadCursorW(nullptr, IDC_SIZENESW)},
        {lorvSizeNS, LoadCursorW(nullptr, IDC_SIZENS)},
        {lorvSizeNWSE, LoadCursorW(nullptr, IDC_SIZENWSE)},
        {lorvSizeEW, LoadCursorW(nullptr, IDC_SIZEWE)},
        {lorvUpArrow, LoadCursorW(nullptr, IDC_UPARROW)},
        {lorvHourglass, LoadCursorW(nullptr, IDC_WAIT)},
        {lorvNoDrop, LoadCursorW(nullptr, IDC_NO)},
        {lorvArrowHourGlass, LoadCursorW(nullptr, IDC_APPSTARTING)},
        {lorvArrowQuestion, LoadCursorW(nullptr, IDC_HELP)},
        {lorvSizeAll, LoadCursorW(nullptr, IDC_SIZEALL)},
        {lorvPointerCopy, GridCursorOf(GridCursor::Copy)},
        {lorvPointerMove, GridCursorOf(GridCursor::Move)},
        {lorvSizeHorz, GridCursorOf(GridCursor::ResizeCol)},
        {lorvSizeVert, GridCursorOf(GridCursor::ResizeRow)},
        {lorvHand, GridCursorOf(GridCursor::Hand)},
    };
    auto window = reinterpret_cast<WPARAM>(grid.Window);
    LPARAM inside = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    for (const auto& each : cases) {
        ASSERT_NE(each.Cursor, nullptr) << each.Pointer;
        SetCursor(nullptr);
        grid.MousePointer = static_cast<int16_t>(each.Pointer);
        EXPECT_EQ(SendMessageW(grid.Window, WM_SETCURSOR, window, inside), TRUE) << each.Pointer;
        EXPECT_EQ(GetCursor(), each.Cursor) << each.Pointer;
    }
    LRESULT result = 0;
    EXPECT_FALSE(ProcessWindowMessage(grid, WM_SETCURSOR, window, MAKELPARAM(HTVSCROLL, 0), result));
    EXPECT_FALSE(ProcessWindowMessage(grid, WM_SETCURSOR, window + 4, inside, result)) << "another window";
    for (int none : {0, 16, 99}) { // the last without MouseIcon
        grid.MousePointer = static_cast<int16_t>(none);
        EXPECT_FALSE(ProcessWindowMessage(grid, WM_SETCURSOR, window, inside, result)) << none;
    }
    grid.MousePointer = lorvCross;
    grid.DesignModeCache = 1;
    EXPECT_FALSE(ProcessWindowMessage(grid, WM_SETCURSOR, window, inside, result)) << "in a designer";
}

TEST_F(Mouse, CursorOfTheHostIsTheHandleOfItsPicture)
{
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_ICON;
    description.icon.hicon = CopyIcon(LoadIconW(nullptr, IDI_APPLICATION));
    ASSERT_NE(description.icon.hicon, nullptr);
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                       reinterpret_cast<void**>(&grid.MouseIcon)),
              S_OK);
    auto window = reinterpret_cast<WPARAM>(grid.Window);
    LPARAM inside = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    LRESULT result = 0;
    SetCursor(nullptr);
    grid.MousePointer = lorvCustom;
    EXPECT_TRUE(ProcessWindowMessage(grid, WM_SETCURSOR, window, inside, result));
    EXPECT_EQ(result, TRUE);
    EXPECT_EQ(GetCursor(), description.icon.hicon);
    SetCursor(nullptr);
    grid.MousePointer = lorvDefault;
    EXPECT_FALSE(ProcessWindowMessage(grid, WM_SETCURSOR, window, inside, result)) << "only by its number";
    EXPECT_EQ(GetCursor(), nullptr);
}

// The system may have no cursor under this number any more; then there is none.
TEST_F(Mouse, CursorOfAnIconIsTheSystems)
{
    HCURSOR icon = LoadCursorW(nullptr, MAKEINTRESOURCEW(32641));
    SetCursor(nullptr);
    grid.MousePointer = lorvIcon;
    LRESULT result = 0;
    EXPECT_EQ(ProcessWindowMessage(grid, WM_SETCURSOR, reinterpret_cast<WPARAM>(grid.Window),
                                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE), result),
              icon != nullptr);
    EXPECT_EQ(GetCursor(), icon);
}
