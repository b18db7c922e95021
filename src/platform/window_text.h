#pragma once

#include "platform/bstr.h"

#include <windows.h>

// Whether the window itself is shown, its parents aside.
inline bool IsShown(HWND window) noexcept
{
    return window && (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE);
}

// The text of a window; a null BSTR when there is no memory.
inline Bstr WindowText(HWND window) noexcept
{
    Bstr text;
    int length = GetWindowTextLengthW(window);
    BSTR buffer = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (!buffer)
        return text;
    int copied = GetWindowTextW(window, buffer, length + 1);
    *text.Put() = copied == length ? buffer : SysAllocStringLen(buffer, static_cast<UINT>(copied));
    if (copied != length)
        SysFreeString(buffer);
    return text;
}
