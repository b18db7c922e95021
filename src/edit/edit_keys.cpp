// The window of the text editor: what its keys do, and where they lead.

#include "edit/cell_editor.h"
#include "edit/editor_class.h"
#include "edit/mask.h"
#include "edit/text_editor.h"
#include "platform/dpi.h"
#include "platform/key_state.h"
#include "platform/module.h"
#include "view/navigate_key.h"

#include <utility>

namespace
{
LRESULT CALLBACK EditorProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The box has a device context of its own and does not draw over its parent.
EditorClass editorClass(L"LorvGrid8Edit", L"Edit", EditorProcedure, 1, CS_PARENTDC);

LRESULT CALLBACK EditorProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* grid = reinterpret_cast<Grid*>(GetWindowLongPtrW(window, editorClass.PointerAt(0)));
    if (message == WM_NCCREATE) {
        grid = static_cast<Grid*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, editorClass.PointerAt(0), reinterpret_cast<LONG_PTR>(grid));
        grid->EditBoxWindow = window;
    }
    if (!grid)
        return CallWindowProcW(editorClass.SystemProcedure(), window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, editorClass.PointerAt(0), 0);
        if (grid->EditBoxWindow == window)
            grid->EditBoxWindow = nullptr;
        return CallWindowProcW(editorClass.SystemProcedure(), window, message, wParam, lParam);
    }
    KeepAlive alive(*grid);
    LRESULT result = 0;
    if (CMyEdit(*grid, window).ProcessWindowMessage(message, wParam, lParam, result))
        return result;
    return CallWindowProcW(editorClass.SystemProcedure(), window, message, wParam, lParam);
}

struct Selection {
    int Start, End;
    bool IsEmptyAt(int position) const noexcept { return Start == End && Start == position; }
};

Selection SelectionOf(HWND window) noexcept
{
    DWORD start = 0, end = 0;
    SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
}

int LineOf(HWND window, int position) noexcept
{
    return static_cast<int>(SendMessageW(window, EM_LINEFROMCHAR, static_cast<WPARAM>(position), 0));
}

using Ask = void (*)(Grid&, int, int, short&, short);

short AskKey(Grid& grid, Ask ask, WPARAM key)
{
    auto code = static_cast<short>(key);
    ask(grid, grid.EditRow, grid.EditCol, code, HeldModifiers());
    return code;
}
} // namespace

HWND CMyEdit::Create(Grid& grid, DWORD style, DWORD styleEx) noexcept
{
    if (HWND old = std::exchange(grid.EditBoxWindow, nullptr))
        DestroyWindow(old);
    if (!editorClass.Register())
        return nullptr;
    return CreateWindowExW(styleEx, editorClass.Name(), nullptr, style, 0, 0, 0, 0, grid.Window,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(EditorText)), ModuleInstance(),
                           &grid);
}

bool CMyEdit::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_KEYDOWN:
        return OnKeyDown(wParam, lParam);
    case WM_SYSKEYDOWN:
        return OnSysKeyDown(wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return OnKeyUp(message, wParam, lParam);
    case WM_CHAR:
        return OnChar(wParam, lParam);
    case WM_KILLFOCUS:
        return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_GETDLGCODE:
        result = DLGC_WANTALLKEYS;
        return true;
    case WM_CONTEXTMENU:
        return RefusesEditMenu(grid_);
    default:
        return false;
    }
}

void CMyEdit::PassOn(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (IsWindow(window_))
        CallWindowProcW(editorClass.SystemProcedure(), window_, message, wParam, lParam);
}

// Whether a key moves on to another cell, as the caret cannot go further that way.
bool CMyEdit::LeavesBy(int key) const
{
    Selection selection = SelectionOf(window_);
    bool atStart = selection.IsEmptyAt(0), atEnd = selection.IsEmptyAt(GetWindowTextLengthW(window_));
    bool mirrored = HasOption(grid_, OptionRightToLeft);
    int line = LineOf(window_, selection.Start);
    bool oneLine = line == LineOf(window_, selection.End);
    switch (key) {
    case VK_TAB:
    case VK_PRIOR:
    case VK_NEXT:
        return true;
    case VK_HOME:
        return atStart;
    case VK_END:
        return atEnd;
    case VK_LEFT:
        return mirrored ? atEnd : atStart;
    case VK_RIGHT:
        return mirrored ? atStart : atEnd;
    case VK_UP:
        return oneLine && line <= 0;
    case VK_DOWN:
        return oneLine && line + 1 >= static_cast<int>(SendMessageW(window_, EM_GETLINECOUNT, 0, 0));
    default:
        return false;
    }
}

// With Shift or Ctrl a line break, whether or not text wraps. The character that follows is swallowed.
bool CMyEdit::OnReturn()
{
    if (IsKeyHeld(VK_SHIFT) || IsKeyHeld(VK_CONTROL)) {
        SendMessageW(window_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"\r\n"));
        grid_.LineBreakTyped = true;
        return true;
    }
    return EndEditByKey(grid_, VK_RETURN);
}

bool CMyEdit::OnKeyDown(WPARAM key, LPARAM lParam)
{
    grid_.LineBreakTyped = false;
    ShowEditedCell(grid_);
    short code = AskKeyDownEdit(grid_, static_cast<short>(key));
    if (code == 0 || !IsWindow(window_))
        return true;
    bool handled = false;
    if (code == VK_RETURN) {
        handled = OnReturn();
    } else if (code == VK_ESCAPE) {
        handled = EndEditByKey(grid_, code);
    } else if (LeavesBy(code)) {
        LeaveEditor(grid_, code);
        handled = true;
    }
    if (!handled)
        PassOn(WM_KEYDOWN, AsKey(code), lParam);
    return true;
}

bool CMyEdit::OnSysKeyDown(WPARAM key, LPARAM lParam)
{
    if (short code = AskKeyDownEdit(grid_, static_cast<short>(key)))
        PassOn(WM_SYSKEYDOWN, AsKey(code), lParam);
    return true;
}

bool CMyEdit::OnKeyUp(UINT message, WPARAM key, LPARAM lParam)
{
    if (short code = AskKeyUpEdit(grid_, static_cast<short>(key)))
        PassOn(message, AsKey(code), lParam);
    return true;
}

// A character comes twice: first for KeyPressEdit, then with what the handler has left, zero included.
bool CMyEdit::OnChar(WPARAM key, LPARAM lParam)
{
    if (EditGuard first(TheEditGuards().CharGuardEdit); first) {
        short code = AskKeyPressEdit(grid_, static_cast<short>(key));
        if (IsWindow(window_))
            SendMessageW(window_, WM_CHAR, AsKey(code), lParam);
        return true;
    }
    grid_.LastKeyWasBackspace = key == VK_BACK;
    bool ofLineBreak = key == '\n' && std::exchange(grid_.LineBreakTyped, false);
    return key == 0 || key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE || key == 127 || ofLineBreak;
}

// Without a receiver the focus has gone to another application, and the edit waits for it to come back.
bool CMyEdit::OnKillFocus(HWND receiver)
{
    if (receiver && receiver != grid_.Window && receiver != window_)
        CommitEdit(grid_);
    return !IsWindow(window_);
}

void LeaveEditor(Grid& grid, int key)
{
    CommitEdit(grid);
    if (grid.Closing || !grid.Window)
        return;
    SetFocus(grid.Window);
    if (key && !grid.Closing)
        NavigateKey(grid, key);
}

bool EndEditByKey(Grid& grid, short key)
{
    if (AskKeyPressEdit(grid, key) == 0)
        return false;
    if (key == VK_ESCAPE)
        grid.EditCancel = VARIANT_TRUE;
    LeaveEditor(grid, 0);
    return true;
}

short AskKeyDownEdit(Grid& grid, short key)
{
    return AskKey(grid, event::KeyDownEdit, AsKey(key));
}

short AskKeyUpEdit(Grid& grid, short key)
{
    return AskKey(grid, event::KeyUpEdit, AsKey(key));
}

short AskKeyPressEdit(Grid& grid, short key)
{
    event::KeyPressEdit(grid, grid.EditRow, grid.EditCol, key);
    return key;
}

bool RefusesEditMenu(Grid& grid)
{
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(grid.Window, &point);
    constexpr short rightButton = 2;
    return event::BeforeMouseDown(grid, rightButton, HeldModifiers(),
                                  static_cast<float>(PixelsToTwipsX(point.x)),
                                  static_cast<float>(PixelsToTwipsY(point.y)));
}
