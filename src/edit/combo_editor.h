#pragma once
// The drop-down editor: a combo box over the cell. Its window and its list live on, hidden, until the next
// edit, and answer what programs ask of them.

#include "core/grid_object.h"

// To the combo box: tells of a change that is pending.
constexpr UINT MessageComboChanged = 1224;

// Opens the drop-down on the cell being edited. `key` as for StartCellEdit.
bool OpenComboEditor(Grid& grid, int key);
// The first step of a commit: takes the list back, with ComboCloseUp, and keeps what the user has chosen.
void SettleComboEdit(Grid& grid);
// What the cell stores for the current item when the column's list has keys; null: the text in the box.
const wchar_t* ComboKeyToStore(const Grid& grid);
// The notifications of the drop-down, while it is visible.
void OnComboCommand(Grid& grid, int notification);
