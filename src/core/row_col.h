#pragma once
// The two tables as a whole: their sizes and the fixed and frozen counts.

#include "core/errors.h"
#include "core/grid_object.h"

// Each returns 0, LORV_E_VALUE for a negative count, or LORV_E_MEMORY with the count as it was.
HRESULT ResizeRows(Grid& grid, int count);
HRESULT ResizeCols(Grid& grid, int count);
// Shrinks first, then grows.
HRESULT ResizeBoth(Grid& grid, int rows, int cols);

// For a caller that adds rows one after the other: makes room ahead for `count` rows, if there is memory, and
// in the end gives back what is not used.
void ReserveRows(Grid& grid, int count) noexcept;
void TrimRows(Grid& grid) noexcept;

// Sets the counts that are not negative; a frozen count that does not fit becomes 0.
void SetFixedCounts(Grid& grid, int fixedRows, int fixedCols, int frozenRows, int frozenCols);

// A record as a table holds it when nothing was set.
void InitializeRow(RowRecord& record) noexcept;
void InitializeCol(ColRecord& record) noexcept;
