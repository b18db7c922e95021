#pragma once
// The keys that move the current cell and the selection.

#include "core/grid_object.h"

// Does what a navigation key does on the grid, with the modifiers that are held; any other key does nothing.
// An editor that a key leaves hands it on to here.
void NavigateKey(Grid& grid, int key);
