#include "message_pump.h"

void PumpPending(Container& container, RunState& state)
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            state.quitting = true;
        } else if (!container.TranslateKey(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

static void WaitForMessages(DWORD milliseconds)
{
    MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

void PumpFor(Container& container, RunState& state, DWORD milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (PumpPending(container, state); !state.quitting; PumpPending(container, state)) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end)
            return;
        WaitForMessages(DWORD(end - now));
    }
}

void PumpUntilSignalled(Container& container, RunState& state, HANDLE handle)
{
    constexpr DWORD flags = MWMO_INPUTAVAILABLE;
    while (MsgWaitForMultipleObjectsEx(1, &handle, INFINITE, QS_ALLINPUT, flags) == WAIT_OBJECT_0 + 1)
        PumpPending(container, state);
}

void PumpUntilQuit(Container& container, RunState& state)
{
    for (PumpPending(container, state); !state.quitting; PumpPending(container, state))
        WaitForMessages(INFINITE);
}
