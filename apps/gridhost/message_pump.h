// The host's message loop.
#pragma once

#include "container.h"
#include "run_state.h"

// Handles the messages that wait now.
void PumpPending(Container& container, RunState& state);
// Handles messages for so long, or until the run ends.
void PumpFor(Container& container, RunState& state, DWORD milliseconds);
// Handles messages until `handle` is signalled. Goes on when the run ends, since somebody waits for it.
void PumpUntilSignalled(Container& container, RunState& state, HANDLE handle);
// Handles messages until the run ends.
void PumpUntilQuit(Container& container, RunState& state);
