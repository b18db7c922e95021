#pragma once

#include <windows.h>

// The module that holds the control's resources: the DLL, or the program that the code is linked into.
HINSTANCE ModuleInstance() noexcept;
