#pragma once

#include "core/cell_pos.h"
#include "core/grid_object.h"

// The cells that are selected, ordered: from the current cell to the other corner, widened to whole rows or
// columns where the grid selects those. Without a current cell the range begins at -1; it is empty (a
// first corner past the second) when whole rows or columns have no scrollable cell.
inline CellRange SelectionRange(const Grid& grid) noexcept
{
    CellRange range(grid.Row, grid.Col, grid.RowSel, grid.ColSel);
    switch (grid.SelectionMode) {
    case lorvSelectionByRow:
    case lorvSelectionListBox:
        range.Col1 = grid.FixedCols;
        range.Col2 = grid.Cols - 1;
        break;
    case lorvSelectionByColumn:
        range.Row1 = grid.FixedRows;
        range.Row2 = grid.Rows - 1;
        break;
    default:
        break;
    }
    return range;
}
