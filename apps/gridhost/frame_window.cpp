#include "frame_window.h"

namespace
{
constexpr DWORD frameStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

struct FrameLinks {
    Container& container;
    RunState& state;
};
} // namespace

static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* links = reinterpret_cast<FrameLinks*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (links ? message : UINT(WM_NULL)) {
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            links->container.FitControl();
        return 0;
    case WM_SETFOCUS:
        if (HWND control = links->container.ControlWindow())
            SetFocus(control);
        return 0;
    case WM_CLOSE:
        links->state.quitting = true; // the control goes first, then the window
        return 0;
    case WM_NCDESTROY:
        links->state.quitting = true;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        delete links;
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

static SIZE FrameSizeFor(int width, int height)
{
    RECT rect = {0, 0, width, height};
    AdjustWindowRect(&rect, frameStyle, FALSE);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

HWND CreateFrameWindow(const wchar_t* title, int width, int height, Container& container, RunState& state)
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = FrameProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = L"GridHostFrame";
    RegisterClassW(&windowClass);

    const SIZE size = FrameSizeFor(width, height);
    HWND frame = CreateWindowExW(0, windowClass.lpszClassName, title, frameStyle, 40, 40, size.cx, size.cy,
                                 nullptr, nullptr, windowClass.hInstance, nullptr);
    if (frame)
        SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new FrameLinks{container, state}));
    return frame;
}

void ResizeClientArea(HWND frame, int width, int height)
{
    const SIZE size = FrameSizeFor(width, height);
    SetWindowPos(frame, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}
