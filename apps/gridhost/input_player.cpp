#include "input_player.h"

#include "message_pump.h"
#include "screenshot.h"
#include <objbase.h>
#include <stdlib.h>

static constexpr DWORD stepMilliseconds = 8;    // between two steps
static constexpr DWORD settleMilliseconds = 40; // for what the last step has set off

static INPUT MouseInput(DWORD flags, DWORD data = 0)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    return input;
}

void InputPlayer::Add(const INPUT& input)
{
    steps_.push_back({input, 0, false, {}});
}

// A screen has 65536 units across. Rounded up, since the way back rounds down.
static LONG Normalised(LONG pixel, int screen)
{
    return LONG((LONGLONG(pixel) * 65536 + screen - 1) / screen);
}

void InputPlayer::MoveTo(POINT screen)
{
    INPUT input = MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    input.mi.dx = Normalised(screen.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = Normalised(screen.y, GetSystemMetrics(SM_CYSCREEN));
    Add(input);
}

void InputPlayer::Button(int button, bool down)
{
    DWORD flag = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    if (button == 2)
        flag = down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
    if (button == 4)
        flag = down ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP;
    Add(MouseInput(flag));
}

void InputPlayer::FirstPress(int button)
{
    Button(button, true);
    steps_.back().firstPress = true;
}

// Players follow each other; the system counts clicks across them.
static struct {
    ULONGLONG time;
    POINT place;
} lastPress;

static bool IsPress(const INPUT& input)
{
    constexpr DWORD presses = MOUSEEVENTF_LEFTDOWN | MOUSEEVENTF_RIGHTDOWN | MOUSEEVENTF_MIDDLEDOWN;
    return input.type == INPUT_MOUSE && (input.mi.dwFlags & presses);
}

static void WaitForFirstPress()
{
    POINT now;
    GetCursorPos(&now);
    const ULONGLONG past = GetTickCount64() - lastPress.time;
    const bool samePlace = abs(now.x - lastPress.place.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                           abs(now.y - lastPress.place.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    if (samePlace && past <= GetDoubleClickTime())
        Sleep(GetDoubleClickTime() - DWORD(past) + 20);
}

void InputPlayer::Wheel(int delta, bool horizontal)
{
    Add(MouseInput(horizontal ? MOUSEEVENTF_HWHEEL : MOUSEEVENTF_WHEEL, DWORD(delta)));
}

void InputPlayer::AddKey(unsigned short virtualKey, wchar_t character, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = virtualKey ? WORD(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC)) : WORD(character);
    input.ki.dwFlags = flags | (virtualKey ? 0 : KEYEVENTF_UNICODE);
    if ((virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) || virtualKey == VK_INSERT ||
        virtualKey == VK_DELETE)
        input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    Add(input);
}

void InputPlayer::Shift(unsigned shift, bool down)
{
    static constexpr unsigned short keys[] = {VK_SHIFT, VK_CONTROL, VK_MENU};
    for (unsigned bit = 0; bit < 3; ++bit)
        if (shift & 1u << bit)
            AddKey(keys[bit], 0, down ? 0 : KEYEVENTF_KEYUP);
}

void InputPlayer::Key(const KeyStroke& stroke)
{
    Shift(stroke.shift, true);
    AddKey(stroke.virtualKey, stroke.character, 0);
    AddKey(stroke.virtualKey, stroke.character, KEYEVENTF_KEYUP);
    Shift(stroke.shift, false);
}

void InputPlayer::Rest(DWORD milliseconds, const std::wstring& picture)
{
    if (steps_.empty())
        return;
    steps_.back().rest += milliseconds;
    steps_.back().picture = picture;
}

static bool IsButton(const INPUT& input)
{
    constexpr DWORD releases = MOUSEEVENTF_LEFTUP | MOUSEEVENTF_RIGHTUP | MOUSEEVENTF_MIDDLEUP;
    return IsPress(input) || (input.type == INPUT_MOUSE && (input.mi.dwFlags & releases));
}

// A display that is behind tells the window of earlier places after the pointer has reached its last one, and
// takes the pointer back there meanwhile. A button goes down or up only when the pointer has stayed where it
// was put, with the window handling its messages in between.
void InputPlayer::WaitForPointer(POINT place)
{
    constexpr int looksInARow = 4, looksAtMost = 100;
    for (int look = 0, stayed = 0; look < looksAtMost && stayed < looksInARow; ++look) {
        DWORD_PTR unused;
        SendMessageTimeoutW(frame_, WM_NULL, 0, 0, SMTO_NORMAL, stepMilliseconds, &unused);
        Sleep(2);
        POINT now;
        GetCursorPos(&now);
        stayed = now.x == place.x && now.y == place.y ? stayed + 1 : 0;
    }
}

void InputPlayer::PlaySteps()
{
    POINT place;
    GetCursorPos(&place);
    for (Step& step : steps_) {
        if (step.firstPress)
            WaitForFirstPress();
        if (IsButton(step.input))
            WaitForPointer(place);
        if (IsPress(step.input)) {
            lastPress.time = GetTickCount64();
            GetCursorPos(&lastPress.place);
        }
        SendInput(1, &step.input, sizeof(step.input));
        if (step.input.type == INPUT_MOUSE && (step.input.mi.dwFlags & MOUSEEVENTF_MOVE))
            GetCursorPos(&place);
        Sleep(stepMilliseconds + step.rest);
        if (!step.picture.empty())
            if (HRESULT hr = SavePictureInPassing(frame_, step.picture); FAILED(hr))
                outcome_ = hr;
    }
    Sleep(settleMilliseconds);
}

DWORD WINAPI InputPlayer::PlayThread(void* self)
{
    const bool com = SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)); // pictures need it
    static_cast<InputPlayer*>(self)->PlaySteps();
    if (com)
        CoUninitialize();
    return 0;
}

HRESULT InputPlayer::Play(Container& container, RunState& state)
{
    frame_ = container.Frame();
    outcome_ = S_OK;
    if (frame_)
        SetForegroundWindow(frame_);
    HANDLE thread = CreateThread(nullptr, 0, PlayThread, this, 0, nullptr);
    if (!thread)
        return HRESULT_FROM_WIN32(GetLastError());
    PumpUntilSignalled(container, state, thread);
    CloseHandle(thread);
    PumpPending(container, state);
    steps_.clear();
    return outcome_;
}
