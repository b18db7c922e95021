#include "shell/window.h"

#include "core/events.h"
#include "platform/module.h"
#include "shell/control.h"
#include "view/messages.h"

namespace
{
constexpr wchar_t ClassName[] = L"LorvGrid8Window";
constexpr DWORD ControlStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
static_assert(ControlStyle == 0x56000000);

// Erasing and the clicks on the frame are the control's own, unless a designer hosts it or may host it.
bool IsFrameMessage(UINT message) noexcept
{
    return message == WM_ERASEBKGND || message == WM_NCLBUTTONDOWN || message == WM_NCLBUTTONUP;
}

bool IsKeyMessage(UINT message) noexcept
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR || message == WM_SYSKEYDOWN ||
           message == WM_SYSKEYUP;
}

bool BypassesHost(const Grid& grid, UINT message, WPARAM wParam) noexcept
{
    if (IsFrameMessage(message))
        return grid.DesignModeCache == 0;
    bool navigates = wParam >= VK_PRIOR && wParam <= VK_DOWN;
    return IsKeyMessage(message) && !navigates;
}

LRESULT ProcessOwnMessage(Grid& grid, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (ProcessWindowMessage(grid, message, wParam, lParam, result))
        return result;
    return DefWindowProcW(window, message, wParam, lParam);
}

// A host with a message filter sees messages before the control, and after it those that it let through.
LRESULT FilterMessage(Grid& grid, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    ComPtr<ISimpleFrameSite> host(ControlOf(grid).Ole.FrameSite());
    if (!host || BypassesHost(grid, message, wParam))
        return ProcessOwnMessage(grid, window, message, wParam, lParam);
    LRESULT result = 0;
    DWORD cookie = 0;
    HRESULT verdict = host->PreMessageFilter(window, message, wParam, lParam, &result, &cookie);
    if (verdict == S_FALSE)
        return result;
    result = ProcessOwnMessage(grid, window, message, wParam, lParam);
    if (verdict == S_OK && IsWindow(window))
        host->PostMessageFilter(window, message, wParam, lParam, &result, cookie);
    return result;
}

void BindWindow(HWND window, LPARAM lParam) noexcept
{
    auto* grid = static_cast<Grid*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(grid));
    grid->Window = window;
}

void UnbindWindow(Grid& grid, HWND window) noexcept
{
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    grid.Window = nullptr;
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
        BindWindow(window, lParam);
    auto* grid = reinterpret_cast<Grid*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!grid)
        return DefWindowProcW(window, message, wParam, lParam);
    KeepAlive alive(*grid);
    LRESULT result = FilterMessage(*grid, window, message, wParam, lParam);
    if (message == WM_NCDESTROY)
        UnbindWindow(*grid, window);
    return result;
}

bool RegisterControlWindowClass() noexcept
{
    WNDCLASSEXW present = {};
    present.cbSize = sizeof(present);
    if (GetClassInfoExW(ModuleInstance(), ClassName, &present))
        return true;
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = ModuleInstance();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = ClassName;
    return RegisterClassExW(&windowClass) != 0;
}
} // namespace

HWND CreateControlWindow(Grid& grid, HWND parent, const RECT& position)
{
    if (!RegisterControlWindowClass())
        return nullptr;
    HWND window = CreateWindowExW(0, ClassName, nullptr, ControlStyle, position.left, position.top,
                                  position.right - position.left, position.bottom - position.top, parent,
                                  nullptr, ModuleInstance(), &grid);
    if (window && !grid.Enabled)
        EnableWindow(window, FALSE);
    return window;
}

void UnregisterControlWindowClass() noexcept
{
    UnregisterClassW(ClassName, ModuleInstance());
}
