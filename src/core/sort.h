#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

// Sorts the rows between two subtotal rows, each such stretch by itself. The corners need not be ordered.
// LORV_E_VALUE: no such order, or a comparison that failed (rows moved until then stay moved);
// LORV_E_INDEX: outside the grid.
HRESULT SortRange(Grid& grid, int order, int row1, int row2, int col1, int col2);

// The `Sort` property's setter: the selected rows, or every scrollable row when that is one row.
HRESULT SortSelection(Grid& grid, int order);

// Sort keys made since the process started. For measuring.
long SortKeysMade() noexcept;
