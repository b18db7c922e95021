#pragma once
// A grid as text that other programs read.

#include "core/errors.h"
#include "core/grid_object.h"
#include "files/byte_stream.h"

enum DelimitedFlag : unsigned {
    DelimitedIncludeFixed = 1, // fixed rows and columns too
    DelimitedVisibleOnly = 2,  // hidden rows and columns are left out
    DelimitedUtf16 = 4,
};

// `kind`: a SaveLoadSettings of text, `flags`: DelimitedFlag. Writes what the cells show. LORV_E_CANNOTWRITE
// when the target takes no more, E_OUTOFMEMORY.
HRESULT SaveDelimitedText(Grid& grid, ByteWriter& target, int kind, unsigned flags);

// Reads from where the source stands. The grid grows as it must. LORV_E_MEMORY, E_OUTOFMEMORY.
HRESULT LoadDelimitedText(Grid& grid, ByteReader& source, int kind, unsigned flags);
