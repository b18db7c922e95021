#pragma once
// The wheel of the mouse.

#include "core/grid_object.h"

// The registered message by which the first wheel mice report: a wheel message like any other.
UINT WheelMessage() noexcept;

// WM_MOUSEWHEEL and WheelMessage: scrolls the rows by whole notches.
bool OnMouseWheel(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);
