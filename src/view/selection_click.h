#pragma once

#include "core/grid_object.h"

// What a press on cells selects, by the cell under the point, the mode and the modifiers held. False when
// there is nothing to select there.
bool SelectionClick(Grid& grid, POINT point);
