#include "view/gesture.h"

#include "core/events.h"
#include "view/mouse_state.h"

namespace
{
// Milliseconds between two looks at whether the mouse is still ours, and two steps of a gesture at rest.
constexpr DWORD RestPeriod = 50;

bool IsMouseMessage(const MSG& message) noexcept
{
    return message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
}

bool IsKeyMessage(const MSG& message) noexcept
{
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

bool IsEscape(const MSG& message) noexcept
{
    return message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
}

// What lies between keys and mouse in the order of messages, and the mouse over other windows, goes its way.
bool IsForOthers(const MSG& message, HWND window) noexcept
{
    return IsMouseMessage(message) ? message.hwnd != window : !IsKeyMessage(message);
}

GestureEnd PumpGesture(Grid& grid, Gesture& gesture)
{
    HWND window = grid.Window;
    while (grid.Window == window && GetCapture() == window) {
        MSG message = {};
        if (!PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_MOUSELAST, PM_REMOVE)) {
            gesture.Rest();
            MsgWaitForMultipleObjects(0, nullptr, FALSE, RestPeriod,
                                      QS_INPUT | QS_POSTMESSAGE | QS_TIMER | QS_SENDMESSAGE);
        } else if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // it is the host's
            return GestureEnd::Lost;
        } else if (IsEscape(message)) {
            return GestureEnd::Cancelled;
        } else if (IsForOthers(message, window)) {
            DispatchMessageW(&message);
        } else if (message.message == WM_MOUSEMOVE) {
            gesture.MoveTo(PointOf(message.lParam));
        } else if (message.message == WM_LBUTTONUP) {
            return GestureEnd::Released;
        }
    }
    return GestureEnd::Lost;
}
} // namespace

GestureEnd RunGesture(Grid& grid, Gesture& gesture)
{
    KeepAlive alive(grid);
    if (!grid.Window)
        return GestureEnd::Lost;
    TheMouse().PressTaken = true;
    SetCapture(grid.Window);
    GestureEnd end = PumpGesture(grid, gesture);
    if (HasCapture(grid))
        ReleaseCapture();
    return end;
}
