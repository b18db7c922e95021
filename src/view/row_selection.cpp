#include "core/upcalls.h"
#include "view/messages.h"
#include "view/metrics.h"
#include "view/selection.h"

#include <algorithm>

bool IsRowSelected(const Grid& grid, int row) noexcept
{
    bool list = grid.SelectionMode == lorvSelectionListBox;
    bool flagged = (grid.RowTable[row].Flags & RowFlagSelected) != 0;
    if (list && grid.ActiveEditor != 0)
        return flagged || row == grid.Row;
    bool dragged = row >= std::min(grid.Row, grid.RowSel) && row <= std::max(grid.Row, grid.RowSel);
    if ((grid.PaintMode & PaintMouseHeld) && dragged)
        return !list || (grid.PaintMode & PaintListDragAdds);
    return flagged;
}

bool SetRowSelected(Grid& grid, int row, bool selected)
{
    uint8_t& flags = grid.RowTable[row].Flags;
    if (((flags & RowFlagSelected) != 0) == selected)
        return false;
    flags ^= RowFlagSelected;
    if (grid.Window) {
        RECT band = ClientRectOf(grid);
        band.top = RowY(grid, row);
        band.bottom = band.top + EffectiveRowHeight(grid, row);
        InvalidateRect(grid.Window, &band, FALSE);
    }
    return true;
}

bool SetRowsSelected(Grid& grid, int first, int last, bool selected, bool clearOthers)
{
    if (first > last)
        std::swap(first, last);
    bool changed = false;
    for (int row = 0; clearOthers && row < grid.Rows; ++row)
        if (row < first || row > last)
            changed |= SetRowSelected(grid, row, false);
    for (int row = std::max(first, 0); row <= last && row < grid.Rows; ++row)
        changed |= SetRowSelected(grid, row, selected);
    return changed;
}

namespace
{
// The message queue itself sees to it that a burst of moves is reported once.
void PostReport(const Grid& grid) noexcept
{
    MSG waiting = {};
    if (grid.Window &&
        !PeekMessageW(&waiting, grid.Window, MessageReportSelection, MessageReportSelection, PM_NOREMOVE))
        PostMessageW(grid.Window, MessageReportSelection, 0, 0);
}
} // namespace

void ReportListChange(Grid& grid, bool changed)
{
    if (!changed)
        return;
    grid.PaintMode |= PaintListChanged;
    PostReport(grid);
}

void ReportSelection(Grid& grid)
{
    if (grid.SelectionMode == lorvSelectionListBox)
        PostReport(grid);
    else
        FireSelectionEvents(grid);
}
