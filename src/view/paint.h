#pragma once
// One paint of the grid, from the draw entry down to the bands of rows.

#include "core/grid_object.h"

// What a draw is asked to do. The two contexts are the same for a draw on the screen; they differ when a
// host renders the control for another device, whose information context the target then is.
struct DrawInfo {
    HDC Context;
    HDC Target;
    RECT Bounds;
};

// The single draw entry, for the paint message and for hosts. Fires events; painting never fails outward.
void OnDraw(Grid& grid, const DrawInfo& info);

// Paints the sheet into `bounds`; `clip`, when not null, is what has to be painted of it.
void PaintGrid(Grid& grid, HDC dc, RECT bounds, const RECT* clip);

// Paints the rows from `first` up to `end`. `cursor` is the last cell's rectangle: each row starts under it,
// and afterwards it ends where the sheet ends.
void PaintBand(Grid& grid, HDC dc, const RECT& bounds, const RECT* clip, RECT& cursor, int first, int end);

// Draws since the process started. For tests.
long DrawCount() noexcept;
