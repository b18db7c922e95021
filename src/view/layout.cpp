#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "view/metrics.h"
#include "view/scroll.h"
#include "view/scroll_bar.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
// One layout at a time in the whole process: a handler of a scroll event that changes any grid finds that
// grid's layout left as it is.
struct LayoutState {
    bool Running;
};
LayoutState layoutState;

class LayoutGuard
{
public:
    LayoutGuard() noexcept { layoutState.Running = true; }
    LayoutGuard(const LayoutGuard&) = delete;
    LayoutGuard& operator=(const LayoutGuard&) = delete;
    ~LayoutGuard() { layoutState.Running = false; }
};

// One axis of a layout under way. Lengths are pixels.
struct AxisLayout {
    const SheetAxis& Axis;
    int Available; // client length, what the other axis's bar takes off
    int Total;
    int Frozen;
    bool BarOn;
};

AxisLayout Measure(const Grid& grid, const SheetAxis& axis, int client)
{
    return {axis, client, SumLengths(grid, axis, 0, grid.*axis.Count), FrozenLength(grid, axis), false};
}

int BarThickness(const AxisLayout& layout) noexcept
{
    return GetSystemMetrics(layout.Axis.BarMetric);
}

void TurnBarOn(AxisLayout& layout, AxisLayout& other) noexcept
{
    layout.BarOn = true;
    other.Available -= BarThickness(layout);
}

bool NeedsBar(const Grid& grid, const AxisLayout& layout) noexcept
{
    return (grid.ScrollBars & layout.Axis.Offered) && layout.Total > layout.Available;
}

void DecideBars(const Grid& grid, AxisLayout& rows, AxisLayout& cols) noexcept
{
    if (NeedsBar(grid, rows))
        TurnBarOn(rows, cols);
    if (!NeedsBar(grid, cols))
        return;
    TurnBarOn(cols, rows);
    if (!rows.BarOn && NeedsBar(grid, rows))
        TurnBarOn(rows, cols);
}

int LastFirst(const Grid& grid, const AxisLayout& layout)
{
    const SheetAxis& axis = layout.Axis;
    int frozenEnd = FrozenEnd(grid, axis), last = grid.*axis.Count - 1;
    int64_t room = int64_t{layout.Available} - layout.Frozen;
    int index = last;
    for (; index >= frozenEnd; --index) {
        room -= axis.LengthOf(grid, index);
        if (room < 0)
            break;
    }
    return std::max(index == last ? index : index + 1, frozenEnd);
}

// A bar that could not move anything goes again; the other axis has its room back, but is not measured anew.
void SetLastFirst(Grid& grid, AxisLayout& layout, AxisLayout& other)
{
    int last = LastFirst(grid, layout);
    grid.*layout.Axis.MaxFirst = last;
    if (!layout.BarOn || last > FrozenEnd(grid, layout.Axis))
        return;
    layout.BarOn = false;
    other.Available += BarThickness(layout);
}

void WriteRange(const Grid& grid, const AxisLayout& layout) noexcept
{
    SCROLLINFO info = {sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, 0, 0, 0, 0};
    if (layout.BarOn) {
        info.nMin = layout.Frozen;
        info.nMax = layout.Total;
        info.nPage = static_cast<UINT>(std::max(layout.Available - layout.Frozen, 0));
    }
    SetScrollInfo(grid.Window, layout.Axis.Bar, &info, FALSE);
    if (!layout.BarOn)
        ShowScrollBar(grid.Window, layout.Axis.Bar, FALSE);
}

// The length of the window with its bar, which the client area leaves out.
int LengthWithBar(const Grid& grid, const SheetAxis& axis, const SheetAxis& other) noexcept
{
    RECT client = {};
    GetClientRect(grid.Window, &client);
    ScrollBarState bar = ReadScrollBar(grid, other);
    bool shown = bar.Exists && bar.Info.nMax > bar.Info.nMin;
    return client.*axis.Far + (shown ? GetSystemMetrics(other.BarMetric) : 0);
}

void LayOutBars(Grid& grid)
{
    AxisLayout rows = Measure(grid, RowAxis, LengthWithBar(grid, RowAxis, ColAxis));
    AxisLayout cols = Measure(grid, ColAxis, LengthWithBar(grid, ColAxis, RowAxis));
    DecideBars(grid, rows, cols);
    SetLastFirst(grid, rows, cols);
    SetLastFirst(grid, cols, rows);
    WriteRange(grid, rows);
    WriteRange(grid, cols);
}

int Capped(const Grid& grid, const SheetAxis& axis) noexcept
{
    int first = grid.*axis.First, most = grid.*axis.MaxFirst;
    return first > most ? std::max(most, FrozenEnd(grid, axis)) : first;
}

// Stores a position that has to change. A handler may have taken rows and columns away.
void MoveFirst(Grid& grid, const SheetAxis& axis, int from, int to) noexcept
{
    if (to != from)
        grid.*axis.First = std::max(std::min(to, grid.*axis.Count), FrozenEnd(grid, axis));
}

// Whether the positions are those that the tables and bars allow. False: a handler refused, and they stay.
bool BringPositionsInside(Grid& grid)
{
    int oldTop = grid.TopRow, oldLeft = grid.LeftCol;
    int top = Capped(grid, RowAxis), left = Capped(grid, ColAxis);
    if (top == oldTop && left == oldLeft)
        return true;
    if (event::BeforeScroll(grid, oldTop, oldLeft, top, left))
        return false;
    MoveFirst(grid, RowAxis, oldTop, top);
    MoveFirst(grid, ColAxis, oldLeft, left);
    return true;
}
} // namespace

// Every step sums lengths from the start. Hosts that change many lengths turn Redraw off, which skips all of
// this until it is on again.
void RecalculateLayout(Grid& grid)
{
    KeepAlive alive(grid);
    if (layoutState.Running || grid.Redraw == lorvRDNone || !grid.Window || IsDesignMode(grid))
        return;
    LayoutGuard guard;
    int top = grid.TopRow, left = grid.LeftCol;
    LayOutBars(grid); // may resize the client area, which the host hears of
    if (!grid.Window || !BringPositionsInside(grid) || !grid.Window)
        return;
    WriteScrollPosition(grid, RowAxis);
    WriteScrollPosition(grid, ColAxis);
    PlaceEditorWindow(grid);
    if (grid.TopRow != top || grid.LeftCol != left)
        event::AfterScroll(grid, top, left, grid.TopRow, grid.LeftCol);
}
