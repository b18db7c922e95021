#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

// What `FormatString` sets: keeps the text and applies it. LORV_E_MEMORY, or the code of a resize that
// failed.
HRESULT SetFormatString(Grid& grid, const wchar_t* text);
// Reads the text into columns, titles and widths. What it cannot read it passes over. At design time the grid
// is emptied first; at run time a format adds to what is there.
HRESULT ApplyFormatString(Grid& grid);
