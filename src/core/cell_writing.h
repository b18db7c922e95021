#pragma once

#include "core/cell_pos.h"
#include "core/errors.h"
#include "core/grid_object.h"

// What `Cell` writes: a CellPropertySettings of every cell of a range, from whatever a host gave as its
// value. What should be a number and is none counts as 0. LORV_E_VALUE for a setting that cannot be
// written or a value that does not suit it, otherwise the code of the first cell that failed.
HRESULT WriteCell(Grid& grid, int setting, const CellRange& range, const VARIANT& value);
