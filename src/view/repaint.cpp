#include "core/upcalls.h"
#include "view/metrics.h"
#include "view/scroll.h"

namespace
{
void RepaintOpenEditor(const Grid& grid, int row, int col)
{
    if (grid.ActiveEditor == 0 || row != grid.EditRow || col != grid.EditCol)
        return;
    if (HWND editor = OpenEditorWindow(grid))
        InvalidateRect(editor, nullptr, TRUE);
}
} // namespace

void RepaintGrid(Grid& grid)
{
    if (grid.Window)
        InvalidateRect(grid.Window, nullptr, FALSE);
    else
        RepaintThroughSite(grid);
}

void RepaintCell(Grid& grid, int row, int col)
{
    if (grid.Redraw == lorvRDNone)
        return;
    bool merges = MergesAtAll(grid);
    // Without a window the site is asked for all of it anyway, and looking whether the cell is in view could
    // go over every row: before the first site has given the grid its font, rows have no height.
    if (!merges && grid.Window && !IsCellVisible(grid, row, col))
        return;
    // Any merged range can have changed its shape.
    if (!grid.Window || (merges && HasOption(grid, OptionMergeStale))) {
        RepaintGrid(grid);
    } else {
        RECT cell = CellRect(grid, row, col);
        InvalidateRect(grid.Window, &cell, FALSE);
    }
    RepaintOpenEditor(grid, row, col);
}
