#pragma once
// The gap between two columns or two rows where a dragged one would go.

#include "view/sheet_axis.h"

// The column or row before which the gap at the pointer lies: over the first half of a column that column,
// over its second half the next one; the count behind the last one. Fixed entries have no gap before them.
int ColumnGapAt(const Grid& grid, int x);
int RowGapAt(const Grid& grid, int y);

// Draws the mark of the gap at the pointer, or takes it off the screen. Painting what was under the last mark
// may fire events.
void DrawColumnGapMark(Grid& grid, HDC dc, int x, bool show);
void DrawRowGapMark(Grid& grid, HDC dc, int y, bool show);
