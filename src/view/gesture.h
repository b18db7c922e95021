#pragma once
// Gestures that hold the mouse in a message loop of their own, from the press to the release.

#include "core/grid_object.h"

class Gesture
{
public:
    // The pointer, in client pixels. Whatever fires from here may take the window away.
    virtual void MoveTo(POINT point) = 0;
    // Nothing has come for a while.
    virtual void Rest() {}

protected:
    ~Gesture() = default;
};

// Lost: something took the mouse or the window away. Only a release lets a gesture take effect.
enum class GestureEnd { Released, Cancelled, Lost };

// Takes the mouse and runs its messages and those of the keyboard until the left button is released, Escape
// is pressed or the mouse is lost. Other keys and buttons are dropped. The mouse is free again afterwards.
GestureEnd RunGesture(Grid& grid, Gesture& gesture);

inline POINT PointOf(LPARAM position) noexcept
{
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}
