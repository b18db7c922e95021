#pragma once

#include <windows.h>

// Writes and removes the control's registration, type library included.
HRESULT RegisterControl() noexcept;
HRESULT UnregisterControl() noexcept;
