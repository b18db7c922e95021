#pragma once
// Check boxes of cells: where they are and how they look. Mouse, measuring and painting agree through here.

#include "view/cell_background.h"

// The box of a cell, in the cell's coordinates; `cell` null: the cell's rectangle in the client area.
RECT CheckBoxRect(Grid& grid, int row, int col, const RECT* cell = nullptr);

// Draws the box if the cell has one.
void DrawCheckBox(Grid& grid, HDC dc, const PaintedCell& cell);

// A boolean column shows its values as boxes, except in fixed rows and where a format gives them words.
inline bool IsBooleanCell(const Grid& grid, int row, int col) noexcept
{
    return grid.ColTable[col].ColDataType == lorvDTBoolean && row >= grid.FixedRows;
}
