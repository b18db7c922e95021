#pragma once

#include "core/grid_object.h"

// Draws one cell, or the merged range that it is part of, into a rectangle; `bounds` (may be null) is the
// area that the whole sheet is painted into. A DrawCell or BeforeEdit handler may change anything, the end of
// the grid's window included; the cell is then left as it stands.
void PaintCell(Grid& grid, HDC dc, int row, int col, const RECT& rectangle, const RECT* bounds);
