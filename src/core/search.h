#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

struct FindOptions {
    int Row = 0;  // first row to look at; rows below 0 are passed over
    int Col = -1; // below 0: RowData
    bool CaseSensitive = true;
    bool FullMatch = true; // otherwise the beginning of the cell
};

// The first row whose text or RowData matches `item`, -1 when there is none or `item` is no text.
// LORV_E_INDEX: no such column.
HRESULT FindRow(Grid& grid, const VARIANT& item, const FindOptions& options, int& found);

// The same with a regular expression of the system's script engine. A row outside the grid means the first
// scrollable one. LORV_E_INDEX: no such column; other failures are the engine's.
HRESULT FindRowRegex(Grid& grid, BSTR pattern, int row, int col, int& found);

// Ends the search by typing that runs, and reports that. Nothing happens when none does.
void EndAutoSearch(Grid& grid);

// Whether two values of one type are the same; values of different types never are.
bool CompareVariants(const VARIANT& item, const VARIANT& value, bool caseSensitive, bool fullMatch) noexcept;
