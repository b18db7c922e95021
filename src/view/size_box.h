#pragma once
// The corner between the two scroll bars.

#include "core/grid_object.h"

// WM_NCPAINT. The system draws a themed window's corner at the right, where a mirrored grid has none.
bool OnFramePaint(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);
