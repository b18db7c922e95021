#include "edit/combo_window.h"

#include "edit/cell_editor.h"
#include "edit/combo_editor.h"
#include "edit/combo_list.h"
#include "edit/combo_search.h"
#include "edit/editor_class.h"
#include "platform/module.h"

#include <utility>

namespace
{
LRESULT CALLBACK ComboProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

EditorClass comboClass(L"LorvGrid8Combo", L"ComboBox", ComboProcedure, 2);
constexpr int GridPointer = 0, EditBoxProcedurePointer = 1;

// Messages of drop-downs that are under way, one inside another.
int running = 0;

class Running
{
public:
    Running() noexcept { ++running; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() { --running; }
};

Grid* GridOf(HWND comboBox) noexcept
{
    return reinterpret_cast<Grid*>(GetWindowLongPtrW(comboBox, comboClass.PointerAt(GridPointer)));
}

// What the window would do without us.
LRESULT CallSystem(HWND window, CMyCombo::Map map, UINT message, WPARAM wParam, LPARAM lParam)
{
    WNDPROC procedure = comboClass.SystemProcedure();
    if (map == CMyCombo::EditBoxMap)
        procedure = reinterpret_cast<WNDPROC>(
            GetWindowLongPtrW(GetParent(window), comboClass.PointerAt(EditBoxProcedurePointer)));
    return procedure ? CallWindowProcW(procedure, window, message, wParam, lParam)
                     : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Process(Grid& grid, HWND window, CMyCombo::Map map, UINT message, WPARAM wParam, LPARAM lParam)
{
    KeepAlive alive(grid);
    Running underWay;
    LRESULT result = 0;
    if (CMyCombo(grid, window, map).ProcessWindowMessage(message, wParam, lParam, result))
        return result;
    return CallSystem(window, map, message, wParam, lParam);
}

LRESULT CALLBACK ComboProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    constexpr auto map = CMyCombo::ComboBoxMap;
    Grid* grid = GridOf(window);
    if (message == WM_NCCREATE) {
        grid = static_cast<Grid*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, comboClass.PointerAt(GridPointer), reinterpret_cast<LONG_PTR>(grid));
    }
    if (grid && message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, comboClass.PointerAt(GridPointer), 0);
        if (grid->ComboWindow == window)
            grid->ComboWindow = nullptr;
        grid = nullptr;
    }
    return grid ? Process(*grid, window, map, message, wParam, lParam)
                : CallSystem(window, map, message, wParam, lParam);
}

LRESULT CALLBACK EditBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    constexpr auto map = CMyCombo::EditBoxMap;
    Grid* grid = GridOf(GetParent(window));
    if (grid && message == WM_NCDESTROY) {
        if (grid->ComboEditBox == window)
            grid->ComboEditBox = nullptr;
        grid = nullptr;
    }
    return grid ? Process(*grid, window, map, message, wParam, lParam)
                : CallSystem(window, map, message, wParam, lParam);
}

void SubclassEditBox(HWND comboBox, HWND editBox) noexcept
{
    LONG_PTR before = SetWindowLongPtrW(editBox, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditBoxProcedure));
    SetWindowLongPtrW(comboBox, comboClass.PointerAt(EditBoxProcedurePointer), before);
}

bool TakesFreeText(const Grid& grid) noexcept
{
    return (grid.EditorList.ComboBits & ComboEditableList) != 0;
}
} // namespace

HWND CMyCombo::Create(Grid& grid, DWORD style, DWORD styleEx) noexcept
{
    Destroy(grid);
    if (!comboClass.Register())
        return nullptr;
    const RECT& area = grid.EditRect;
    HWND window =
        CreateWindowExW(styleEx, comboClass.Name(), nullptr, style, area.left, area.top,
                        area.right - area.left, area.bottom - area.top, grid.Window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(EditorCombo)), ModuleInstance(), &grid);
    if (!window)
        return nullptr;
    grid.ComboWindow = window;
    grid.ComboEditBox = TakesFreeText(grid) ? GetWindow(window, GW_CHILD) : nullptr;
    if (grid.ComboEditBox)
        SubclassEditBox(window, grid.ComboEditBox);
    return window;
}

// A window whose own message is under way goes when that is done: the system's combo box does not expect to
// go in the course of what it tells its parent.
void CMyCombo::Destroy(Grid& grid) noexcept
{
    grid.ComboEditBox = nullptr;
    HWND window = std::exchange(grid.ComboWindow, nullptr);
    if (!window)
        return;
    if (running == 0) {
        DestroyWindow(window);
        return;
    }
    ShowWindow(window, SW_HIDE);
    PostMessageW(window, WM_CLOSE, 0, 0);
}

// Hidden after an edit, the windows are the system's alone.
bool CMyCombo::IsLive() const noexcept
{
    return grid_.ActiveEditor == EditorCombo && grid_.ComboWindow && IsWindow(window_) &&
           (grid_.ComboWindow == window_ || grid_.ComboEditBox == window_);
}

bool CMyCombo::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_GETDLGCODE) {
        result = DLGC_WANTALLKEYS;
        return true;
    }
    if (!IsLive())
        return false;
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
    case WM_CONTEXTMENU:
        return RefusesEditMenu(grid_);
    case MessageComboChanged:
        TellPendingChange(grid_);
        return true;
    default:
        return false;
    }
}

void CMyCombo::PassOn(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (IsWindow(window_))
        CallSystem(window_, map_, message, wParam, lParam);
}

// Whether a key moves on to another cell. Up and Down stay: they walk through the items.
bool CMyCombo::LeavesBy(int key) const
{
    if (key == VK_TAB)
        return true;
    if (key != VK_LEFT && key != VK_RIGHT)
        return false;
    if (!TakesFreeText(grid_))
        return true;
    auto bounds = static_cast<DWORD>(SendMessageW(grid_.ComboWindow, CB_GETEDITSEL, 0, 0));
    bool forwards = (key == VK_RIGHT) != HasOption(grid_, OptionRightToLeft);
    int edge = forwards ? GetWindowTextLengthW(grid_.ComboWindow) : 0;
    return LOWORD(bounds) == HIWORD(bounds) && LOWORD(bounds) == edge;
}

bool CMyCombo::OnKeyDown(WPARAM key, LPARAM lParam)
{
    ShowEditedCell(grid_);
    short code = AskKeyDownEdit(grid_, static_cast<short>(key));
    if (code == 0 || !IsLive())
        return true;
    bool handled = false;
    if (code == VK_RETURN || code == VK_ESCAPE) {
        handled = EndEditByKey(grid_, code);
    } else if (LeavesBy(code)) {
        LeaveEditor(grid_, code);
        handled = true;
    }
    if (!handled)
        PassOn(WM_KEYDOWN, AsKey(code), lParam);
    return true;
}

bool CMyCombo::OnSysKeyDown(WPARAM key, LPARAM lParam)
{
    if (short code = AskKeyDownEdit(grid_, static_cast<short>(key)))
        PassOn(WM_SYSKEYDOWN, AsKey(code), lParam);
    return true;
}

bool CMyCombo::OnKeyUp(UINT message, WPARAM key, LPARAM lParam)
{
    TellPendingChange(grid_);
    if (short code = AskKeyUpEdit(grid_, static_cast<short>(key)))
        PassOn(message, AsKey(code), lParam);
    return true;
}

// A character comes twice: first for KeyPressEdit, then with what the handler has left, zero included. What
// the combo box gets goes on to the edit box in it, where it is not told of again.
bool CMyCombo::OnChar(WPARAM key, LPARAM lParam)
{
    EditGuards& guards = TheEditGuards();
    bool& told = map_ == EditBoxMap ? guards.CharGuardComboEdit : guards.CharGuardCombo;
    if (EditGuard first(told); first) {
        short code = AskKeyPressEdit(grid_, static_cast<short>(key));
        if (!IsLive())
            return true;
        HWND inner = grid_.ComboEditBox;
        EditGuard toldThere(inner ? guards.CharGuardComboEdit : told);
        SendMessageW(inner ? inner : window_, WM_CHAR, AsKey(code), lParam);
        return true;
    }
    bool found = ComboSearchKey(grid_, window_, key);
    return found || key == 0 || key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE || key == 127;
}

// Without a receiver the focus has gone to another application, and the edit waits for it to come back.
bool CMyCombo::OnKillFocus(HWND receiver)
{
    if (receiver && receiver != grid_.Window && receiver != grid_.ComboWindow &&
        !IsChild(grid_.ComboWindow, receiver))
        CommitEdit(grid_);
    return !IsWindow(window_);
}

// What a handler changes in the course of it is not told of again.
void TellPendingChange(Grid& grid)
{
    if (!(grid.EditorList.ComboBits & ComboChangePending))
        return;
    event::ChangeEdit(grid);
    grid.EditorList.ComboBits &= static_cast<uint8_t>(~ComboChangePending);
}
