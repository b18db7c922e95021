#pragma once
// Where rows, columns and cells lie, in device pixels of the client area. Nothing is cached: positions are
// sums of heights and widths up to the scroll position.

#include "core/grid_object.h"
#include "core/upcalls.h" // EffectiveRowHeight, EffectiveColWidth, RowY, ColX, CellRect

// The client rectangle of the window; without one, a rectangle of the control's extent.
RECT ClientRectOf(const Grid& grid) noexcept;
// Whether the column is stretched to the edge of the client area by ExtendLastCol.
bool IsLastVisibleCol(const Grid& grid, int col) noexcept;
// As CellRect, with `client` in the place of the window's client rectangle.
RECT CellRectIn(Grid& grid, int row, int col, const RECT& client);
// The rectangle of the cell alone, whatever it is merged with and wherever the last column is stretched to.
RECT CellPixelRect(Grid& grid, int row, int col);
