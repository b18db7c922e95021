#pragma once
// Which cells show as one. The links between them are bits of the cells, derived as a whole from texts and
// settings whenever something asks for them while they are out of date.

#include "core/cell_pos.h"
#include "core/grid_object.h"

// Derives all links anew. Does nothing while nothing merges or nothing is redrawn.
void RebuildMergeLinks(Grid& grid);
// The cells that show as one with this one. No range check.
CellRange MergedRangeOf(const Grid& grid, int row, int col) noexcept;
// Widens the sides of a cell's rectangle to its merged range, cut to the scrolled area. False, and nothing
// done, for a cell that is not merged. `client` bounds the right and bottom edges.
bool MergedPaintRect(Grid& grid, int row, int col, RECT& rectangle, const RECT& client);
