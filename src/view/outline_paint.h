#pragma once

#include "core/grid_object.h"

// Draws the tree of a cell of the outline column, or the level buttons in its header. Returns the pixels
// taken at the leading edge.
int PaintOutlineTree(Grid& grid, HDC dc, int row, int col, const RECT& rectangle);
