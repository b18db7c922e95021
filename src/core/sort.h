#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

// Sorts the rows of a range by its columns in a SortSettings order. LORV_E_VALUE, LORV_E_INDEX.
HRESULT SortRange(Grid& grid, int order, int row1, int row2, int col1, int col2);
