#pragma once

#include "core/grid_object.h"

// The number that a cell's text stands for: -1 or 0 in a scrollable cell of a boolean column whose text reads
// as True or False, else what TextToDouble makes of it; 0 without text. The cell must be in the grid.
double ValueOfCell(Grid& grid, int row, int col) noexcept;
