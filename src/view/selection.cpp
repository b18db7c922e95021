#include "view/selection.h"

#include "core/errors.h"
#include "core/events.h"
#include "core/upcalls.h"

#include <algorithm>

bool IsRowSelected(const Grid& grid, int row) noexcept
{
    bool list = grid.SelectionMode == lorvSelectionListBox;
    if (list && grid.ActiveEditor != 0 && row == grid.Row)
        return true;
    bool dragged = row >= std::min(grid.Row, grid.RowSel) && row <= std::max(grid.Row, grid.RowSel);
    if ((grid.PaintMode & PaintMouseHeld) && dragged)
        return !list || (grid.PaintMode & PaintListDragAdds);
    return (grid.RowTable[row].Flags & RowFlagSelected) != 0;
}

void FireSelectionEvents(Grid& grid)
{
    bool cellMoved = grid.LastRow != grid.Row || grid.LastCol != grid.Col;
    bool selectionMoved = grid.LastRowSel != grid.RowSel || grid.LastColSel != grid.ColSel;
    grid.LastRow = grid.Row, grid.LastCol = grid.Col;
    grid.LastRowSel = grid.RowSel, grid.LastColSel = grid.ColSel;
    (void)cellMoved, (void)selectionMoved;
}

HRESULT MoveCursor(Grid& grid, int row, int col, int)
{
    if (row >= grid.Rows || col >= grid.Cols)
        return LORV_E_INDEX;
    if (row >= -1)
        grid.Row = grid.RowSel = row;
    if (col >= -1)
        grid.Col = grid.ColSel = col;
    FireSelectionEvents(grid);
    return S_OK;
}

HRESULT SetCurrentRow(Grid& grid, int row)
{
    if (row < -1 || row >= grid.Rows)
        return LORV_E_INDEX;
    return MoveCursor(grid, row, -2, 1);
}
