#pragma once

#include "core/grid_object.h"

// Makes the control's window, which is then `grid.Window`; null when that fails.
HWND CreateControlWindow(Grid& grid, HWND parent, const RECT& position);
// On the way out of the module.
void UnregisterControlWindowClass() noexcept;
