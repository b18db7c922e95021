#pragma once
// Drawing the grid.

#include "core/grid_object.h"

// What to draw on, and where: `Target` is the device that text is measured for, on a screen the same.
struct DrawInfo {
    HDC Context;
    HDC Target;
    RECT Bounds; // device pixels; in a metafile, its logical units
};

void OnDraw(Grid& grid, const DrawInfo& info);
