#pragma once
// Merged cells are derived: neighbours with equal content join into one, as four link bits per cell say.
// The bits are a cache, rebuilt as a whole when they are asked for and stale, and nowhere else.

#include "core/cell_pos.h"
#include "core/grid_object.h"

// Brings the links up to date. Nothing happens without a merge mode or while Redraw is off.
void RebuildMergeLinks(Grid& grid);
// Rebuilds since the process started. For tests: writes of data must not cause any.
long MergeRebuilds() noexcept;

// The range that the cell is part of by the links of its own row and column; the cell itself without any.
CellRange MergedRangeOf(const Grid& grid, int row, int col) noexcept;
// Widens the sides of a cell's rectangle to its merged range, cut to the scrolled area. False, and nothing
// done, for a cell that is not merged. `client` bounds the right and bottom edges.
bool MergedPaintRect(Grid& grid, int row, int col, RECT& rectangle, const RECT& client);

// Whether two neighbours join, the modes and permissions aside.
bool CanMerge(Grid& grid, CellPos first, CellPos second);

// Whether the cells of the row join across columns.
bool RowMerges(const Grid& grid, int row) noexcept;

inline uint8_t MergeLinksOf(const Grid& grid, int row, int col) noexcept
{
    const CellRecord* cells = grid.RowTable[row].Cells;
    return cells ? cells[col].State & MergeLinkMask : 0;
}
