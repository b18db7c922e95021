// The top-level window around the control.
#pragma once

#include "container.h"
#include "run_state.h"

// Creates the window, not yet shown, with a client area of the given size in pixels. It keeps the
// container's control in its client area, and closing it ends the run.
HWND CreateFrameWindow(const wchar_t* title, int width, int height, Container& container, RunState& state);

void ResizeClientArea(HWND frame, int width, int height);
