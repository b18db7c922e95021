#pragma once

#include "core/grid_object.h"

// Runs the drag that resizes the row or column whose line is under the pointer; false when there is none.
// `point`: where the press was.
bool RunResizeGesture(Grid& grid, POINT point);
// Runs the drag of the line that ends the frozen rows or columns; false when the pointer is not on it, or a
// running edit does not end.
bool RunFreezeGesture(Grid& grid, POINT point);
