// Plays real mouse and keyboard input into the session.
#pragma once

#include "container.h"
#include "key_text.h"
#include "run_state.h"
#include <string>
#include <vector>
#include <windows.h>

// Collects steps, then plays them from a thread of its own while the caller pumps messages: the
// control may run a loop of its own between the press and the release of a button, and nothing of the
// host runs then.
class InputPlayer
{
public:
    void MoveTo(POINT screen);
    void Button(int button, bool down); // 1 left, 2 right, 4 middle
    // The press is the first of its own: it waits until the one before cannot make it a double click.
    void FirstPress(int button);
    void Wheel(int delta, bool horizontal);
    void Shift(unsigned shift, bool down); // 1 Shift, 2 Ctrl, 4 Alt
    void Key(const KeyStroke& stroke);
    // Waits after the last step, then takes a picture of the screen there if a file is named.
    void Rest(DWORD milliseconds, const std::wstring& picture);

    // The code of a picture that could not be written.
    HRESULT Play(Container& container, RunState& state);

private:
    struct Step {
        INPUT input;
        DWORD rest; // milliseconds
        bool firstPress;
        std::wstring picture;
    };
    static DWORD WINAPI PlayThread(void* self);
    void PlaySteps();
    void WaitForPointer(POINT place);
    void Add(const INPUT& input);
    void AddKey(unsigned short virtualKey, wchar_t character, DWORD flags);

    std::vector<Step> steps_;
    HWND frame_ = nullptr;
    HRESULT outcome_ = S_OK;
};
