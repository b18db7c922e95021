#include "view/mouse.h"

#include "core/events.h"
#include "core/search.h"
#include "core/upcalls.h"
#include "platform/dpi.h"
#include "platform/key_state.h"
#include "view/auto_size.h"
#include "view/button_press.h"
#include "view/drag_selection.h"
#include "view/explorer_bar.h"
#include "view/gesture.h"
#include "view/hit_test.h"
#include "view/metrics.h"
#include "view/mouse_cursor.h"
#include "view/mouse_state.h"
#include "view/resize_gesture.h"
#include "view/selection.h"
#include "view/selection_click.h"

namespace
{
// The `Button` argument of events.
constexpr short LeftButton = 1;
constexpr short RightButton = 2;
constexpr short MiddleButton = 4;

float TwipsAcross(POINT point) noexcept
{
    return static_cast<float>(PixelsToTwipsX(point.x));
}
float TwipsDown(POINT point) noexcept
{
    return static_cast<float>(PixelsToTwipsY(point.y));
}

bool AskBeforeMouseDown(Grid& grid, short button, POINT point)
{
    return event::BeforeMouseDown(grid, button, HeldModifiers(), TwipsAcross(point), TwipsDown(point));
}
void TellMouseDown(Grid& grid, short button, POINT point)
{
    event::MouseDown(grid, button, HeldModifiers(), TwipsAcross(point), TwipsDown(point));
}
void TellMouseUp(Grid& grid, short button, POINT point)
{
    event::MouseUp(grid, button, HeldModifiers(), TwipsAcross(point), TwipsDown(point));
}

short HeldButtons() noexcept
{
    return static_cast<short>((IsKeyHeld(VK_LBUTTON) ? LeftButton : 0) |
                              (IsKeyHeld(VK_RBUTTON) ? RightButton : 0) |
                              (IsKeyHeld(VK_MBUTTON) ? MiddleButton : 0));
}

void BeginPress(Grid& grid)
{
    TheMouse().SuppressClick = false;
    TheMouse().PressTaken = false;
    EndAutoSearch(grid);
}

void TakeFocus(const Grid& grid)
{
    if (grid.Window && !HasFocusInside(grid))
        SetFocus(grid.Window);
}

// What the pointer's zone makes of a press, before anything else looks at it.
bool RunZoneGesture(Grid& grid, POINT point)
{
    if (ZoneOf(grid) == MouseZone::DragEdge && StartOleDrag(grid)) {
        TheMouse().PressTaken = true;
        return true;
    }
    return RunFreezeGesture(grid, point) || RunResizeGesture(grid, point);
}

void PressBesideCells(Grid& grid, POINT point)
{
    if (AskBeforeMouseDown(grid, LeftButton, point))
        return;
    CommitEdit(grid);
    TellMouseDown(grid, LeftButton, point);
}

// True when the press was for something in the cell, or a handler refused it. The check box is asked before
// the host is.
bool PressTakenByCell(Grid& grid, POINT point, CellPos cell)
{
    if (ClickCheckBox(grid, cell.Row, cell.Col, point) || AskBeforeMouseDown(grid, LeftButton, point))
        return true;
    if (!grid.Window)
        return true;
    auto lives = [&] { return IsCell(grid, cell.Row, cell.Col); };
    if (ZoneOf(grid) == MouseZone::None && lives() &&
        (ClickOutline(grid, cell.Row, cell.Col, point) || (lives() && ClickExplorerBar(grid, point, cell))))
        return true;
    return PressCellButton(grid, point, cell);
}

// From here on the mouse is held until the button is released.
void HoldPress(Grid& grid, POINT point)
{
    if (!HasFocusInside(grid))
        return;
    grid.PaintMode |= PaintMouseHeld | PaintHasFocus;
    SetCapture(grid.Window);
    if (GetFocus() != grid.Window)
        SetFocus(grid.Window);
    if (grid.Window && grid.MousePointer != lorvDefault)
        SetMousePointer(grid, grid.MousePointer);
    if (!grid.Window)
        return;
    SelectionClick(grid, point);
    if (grid.ActiveEditor == EditorNone)
        TellMouseDown(grid, LeftButton, point);
}

bool IsOutsideSelection(Grid& grid, POINT point)
{
    RECT selection = SelectionOuterRect(grid);
    InflateRect(&selection, 1, 1);
    return !PtInRect(&selection, point);
}

bool OnOtherButtonDown(Grid& grid, short button, POINT point)
{
    KeepAlive alive(grid);
    BeginPress(grid);
    if (AskBeforeMouseDown(grid, button, point))
        return true;
    TakeFocus(grid);
    if (!grid.Window)
        return true;
    if (HitTest(grid, point, true, true).OnCell && IsOutsideSelection(grid, point)) {
        if (!SelectionClick(grid, point))
            return true;
        grid.PaintMode &= ~static_cast<uint32_t>(PaintListDragAdds); // no drag follows
    }
    TellMouseDown(grid, button, point);
    return true;
}

void TellClick(Grid& grid, POINT point)
{
    RECT client = ClientRectOf(grid);
    if (grid.Window && !TheMouse().SuppressClick && PtInRect(&client, point))
        event::Click(grid);
}

bool OnOtherButtonUp(Grid& grid, short button, POINT point)
{
    KeepAlive alive(grid);
    TellMouseUp(grid, button, point);
    TellClick(grid, point);
    return true;
}

void AskForMouseLeave(Grid& grid) noexcept
{
    TRACKMOUSEEVENT request = {sizeof(request), TME_LEAVE, grid.Window, 0};
    if (!grid.TracksMouse)
        grid.TracksMouse = TrackMouseEvent(&request) != FALSE;
}

// Headers look different under the pointer.
void SetHoverCell(Grid& grid, CellPos cell)
{
    if (cell == CellPos{grid.HoverRow, grid.HoverCol})
        return;
    CellPos old = {grid.HoverRow, grid.HoverCol};
    grid.HoverRow = cell.Row;
    grid.HoverCol = cell.Col;
    for (CellPos each : {old, cell})
        if (IsCell(grid, each.Row, each.Col))
            RepaintCell(grid, each.Row, each.Col);
}

void FollowHover(Grid& grid, POINT point)
{
    CellHit hit = HitTest(grid, point, true, false);
    SetHoverCell(grid, hit.OnCell ? hit.Cell : CellPos{-1, -1});
}

bool IsOnCurrentCell(const Grid& grid, POINT point)
{
    CellHit hit = HitTest(grid, point, true, true);
    return hit.OnCell && hit.Cell == CellPos{grid.Row, grid.Col} && !IsFixedCell(grid, grid.Row, grid.Col);
}

void FitCol(Grid& grid, int col)
{
    AutoSizeRange(grid, col, col, false, 0, lorvAutoSizeColWidth);
    event::AfterUserResize(grid, -1, col);
}

// Returns whether anything is left to be done with the double click: an edit that a handler begins ends it,
// one that ran before does not.
bool TellDblClick(Grid& grid)
{
    TheMouse().SuppressClick = true;
    TheMouse().PressTaken = false;
    bool edited = grid.ActiveEditor != EditorNone;
    event::DblClick(grid);
    return grid.Window && (edited || grid.ActiveEditor == EditorNone);
}
} // namespace

bool OnLeftButtonDown(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    KeepAlive alive(grid);
    POINT point = PointOf(lParam);
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
    BeginPress(grid);
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListDragAdds);
    if (!grid.Window || RunZoneGesture(grid, point))
        return true;
    TakeFocus(grid);
    if (!grid.Window)
        return true;
    CellHit hit = HitTest(grid, point, true, true);
    if (!hit.OnCell)
        PressBesideCells(grid, point);
    else if (!PressTakenByCell(grid, point, hit.Cell))
        HoldPress(grid, point);
    return true;
}

bool OnRightButtonDown(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    return OnOtherButtonDown(grid, RightButton, PointOf(lParam));
}

bool OnMiddleButtonDown(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    return OnOtherButtonDown(grid, MiddleButton, PointOf(lParam));
}

bool OnLeftButtonUp(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    KeepAlive alive(grid);
    POINT point = PointOf(lParam);
    grid.PaintMode &= ~static_cast<uint32_t>(PaintMouseHeld);
    if (EndDragSelection(grid)) {
        TellMouseUp(grid, LeftButton, point);
        TellClick(grid, point);
    }
    TheMouse().SuppressClick = false;
    if (HasCapture(grid))
        ReleaseCapture();
    return true;
}

bool OnRightButtonUp(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    return OnOtherButtonUp(grid, RightButton, PointOf(lParam));
}

bool OnMiddleButtonUp(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    return OnOtherButtonUp(grid, MiddleButton, PointOf(lParam));
}

bool OnLeftDoubleClick(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    KeepAlive alive(grid);
    if (!TellDblClick(grid))
        return true;
    if (ZoneOf(grid) == MouseZone::ResizeCol && (grid.MouseOptions & MouseOptionAutoSizeMouse))
        FitCol(grid, TheMouse().ZoneIndex);
    else if (grid.Editable == lorvEDKbdMouse && CommitEdit(grid) && IsOnCurrentCell(grid, PointOf(lParam)))
        StartCellEdit(grid, EditByMouse);
    return true;
}

bool OnRightDoubleClick(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    KeepAlive alive(grid);
    TellDblClick(grid);
    return true;
}

bool OnMouseMove(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    KeepAlive alive(grid);
    POINT point = PointOf(lParam);
    if ((grid.PaintMode & PaintMouseHeld) && !IsKeyHeld(VK_LBUTTON))
        DropMouseDrag(grid);
    UpdateMouseZone(grid, point);
    if (grid.Window)
        event::MouseMove(grid, HeldButtons(), HeldModifiers(), TwipsAcross(point), TwipsDown(point));
    if (!grid.Window)
        return true;
    ShowToolTip(grid);
    AskForMouseLeave(grid);
    if (HeldButtons() == 0)
        FollowHover(grid, point);
    return true;
}

bool OnMouseLeave(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    SetHoverCell(grid, {-1, -1});
    grid.TracksMouse = false;
    HideTip(grid);
    return true;
}
