#pragma once

#include "core/grid_object.h"

// The rectangle of a cell without the grid lines at its sides, so that an editor does not cover them.
RECT InsideGridLines(const Grid& grid, const RECT& cell) noexcept;
