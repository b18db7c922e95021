#pragma once

#include "core/grid_object.h"

// The `MousePointer` property's setter, for a value that is one of MousePointerSettings.
void SetMousePointer(Grid& grid, int pointer);
