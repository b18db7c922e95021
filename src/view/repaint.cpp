#include "core/upcalls.h"
#include "view/metrics.h"

void RepaintGrid(Grid& grid)
{
    if (grid.Window)
        InvalidateRect(grid.Window, nullptr, FALSE);
    else
        RepaintThroughSite(grid);
}

void RepaintCell(Grid& grid, int row, int col)
{
    if (grid.Redraw == lorvRDNone || !grid.Window)
        return;
    if (MergesAtAll(grid) && HasOption(grid, OptionMergeStale)) {
        InvalidateRect(grid.Window, nullptr, FALSE);
        return;
    }
    RECT cell = CellRect(grid, row, col);
    InvalidateRect(grid.Window, &cell, FALSE);
}

void RepaintSelection(Grid& grid)
{
    RepaintGrid(grid);
}
