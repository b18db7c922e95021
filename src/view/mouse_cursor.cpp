#include "core/grid_object.h"
#include "core/upcalls.h"

// Asks the window as the system does when the mouse moves, so that a new pointer shows while it rests.
void RefreshMouseCursor(Grid& grid)
{
    HWND window = grid.Window;
    POINT at = {};
    if (!window || !GetCursorPos(&at))
        return;
    LRESULT hit = SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    if (IsWindow(window))
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(hit, WM_MOUSEMOVE));
}
