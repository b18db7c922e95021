#pragma once

#include "core/grid_object.h"

// Whether the row shows as selected in a list box, a drag that is under way included.
bool IsRowSelected(const Grid& grid, int row) noexcept;
