#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/gdi.h"
#include "view/gesture.h"
#include "view/hit_test.h"
#include "view/metrics.h"
#include "view/mouse_state.h"
#include "view/resize_gesture.h"
#include "view/resources.h"
#include "view/scroll.h"
#include "view/scroll_bar.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
constexpr int BarWidth = 2; // pixels

// A bar on the line that would end the frozen part if the button were released now.
class FreezeGesture final : public Gesture
{
public:
    FreezeGesture(Grid& grid, const SheetAxis& axis) : grid_(grid), axis_(axis), target_(grid.*axis.Fixed) {}

    void MoveTo(POINT point) override
    {
        SetCursor(GridCursorOf(IsRows() ? GridCursor::FreezeRows : GridCursor::FreezeCols));
        FindTarget(point);
        ShowBar();
    }

    int Target() const noexcept { return target_; }

private:
    bool IsRows() const noexcept { return axis_.Bar == SB_VERT; }

    bool IsPastMiddle(POINT point, const RECT& cell) const noexcept
    {
        if (IsRows())
            return point.y > (cell.top + cell.bottom) / 2;
        int middle = (cell.left + cell.right) / 2;
        return IsMirrored(grid_, axis_) ? point.x < middle : point.x > middle;
    }

    void FindTarget(POINT point)
    {
        CellPos hit = HitTest(grid_, point, false, false).Cell;
        if (!IsCell(grid_, hit.Row, hit.Col))
            return;
        int entry = IsRows() ? hit.Row : hit.Col;
        bool past = IsPastMiddle(point, CellRect(grid_, hit.Row, hit.Col));
        target_ = std::max(entry + (past ? 1 : 0), static_cast<int>(grid_.*axis_.Fixed));
    }

    RECT BarAtTarget() const
    {
        RECT bar = ClientRectOf(grid_);
        int at = StartOf(grid_, axis_, target_);
        if (IsMirrored(grid_, axis_))
            at = bar.right - at - BarWidth;
        bar.*axis_.Near = at;
        bar.*axis_.Far = at + BarWidth;
        return bar;
    }

    void ShowBar()
    {
        RECT bar = BarAtTarget();
        if (EqualRect(&bar, &bar_))
            return;
        HWND window = grid_.Window;
        InvalidateRect(window, &bar_, FALSE);
        UpdateWindow(window);
        if (grid_.Window != window) // painting fires events
            return;
        bar_ = bar;
        ClientDC dc(window);
        FillRect(dc.Get(), &bar_, PatternBrush());
    }

    Grid& grid_;
    const SheetAxis& axis_;
    int target_;
    RECT bar_ = {};
};

HRESULT SetFrozen(Grid& grid, const SheetAxis& axis, int count)
{
    return axis.Bar == SB_VERT ? SetFrozenRows(grid, count) : SetFrozenCols(grid, count);
}

// What is to be frozen is chosen among the first rows or columns.
void Unfreeze(Grid& grid, const SheetAxis& axis)
{
    SetFrozen(grid, axis, 0);
    if (grid.*axis.First != FrozenEnd(grid, axis))
        (axis.Bar == SB_VERT ? ScrollVertical : ScrollHorizontal)(grid, SB_TOP, 0, true);
    if (grid.Window)
        UpdateWindow(grid.Window);
}
} // namespace

// The frozen part is given up when the drag begins; a drag that is cancelled leaves it so.
bool RunFreezeGesture(Grid& grid, POINT point)
{
    MouseZone zone = ZoneOf(grid);
    if (zone != MouseZone::FreezeRows && zone != MouseZone::FreezeCols)
        return false;
    KeepAlive alive(grid);
    if (!CommitEdit(grid))
        return false;
    const SheetAxis& axis = zone == MouseZone::FreezeRows ? RowAxis : ColAxis;
    Unfreeze(grid, axis);
    FreezeGesture gesture(grid, axis);
    if (grid.Window)
        gesture.MoveTo(point);
    if (RunGesture(grid, gesture) == GestureEnd::Released) {
        SetFrozen(grid, axis, gesture.Target() - grid.*axis.Fixed);
        event::AfterUserFreeze(grid);
    }
    SetZone(grid, MouseZone::None);
    RecalculateLayout(grid);
    RepaintGrid(grid);
    return true;
}
