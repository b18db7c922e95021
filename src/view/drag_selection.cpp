#include "view/drag_selection.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/key_state.h"
#include "view/hit_test.h"
#include "view/messages.h"
#include "view/mouse.h"
#include "view/mouse_state.h"
#include "view/scroll.h"
#include "view/selection.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
constexpr UINT DragPeriod = 50; // milliseconds

void StartDragTimer(const Grid& grid) noexcept
{
    MouseState& mouse = TheMouse();
    if (mouse.TimerWindow != grid.Window && SetTimer(grid.Window, DragTimer, DragPeriod, nullptr))
        mouse.TimerWindow = grid.Window;
}

void ForgetPress(Grid& grid) noexcept
{
    grid.PaintMode &= ~static_cast<uint32_t>(PaintMouseHeld);
    TheMouse().Kind = SelectKind::Cells;
}

// `strict` and `loose` are what the two hit tests say. Over the frozen part the loose one finds what is
// scrolled away under it, which scrolls back; a selection that begins in the frozen part stays there.
int TargetOn(const Grid& grid, const SheetAxis& axis, int strict, int loose, int current)
{
    int first = grid.*axis.First;
    bool onFrozen = strict >= 0 && strict < FrozenEnd(grid, axis);
    int target = onFrozen && (current < FrozenEnd(grid, axis) || loose >= first) ? strict : loose;
    target = std::max(target, static_cast<int>(grid.*axis.Fixed));
    if (target < first && first <= grid.*axis.MaxFirst)
        target = std::max(PreviousShown(grid, axis, target), static_cast<int>(grid.*axis.Fixed));
    return target;
}

CellPos TargetAt(const Grid& grid, POINT point)
{
    CellPos strict = HitTest(grid, point, true, false).Cell, loose = HitTest(grid, point, false, false).Cell;
    CellPos target = {TargetOn(grid, RowAxis, strict.Row, loose.Row, grid.Row),
                      TargetOn(grid, ColAxis, strict.Col, loose.Col, grid.Col)};
    if (TheMouse().Kind == SelectKind::WholeRows)
        target.Col = grid.Cols - 1;
    else if (TheMouse().Kind == SelectKind::WholeCols)
        target.Row = grid.Rows - 1;
    return target;
}

int ScrollModeOf(SelectKind kind) noexcept
{
    switch (kind) {
    case SelectKind::WholeRows:
        return CursorShowRow;
    case SelectKind::WholeCols:
        return CursorShowCol;
    default:
        return CursorShow;
    }
}

void ShowFarCorner(Grid& grid)
{
    switch (grid.SelectionMode) {
    case lorvSelectionByRow:
    case lorvSelectionListBox:
        return ScrollToCell(grid, grid.RowSel, grid.LeftCol, false);
    case lorvSelectionByColumn:
        return ScrollToCell(grid, grid.TopRow, grid.ColSel, false);
    default:
        return ScrollToCell(grid, grid.RowSel, grid.ColSel, false);
    }
}
} // namespace

void DragSelectionTo(Grid& grid, POINT point)
{
    MouseState& mouse = TheMouse();
    if (!(grid.PaintMode & PaintMouseHeld) || mouse.Kind == SelectKind::Settled || !grid.Window)
        return;
    StartDragTimer(grid);
    CellPos target = TargetAt(grid, point);
    int mode = ScrollModeOf(mouse.Kind);
    if (HasOption(grid, OptionAllowSelection))
        ExtendSelection(grid, target.Row, target.Col, mode);
    else
        MoveCursor(grid, target.Row, target.Col, mode);
}

void NoticeMissedRelease(Grid& grid)
{
    bool timerRuns = grid.Window && TheMouse().TimerWindow == grid.Window;
    if (IsKeyHeld(VK_LBUTTON) || !(HasCapture(grid) || timerRuns))
        return;
    DropMouseDrag(grid);
}

bool EndDragSelection(Grid& grid)
{
    StopDragTimer(grid);
    MouseState& mouse = TheMouse();
    if (HasCapture(grid) && mouse.Kind == SelectKind::Cells && !mouse.PressTaken) {
        if (grid.SelectionMode == lorvSelectionListBox)
            SetRowsSelected(grid, grid.Row, grid.RowSel, (grid.PaintMode & PaintListDragAdds) != 0, false);
        ShowFarCorner(grid);
    }
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListDragAdds);
    mouse.Kind = SelectKind::Cells;
    return !mouse.PressTaken;
}

void StopDragTimer(Grid& grid)
{
    MouseState& mouse = TheMouse();
    if (!grid.Window || mouse.TimerWindow != grid.Window)
        return;
    KillTimer(grid.Window, DragTimer);
    mouse.TimerWindow = nullptr;
}

bool DropMouseDrag(Grid& grid)
{
    StopDragTimer(grid);
    ForgetPress(grid);
    if (!HasCapture(grid))
        return false;
    ReleaseCapture();
    return true;
}

// Windows that come up while a handler runs take the mouse away.
bool OnCaptureChanged(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    if (reinterpret_cast<HWND>(lParam) != grid.Window) {
        StopDragTimer(grid);
        ForgetPress(grid);
    }
    return false;
}

bool OnDragTimer(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    POINT point = {};
    if (wParam != DragTimer)
        return false;
    if (GetCursorPos(&point) && ScreenToClient(grid.Window, &point))
        UpdateMouseZone(grid, point);
    return true;
}
