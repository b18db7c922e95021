#include "view/keyboard.h"

#include "core/events.h"
#include "platform/key_state.h"
#include "platform/window_text.h"
#include "view/navigate_key.h"

namespace
{
constexpr LPARAM KeyRepeats = 1 << 30;
constexpr int FirstTypedCharacter = 32;

// The window that keys belong to while an edit runs: the editor, or the edit box in the drop-down.
HWND OpenKeyWindow(const Grid& grid) noexcept
{
    if (IsShown(grid.EditBoxWindow))
        return grid.EditBoxWindow;
    if (IsShown(grid.ComboWindow))
        return grid.ComboEditBox ? grid.ComboEditBox : grid.ComboWindow;
    return nullptr;
}

bool TakePostFlag(Grid& grid) noexcept
{
    bool posts = (grid.EditFlags & EditFlagPostNextKey) != 0;
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagPostNextKey);
    return posts;
}

bool ForwardToEditor(Grid& grid, UINT message, WPARAM wParam, LPARAM lParam)
{
    HWND editor = OpenKeyWindow(grid);
    if (!editor)
        return false;
    if (message == WM_CHAR || TakePostFlag(grid))
        PostMessageW(editor, message, wParam, lParam);
    else
        SendMessageW(editor, message, wParam, lParam);
    return true;
}

bool CanEditCurrentCell(const Grid& grid) noexcept
{
    return grid.Editable != 0 && IsCell(grid, grid.Row, grid.Col) && !IsFixedCell(grid, grid.Row, grid.Col);
}

// The character that the key was about to type.
void DropTypedCharacter(const Grid& grid) noexcept
{
    MSG typed = {};
    if (grid.Window)
        PeekMessageW(&typed, grid.Window, WM_CHAR, WM_CHAR, PM_REMOVE);
}

void RunClipboardKey(Grid& grid, int key)
{
    if (auto command = ClipboardCommandOf(key, HeldModifiers(), grid.Editable != 0))
        RunClipboardCommand(grid, *command);
}

// The list that Alt+Down is about to open: the column's, or else the one that the handlers of BeforeEdit have
// put into `ComboList`. What they say about cancelling is looked at when the edit begins.
bool HasListToOpen(Grid& grid)
{
    if (!CanEditCurrentCell(grid))
        return false;
    const wchar_t* list = grid.ColTable[grid.Col].ColComboList;
    if (list && *list)
        return true;
    grid.EditCancel = VARIANT_FALSE;
    event::BeforeEdit(grid, grid.Row, grid.Col, grid.EditCancel);
    return grid.ComboList && *grid.ComboList;
}

void StartEditByTyping(Grid& grid, int character)
{
    if (!CanEditCurrentCell(grid) || OpenKeyWindow(grid) || grid.IsSearching)
        return;
    if (character == VK_RETURN)
        StartCellEdit(grid, EditPlain);
    else if (character >= FirstTypedCharacter)
        StartCellEdit(grid, character);
}
} // namespace

// In a grid that cannot be edited a cut copies, and nothing else changes a cell.
std::optional<ClipboardCommand> ClipboardCommandOf(int key, short modifiers, bool editable) noexcept
{
    constexpr struct {
        int Key;
        short Modifiers;
        ClipboardCommand Editable;
        std::optional<ClipboardCommand> ReadOnly;
    } keys[] = {
        {'C', 2, ClipboardCommand::Copy, ClipboardCommand::Copy},
        {VK_INSERT, 2, ClipboardCommand::Copy, ClipboardCommand::Copy},
        {'X', 2, ClipboardCommand::Cut, ClipboardCommand::Copy},
        {VK_DELETE, 1, ClipboardCommand::Cut, ClipboardCommand::Copy},
        {'V', 2, ClipboardCommand::Paste, {}},
        {VK_INSERT, 1, ClipboardCommand::Paste, {}},
        {VK_DELETE, 0, ClipboardCommand::Delete, {}},
    };
    for (const auto& entry : keys)
        if (entry.Key == key && entry.Modifiers == modifiers)
            return editable ? entry.Editable : entry.ReadOnly;
    return {};
}

bool OnKeyDown(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    if (ForwardToEditor(grid, WM_KEYDOWN, wParam, lParam))
        return true;
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
    if (wParam == VK_F2 && CanEditCurrentCell(grid) && StartCellEdit(grid, EditSelectAll))
        return true;
    auto key = static_cast<short>(wParam);
    event::KeyDown(grid, key, HeldModifiers());
    if (key == 0) {
        DropTypedCharacter(grid);
        return true;
    }
    if (!(lParam & KeyRepeats) && (grid.Flags & lorvCFAutoClipboard))
        RunClipboardKey(grid, key);
    NavigateKey(grid, key);
    return false;
}

bool OnKeyUp(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    if (ForwardToEditor(grid, WM_KEYUP, wParam, lParam))
        return true;
    auto key = static_cast<short>(wParam);
    event::KeyUp(grid, key, HeldModifiers());
    return key == 0;
}

bool OnSysKeyDown(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    auto key = static_cast<short>(wParam);
    event::KeyDown(grid, key, HeldModifiers());
    if (key == VK_DOWN && HasListToOpen(grid))
        StartCellEdit(grid, EditPlain);
    return false;
}

bool OnSysKeyUp(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    auto key = static_cast<short>(wParam);
    event::KeyUp(grid, key, HeldModifiers());
    return false;
}

bool OnChar(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    if (ForwardToEditor(grid, WM_CHAR, wParam, lParam))
        return true;
    bool searched = grid.IsSearching != 0;
    if (AutoSearchKey(grid, static_cast<int>(wParam)))
        return true;
    auto key = static_cast<short>(wParam);
    event::KeyPress(grid, key);
    bool endsSearch = searched && key == VK_RETURN; // that is all it does
    if (!endsSearch)
        StartEditByTyping(grid, static_cast<uint16_t>(key));
    return true;
}

bool OnStartComposition(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    if (grid.Editable)
        EditCell(grid);
    return false;
}
