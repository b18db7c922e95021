#include "view/scroll_bar.h"

ScrollBarState ReadScrollBar(const Grid& grid, const SheetAxis& axis) noexcept
{
    ScrollBarState bar = {{sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0}, false};
    bar.Exists = GetScrollInfo(grid.Window, axis.Bar, &bar.Info) != FALSE;
    return bar;
}

void PutScrollPosition(const Grid& grid, const SheetAxis& axis, int position)
{
    SCROLLINFO info = {sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, position, 0};
    SetScrollInfo(grid.Window, axis.Bar, &info, grid.Redraw != lorvRDNone);
}

void WriteScrollPosition(const Grid& grid, const SheetAxis& axis)
{
    ScrollBarState bar = ReadScrollBar(grid, axis);
    int first = grid.*axis.First;
    int position = SumLengths(grid, axis, 0, first);
    if (first == grid.*axis.MaxFirst)
        position = bar.Info.nMax;
    else if (first == FrozenEnd(grid, axis))
        position = bar.Info.nMin;
    if (IsMirrored(grid, axis))
        position = MirroredPosition(bar.Info, position);
    PutScrollPosition(grid, axis, position);
}
