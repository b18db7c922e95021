#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

// Borders around a range and between its cells: widths in pixels, at most 255; a negative width leaves those
// lines as they are.
struct CellBorders {
    OLE_COLOR Color;
    int Left, Top, Right, Bottom;
    int Vertical, Horizontal; // between the cells
};

// The corners are taken as they come: where the first lies past the second there is nothing to draw.
// LORV_E_INDEX or LORV_E_MEMORY.
HRESULT SetCellBorders(Grid& grid, int row1, int col1, int row2, int col2, const CellBorders& borders);
