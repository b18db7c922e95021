#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

constexpr unsigned CellSettingCount = lorvcpSort + 1;

// What `Cell` reads: a CellPropertySettings of the first cell, or, for lorvcpText, the clip string of the
// range. The cells lie in the grid. `result` comes as a cleared variant. LORV_E_VALUE for a setting that
// cannot be read, E_OUTOFMEMORY.
HRESULT ReadCell(Grid& grid, int setting, int row1, int col1, int row2, int col2, VARIANT& result);
