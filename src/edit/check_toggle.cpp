#include "edit/check_toggle.h"

#include "core/cell_property.h"
#include "core/check_state.h"
#include "core/merge.h"
#include "core/selection_range.h"
#include "edit/cell_editor.h"
#include "view/check_box.h"
#include "view/selection.h"

#include <iterator>

namespace
{
// By CellCheckedSettings. A disabled box stays as it is.
constexpr int nextStates[] = {lorvNoCheckbox, lorvUnchecked,   lorvChecked,  lorvTSGrayed,
                              lorvTSChecked,  lorvTSUnchecked, lorvDisabled, lorvDisabledUnchecked};

int NextStateOf(Grid& grid, int row, int col)
{
    int state = CheckStateOf(grid, row, col);
    return state >= 0 && state < static_cast<int>(std::size(nextStates)) ? nextStates[state] : state;
}

// Whether the handlers let the box be toggled. While ValidateEdit is out, `EditText` is the new state.
bool AskToToggle(Grid& grid)
{
    grid.EditCancel = VARIANT_FALSE;
    grid.PaintMode |= PaintTogglingCheck;
    event::ValidateEdit(grid, grid.EditRow, grid.EditCol, grid.EditCancel);
    grid.PaintMode &= ~static_cast<uint32_t>(PaintTogglingCheck);
    return !grid.EditCancel && !grid.Closing && IsCell(grid, grid.EditRow, grid.EditCol);
}

void FinishToggle(Grid& grid, int row, int col)
{
    event::AfterEdit(grid, row, col);
    MarkRowModified(grid, row);
}
} // namespace

int NextCheckState(Grid& grid)
{
    return IsCell(grid, grid.EditRow, grid.EditCol) ? NextStateOf(grid, grid.EditRow, grid.EditCol)
                                                    : static_cast<int>(lorvNoCheckbox);
}

// The events run for a disabled box, too.
bool ToggleByKey(Grid& grid, int key)
{
    if (key != EditPlain && key != EditSelectAll)
        return false;
    if (!AskToEdit(grid))
        return false;
    int next = NextCheckState(grid);
    if (!AskToToggle(grid))
        return true;
    int row = grid.EditRow, col = grid.EditCol;
    if (row != grid.Row || col != grid.Col) // a handler has moved on to another cell
        return true;
    SetCellPropertySelection(grid, CellSelector::CheckState, next);
    FinishToggle(grid, row, col);
    return true;
}

namespace
{
// A click takes the cell that was clicked, whether or not it is the current one.
bool AskToToggleAt(Grid& grid, int row, int col)
{
    grid.EditRow = row;
    grid.EditCol = col;
    grid.EditCancel = VARIANT_FALSE;
    constexpr struct {
        void (*Ask)(Grid&, int, int, VARIANT_BOOL&);
        uint32_t Mode;
    } questions[] = {
        {event::BeforeEdit, 0}, {event::StartEdit, 0}, {event::ValidateEdit, PaintTogglingCheck}};
    for (const auto& question : questions) {
        grid.PaintMode |= question.Mode;
        question.Ask(grid, row, col, grid.EditCancel);
        grid.PaintMode &= ~question.Mode;
        if (grid.EditCancel || grid.Closing || !IsCell(grid, row, col))
            return false;
    }
    return true;
}

bool ToggleTo(Grid& grid, int row, int col, int state)
{
    if (!IsCell(grid, row, col))
        return false;
    if (CheckStateOf(grid, row, col) == state)
        return true;
    if (!CommitEdit(grid) || !IsCell(grid, row, col) || !AskToToggleAt(grid, row, col))
        return false;
    if (MergesAtAll(grid)) {
        SetCellPropertyRange(grid, CurrentMergedRange(grid, row, col), CellSelector::CheckState, state);
    } else {
        SetCheckState(grid, row, col, state);
        if (IsCell(grid, row, col))
            RepaintCell(grid, row, col);
    }
    FinishToggle(grid, row, col);
    return true;
}

// The last row of the selection is left out, and a click on it changes no other row: hosts rely on it.
void SpreadOverRows(Grid& grid, int row, int col, int state)
{
    CellRange selection = SelectionRange(grid);
    if (row < selection.Row1 || row >= selection.Row2)
        return;
    for (int each = selection.Row1; each < selection.Row2; ++each)
        if (each != row && !ToggleTo(grid, each, col, state))
            return;
}

void SpreadOverList(Grid& grid, int row, int col, int state)
{
    if (!IsRow(grid, row) || !IsRowSelected(grid, row))
        return;
    for (int each = 0; each < grid.Rows; ++each)
        if (each != row && IsRowSelected(grid, each) && !ToggleTo(grid, each, col, state))
            return;
}

bool IsOnBox(Grid& grid, int row, int col, POINT point)
{
    if (!IsCell(grid, row, col) || grid.ColTable[col].ColFormat || CheckStateOf(grid, row, col) == 0 ||
        !IsCell(grid, row, col))
        return false;
    RECT box = CheckBoxRect(grid, row, col);
    return PtInRect(&box, point) != 0;
}
} // namespace

bool ClickCheckBox(Grid& grid, int row, int col, POINT point)
{
    KeepAlive alive(grid);
    if (!grid.Editable || !IsOnBox(grid, row, col, point) || !CommitEdit(grid) || !IsCell(grid, row, col))
        return false;
    int state = NextStateOf(grid, row, col);
    if (state == CheckStateOf(grid, row, col)) // a disabled box takes the press and does nothing
        return true;
    if (!ToggleTo(grid, row, col, state))
        return false;
    if (grid.SelectionMode == lorvSelectionByRow)
        SpreadOverRows(grid, row, col, state);
    else if (grid.SelectionMode == lorvSelectionListBox)
        SpreadOverList(grid, row, col, state);
    return true;
}
