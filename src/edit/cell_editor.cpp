#include "edit/cell_editor.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/outline_level.h"
#include "core/property_frame.h"
#include "edit/check_toggle.h"
#include "edit/combo_editor.h"
#include "edit/combo_list.h"
#include "edit/list_text.h"
#include "edit/mask.h"
#include "edit/text_editor.h"
#include "platform/dpi.h"
#include "platform/window_text.h"
#include "view/messages.h"
#include "view/mouse_cursor.h"
#include "view/scroll.h"

#include <utility>

namespace
{
// Handlers of BeforeEdit that ask for an edit themselves get so many; then there is an end of it.
constexpr int DeepestEdit = 8;

// Counts the edits that are being started, one from inside another.
class Nesting
{
public:
    explicit Nesting(int& depth) noexcept : depth_(depth) { ++depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { --depth_; }

private:
    int& depth_;
};

int startingEdits = 0;

// The cell to edit is the current one, wherever a handler has moved it.
bool TakeCurrentCell(Grid& grid) noexcept
{
    if (grid.Row < 0 || grid.Col < 0 || grid.RowSel < 0 || grid.ColSel < 0)
        return false;
    grid.EditRow = grid.Row;
    grid.EditCol = grid.Col;
    grid.EditRowSel = grid.RowSel;
    grid.EditColSel = grid.ColSel;
    return IsCell(grid, grid.EditRow, grid.EditCol);
}

bool HasCheckBox(Grid& grid)
{
    return IsCell(grid, grid.EditRow, grid.EditCol) && CheckStateOf(grid, grid.EditRow, grid.EditCol) != 0;
}

bool ClickButton(Grid& grid)
{
    event::CellButtonClick(grid, grid.EditRow, grid.EditCol);
    return true;
}

// By what the cell's list says. An edit of a button's cell ends here: nothing is validated.
bool OpenEditor(Grid& grid, int key)
{
    const wchar_t* list = ListOfCell(grid, grid.EditCol);
    bool buttonOnly = IsButtonList(list);
    bool textAndButton = IsEditWithButtonList(list);
    if (buttonOnly)
        return (key == EditByMouse || key == EditSelectAll || key == EditPlain) && ClickButton(grid);
    if (textAndButton && key == EditPlain)
        return ClickButton(grid);
    grid.ActiveEditor = *list && !textAndButton ? EditorCombo : EditorText;
    return grid.ActiveEditor == EditorCombo ? OpenComboEditor(grid, key)
                                            : OpenTextEditor(grid, key, textAndButton);
}

void ShowCell(Grid& grid, int row, int col)
{
    int before = grid.TopRow;
    if (int top = TopForRow(grid, row); top != before)
        ScrollVertical(grid, ScrollDirect, top, false);
    if (grid.TopRow != before)
        return;
    if (int left = LeftForCol(grid, col); left != grid.LeftCol)
        ScrollHorizontal(grid, ScrollDirect, left, false);
}

bool IsQueued(const Grid& grid, UINT message) noexcept
{
    MSG queued;
    return PeekMessageW(&queued, grid.Window, message, message, PM_NOREMOVE) != 0;
}
} // namespace

EditGuards& TheEditGuards() noexcept
{
    static EditGuards guards;
    return guards;
}

bool AskToEdit(Grid& grid)
{
    grid.EditCancel = VARIANT_FALSE;
    event::BeforeEdit(grid, grid.EditRow, grid.EditCol, grid.EditCancel);
    if (grid.EditCancel || grid.Closing || !TakeCurrentCell(grid))
        return false;
    event::StartEdit(grid, grid.EditRow, grid.EditCol, grid.EditCancel);
    return !grid.EditCancel && !grid.Closing && TakeCurrentCell(grid);
}

bool StartCellEdit(Grid& grid, int key)
{
    KeepAlive alive(grid);
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
    if (startingEdits >= DeepestEdit || !CommitEdit(grid) || grid.Closing)
        return false;
    Nesting starting(startingEdits);
    SetMousePointer(grid, grid.MousePointer);
    if (!TakeCurrentCell(grid))
        return false;
    ShowCell(grid, grid.EditRow, grid.EditCol);
    if (!TakeCurrentCell(grid))
        return false;
    if (HasCheckBox(grid))
        return ToggleByKey(grid, key);
    if (!AskToEdit(grid) || HasCheckBox(grid))
        return false;
    if (IsShown(OpenEditorWindow(grid))) // a handler has begun an edit of its own
        return false;
    return OpenEditor(grid, key);
}

void EditCell(Grid& grid)
{
    if (grid.ActiveEditor != EditorNone && OpenEditorWindow(grid))
        PostOnce(grid, MessageStartEdit, 0);
    else
        StartCellEdit(grid, EditSelectAll);
}

// After a refusal the current cell and the selection are as they were, and so is the text of the cell: what
// was refused is lost.
void ReopenEditor(Grid& grid, bool refused)
{
    KeepAlive alive(grid);
    if (refused) {
        bool there =
            IsCell(grid, grid.EditRow, grid.EditCol) && IsCell(grid, grid.EditRowSel, grid.EditColSel);
        if (!there) {
            grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
            return;
        }
        RepaintSelection(grid);
        grid.Row = grid.EditRow;
        grid.Col = grid.EditCol;
        grid.RowSel = grid.EditRowSel;
        grid.ColSel = grid.EditColSel;
        RepaintSelection(grid);
    }
    StartCellEdit(grid, EditSelectAll);
}

void PostOnce(const Grid& grid, UINT message, WPARAM wParam) noexcept
{
    if (grid.Window && !IsQueued(grid, message))
        PostMessageW(grid.Window, message, wParam, 0);
}

void ShowEditedCell(Grid& grid)
{
    if (IsCell(grid, grid.EditRow, grid.EditCol))
        ShowCell(grid, grid.EditRow, grid.EditCol);
}

HWND OpenEditorWindow(const Grid& grid)
{
    if (grid.ActiveEditor == EditorText)
        return grid.EditBoxWindow;
    return grid.ActiveEditor == EditorCombo ? grid.ComboWindow : nullptr;
}

void DestroyEditorWindows(Grid& grid)
{
    grid.ActiveEditor = EditorNone;
    for (HWND* window : {&grid.EditBoxWindow, &grid.ComboWindow})
        if (HWND old = std::exchange(*window, nullptr))
            DestroyWindow(old);
    grid.ComboEditBox = nullptr;
}

// The column comes first here and the grid second; with masks it is the other way round.
const wchar_t* ListOfCell(const Grid& grid, int col) noexcept
{
    const wchar_t* list = IsCol(grid, col) ? grid.ColTable[col].ColComboList : nullptr;
    if (!list || !*list)
        list = grid.ComboList;
    return list ? list : L"";
}

bool HasButtonList(Grid& grid)
{
    KeepAlive alive(grid);
    grid.EditCancel = VARIANT_FALSE;
    const wchar_t* columnList = IsCol(grid, grid.Col) ? grid.ColTable[grid.Col].ColComboList : nullptr;
    if (columnList && *columnList)
        return true;
    event::BeforeEdit(grid, grid.Row, grid.Col, grid.EditCancel);
    return !grid.EditCancel && grid.ComboList && *grid.ComboList;
}

wchar_t* MaskOfCell(const Grid& grid) noexcept
{
    if (grid.EditMask && *grid.EditMask)
        return grid.EditMask;
    return IsCol(grid, grid.EditCol) ? grid.ColTable[grid.EditCol].ColEditMask : nullptr;
}

int CompileCellMask(Grid& grid)
{
    return CompileMask(MaskOfCell(grid));
}

void ApplyMaskAndNotify(Grid& grid, bool deleteMode)
{
    EditGuard guard(TheEditGuards().MaskGuardEdit);
    if (!guard)
        return;
    if (IsMaskActive())
        ApplyMask(grid.EditBoxWindow, grid.LastKeyWasBackspace, deleteMode);
    event::ChangeEdit(grid);
}

void ApplyMaskToCombo(Grid& grid, bool deleteMode)
{
    EditGuard guard(TheEditGuards().MaskGuardEdit);
    if (!guard)
        return;
    if (IsMaskActive() && grid.ComboEditBox)
        ApplyMask(grid.ComboEditBox, (grid.EditorList.ComboBits & ComboLastKeyWasBackspace) != 0, deleteMode);
    grid.EditorList.ComboBits |= ComboChangePending;
}

HFONT FontOfCell(Grid& grid, int row, int col)
{
    const CellFormat* format = IsCell(grid, row, col) ? CellFormatOf(grid, row, col) : nullptr;
    return format && format->Font ? format->Font : GridFontHandle(grid);
}

int EditorTreeIndent(const Grid& grid, int row, int col) noexcept
{
    if (!ShowsOutline(grid) || col != grid.OutlineCol || !IsRow(grid, row))
        return 0;
    return (RowLevelIndex(grid, row) + 1) * DpiScale(OutlineStep);
}

// One message behind the keystroke, so that a burst of changes is one change.
void OnEditChanged(Grid& grid)
{
    if (IsShown(grid.EditBoxWindow)) {
        KeepAlive alive(grid);
        ApplyMaskAndNotify(grid, true);
    }
}

bool OnEditorCommand(Grid& grid, int child, int notification)
{
    if (child == EditorText) {
        if (notification == EN_UPDATE && IsShown(grid.EditBoxWindow))
            PostOnce(grid, MessageEditChanged, 0);
        return true;
    }
    if (child == EditorCombo && IsShown(grid.ComboWindow))
        OnComboCommand(grid, notification);
    return child == EditorCombo;
}
