#pragma once
// The keys and buttons that are held, as the message being handled sees them.

#include <windows.h>

inline bool IsKeyHeld(int key) noexcept
{
    return GetKeyState(key) < 0;
}

// The `Shift` argument of key and mouse events: Shift = 1, Ctrl = 2, Alt = 4.
inline short HeldModifiers() noexcept
{
    return static_cast<short>((IsKeyHeld(VK_SHIFT) ? 1 : 0) | (IsKeyHeld(VK_CONTROL) ? 2 : 0) |
                              (IsKeyHeld(VK_MENU) ? 4 : 0));
}
