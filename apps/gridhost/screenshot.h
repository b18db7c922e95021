// Pictures of the host's windows as PNG files.
#pragma once

#include <string>
#include <windows.h>

enum class ShotArea { Window, Client };

// Writes what the frame window shows, with the thread's popup windows (lists, tips) over it; the
// picture grows where a popup stands outside.
HRESULT SaveScreenshot(HWND frame, ShotArea area, const std::wstring& file);

// The same from any thread and in the middle of whatever goes on: nothing is painted first, and the pointer
// is in the picture.
HRESULT SavePictureInPassing(HWND frame, const std::wstring& file);
