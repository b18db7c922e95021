#include "edit/edit_text.h"

#include "edit/cell_editor.h"
#include "edit/check_toggle.h"
#include "edit/combo_list.h"
#include "platform/window_text.h"

#include <algorithm>

namespace
{
bool IsTextOpen(const Grid& grid) noexcept
{
    return grid.ActiveEditor == EditorText && grid.EditBoxWindow;
}

bool IsEditableListOpen(const Grid& grid) noexcept
{
    return grid.ActiveEditor == EditorCombo && grid.ComboWindow &&
           (grid.EditorList.ComboBits & ComboEditableList);
}

Bstr Digit(int state) noexcept
{
    const wchar_t text[] = {static_cast<wchar_t>(L'0' + state), 0};
    return state ? Bstr(text) : Bstr();
}

void PostScrollCaret(HWND box) noexcept
{
    if (box)
        PostMessageW(box, EM_SCROLLCARET, 0, 0);
}
} // namespace

Bstr ReadEditText(Grid& grid)
{
    if (HWND editor = OpenEditorWindow(grid))
        return WindowText(editor);
    bool toggling = (grid.PaintMode & PaintTogglingCheck) != 0;
    return toggling ? Digit(NextCheckState(grid)) : Bstr();
}

void WriteEditText(Grid& grid, const wchar_t* text)
{
    KeepAlive alive(grid);
    if (IsTextOpen(grid)) {
        HWND window = grid.EditBoxWindow;
        SetWindowTextW(window, text);
        int end = GetWindowTextLengthW(window);
        SendMessageW(window, EM_SETSEL, static_cast<WPARAM>(end), end);
        ApplyMaskAndNotify(grid, false);
        PostScrollCaret(window);
    } else if (IsEditableListOpen(grid)) {
        HWND window = grid.ComboWindow;
        SetWindowTextW(window, text);
        ApplyMaskToCombo(grid, false);
        int end = GetWindowTextLengthW(window);
        SendMessageW(window, CB_SETEDITSEL, 0, MAKELPARAM(end, end));
        PostScrollCaret(grid.ComboEditBox);
    }
}

EditSelection ReadEditSelection(const Grid& grid)
{
    DWORD bounds = 0;
    if (IsTextOpen(grid))
        bounds = static_cast<DWORD>(SendMessageW(grid.EditBoxWindow, EM_GETSEL, 0, 0));
    else if (IsEditableListOpen(grid))
        bounds = static_cast<DWORD>(SendMessageW(grid.ComboWindow, CB_GETEDITSEL, 0, 0));
    return {LOWORD(bounds), HIWORD(bounds)};
}

void WriteEditSelection(const Grid& grid, EditSelection selection)
{
    if (IsTextOpen(grid))
        SendMessageW(grid.EditBoxWindow, EM_SETSEL, static_cast<WPARAM>(selection.Start), selection.End);
    else if (IsEditableListOpen(grid))
        SendMessageW(grid.ComboWindow, CB_SETEDITSEL, 0, MAKELPARAM(selection.Start, selection.End));
}

Bstr ReadSelectedEditText(const Grid& grid)
{
    EditSelection selection = ReadEditSelection(grid);
    if (selection.Start >= selection.End)
        return {};
    Bstr text = WindowText(OpenEditorWindow(grid)), part;
    int end = std::min<int>(selection.End, static_cast<int>(text.Length()));
    if (selection.Start < end)
        *part.Put() =
            SysAllocStringLen(text.Text() + selection.Start, static_cast<UINT>(end - selection.Start));
    return part;
}

void ReplaceSelectedEditText(Grid& grid, const wchar_t* text)
{
    KeepAlive alive(grid);
    auto replacement = reinterpret_cast<LPARAM>(text);
    if (IsTextOpen(grid)) {
        SendMessageW(grid.EditBoxWindow, EM_REPLACESEL, FALSE, replacement);
        ApplyMaskAndNotify(grid, false);
    } else if (IsEditableListOpen(grid) && grid.ComboEditBox) {
        SendMessageW(grid.ComboEditBox, EM_REPLACESEL, FALSE, replacement);
        ApplyMaskToCombo(grid, false);
    }
}

// A mask goes over the text twice, and ChangeEdit fires twice: hosts count on it.
void ApplyNewMask(Grid& grid)
{
    KeepAlive alive(grid);
    if (!IsTextOpen(grid) && !IsEditableListOpen(grid))
        return;
    CompileCellMask(grid);
    const int passes = grid.EditMask ? 2 : 1;
    for (int pass = 0; pass < passes; ++pass) {
        if (IsTextOpen(grid))
            ApplyMaskAndNotify(grid, false);
        else if (IsEditableListOpen(grid))
            ApplyMaskToCombo(grid, false);
    }
}
