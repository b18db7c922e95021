#pragma once

#include "core/cell_pos.h"
#include "core/grid_object.h"

// A press on the button of the current cell: it is tracked, and a click begins an edit. False when the press
// is not on it.
bool PressCellButton(Grid& grid, POINT point, CellPos hit);
