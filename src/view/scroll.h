#pragma once
// What is on screen, and the scroll position.

#include "core/grid_object.h"

// Whether the cell's top left corner is within the client area; -1 leaves the row or the column out. A cell
// that is partly visible counts as visible, and so does a hidden row between visible ones.
bool IsCellVisible(const Grid& grid, int row, int col);
