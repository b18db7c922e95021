#include "view/size_box.h"

#include "view/theme.h"

namespace
{
bool ShowsBothBars(HWND window) noexcept
{
    constexpr LONG_PTR both = WS_HSCROLL | WS_VSCROLL;
    return (GetWindowLongPtrW(window, GWL_STYLE) & both) == both;
}

// Left of the client area and below it, in coordinates of the window.
RECT LeftCorner(HWND window) noexcept
{
    RECT frame = {};
    RECT client = {};
    GetWindowRect(window, &frame);
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    int right = static_cast<int>(client.left - frame.left), top = static_cast<int>(client.bottom - frame.top);
    return {right - GetSystemMetrics(SM_CXVSCROLL), top, right, top + GetSystemMetrics(SM_CYHSCROLL)};
}

void FillCorner(HWND window) noexcept
{
    HDC dc = GetWindowDC(window);
    if (!dc)
        return;
    RECT corner = LeftCorner(window);
    DrawEdge(dc, &corner, EDGE_RAISED, BF_MIDDLE);
    ReleaseDC(window, dc);
}
} // namespace

bool OnFramePaint(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    HWND window = grid.Window;
    if (!HasOption(grid, OptionRightToLeft) || !IsThemed(grid) || !ShowsBothBars(window))
        return false;
    result = DefWindowProcW(window, WM_NCPAINT, wParam, lParam);
    FillCorner(window);
    return true;
}
