#pragma once
// The lines around cells.

#include "core/grid_object.h"

// Which edges of a rectangle a line follows.
enum class EdgeShape { Left, Top, Right, Bottom, LeftTop, BottomRight };

// Draws with the pen of the context, along the pixels inside the rectangle.
void DrawEdgeLines(HDC dc, const RECT& rectangle, EdgeShape shape) noexcept;

// The lines of one cell in the grid's style, and the boundary of the frozen area. A negative row and column
// draw the border of the sheet. GridPen is selected afterwards.
void PaintCellLines(Grid& grid, HDC dc, int row, int col, const RECT& rectangle);
