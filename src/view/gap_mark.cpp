#include "view/gap_mark.h"

#include "view/metrics.h"
#include "view/mouse_state.h"
#include "view/resources.h"
#include "view/scroll_bar.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int HalfMark = 2; // pixels on each side of the gap

// `at`: pixels from the edge that the axis starts at.
int GapAt(const Grid& grid, const SheetAxis& axis, int at)
{
    int count = grid.*axis.Count, frozenEnd = FrozenEnd(grid, axis);
    int64_t sum = 0;
    for (int index = 0; index < count; ++index) {
        if (index == frozenEnd)
            index = std::clamp(static_cast<int>(grid.*axis.First), index, count - 1);
        int length = axis.LengthOf(grid, index);
        if (index >= grid.*axis.Fixed && sum + length / 2 > at)
            return index;
        sum += length;
    }
    return count < 1 ? 0 : count;
}

// The mark runs across the client area. `gap` may be one past the last entry.
RECT MarkAt(const Grid& grid, const SheetAxis& axis, int gap)
{
    RECT mark = ClientRectOf(grid);
    int at = StartOf(grid, axis, gap);
    if (IsMirrored(grid, axis))
        at = mark.right - at;
    mark.*axis.Near = at - HalfMark;
    mark.*axis.Far = at + HalfMark;
    return mark;
}

void DrawMark(Grid& grid, HDC dc, const SheetAxis& axis, int gap)
{
    RECT mark = MarkAt(grid, axis, gap);
    RECT& last = TheMouse().GapMark;
    if (mark.*axis.Near != last.*axis.Near) {
        RECT old = std::exchange(last, mark);
        InvalidateRect(grid.Window, &old, FALSE);
        UpdateWindow(grid.Window);
    }
    FillRect(dc, &mark, PatternBrush());
}

void EraseMark(const Grid& grid)
{
    RECT old = std::exchange(TheMouse().GapMark, RECT{});
    if (grid.Window)
        InvalidateRect(grid.Window, &old, TRUE);
}
} // namespace

int ColumnGapAt(const Grid& grid, int x)
{
    return GapAt(grid, ColAxis, IsMirrored(grid, ColAxis) ? ClientRectOf(grid).right - x : x);
}

int RowGapAt(const Grid& grid, int y)
{
    return GapAt(grid, RowAxis, y);
}

void DrawColumnGapMark(Grid& grid, HDC dc, int x, bool show)
{
    if (show)
        DrawMark(grid, dc, ColAxis, ColumnGapAt(grid, x));
    else
        EraseMark(grid);
}

void DrawRowGapMark(Grid& grid, HDC dc, int y, bool show)
{
    if (show)
        DrawMark(grid, dc, RowAxis, RowGapAt(grid, y));
    else
        EraseMark(grid);
}
