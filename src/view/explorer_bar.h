#pragma once

#include "core/cell_pos.h"
#include "core/grid_object.h"

// What a press on a header does under ExplorerBar: a click sorts, a drag moves the column or the row. False
// when the press is not the explorer bar's.
bool ClickExplorerBar(Grid& grid, POINT point, CellPos hit);
