#pragma once

#include "core/grid_object.h"

// The hook of test tools: on a machine that asks for it, a grid with a window is found in the running
// object table by the window's handle. Elsewhere both do nothing, and failures are silent.
void RegisterRunningObject(Grid& grid);
void RevokeRunningObject(Grid& grid);
