#pragma once
// Check boxes of cells, as the user toggles them. A cell with a box never opens an editor.

#include "core/grid_object.h"

// Toggles the box of the cell to be edited, for the key that StartCellEdit got.
bool ToggleByKey(Grid& grid, int key);
// The state that the box of the cell being edited is about to get; lorvNoCheckbox for none.
int NextCheckState(Grid& grid);
