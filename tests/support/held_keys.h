#pragma once

#include <windows.h>

#include <initializer_list>

// Holds keys and mouse buttons down, for the thread of the test, for the length of a scope. All others are
// up.
class HeldKeys
{
public:
    HeldKeys(std::initializer_list<int> keys)
    {
        GetKeyboardState(before_);
        BYTE state[256] = {};
        for (int key : keys)
            state[key] = 0x80;
        SetKeyboardState(state);
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { SetKeyboardState(before_); }

private:
    BYTE before_[256] = {};
};
