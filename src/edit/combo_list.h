#pragma once
// The drop-down editor, as the cell editor drives it.

#include "core/grid_object.h"

// Bits of ComboListState::ComboBits.
enum ComboBit : uint8_t {
    ComboBoldKeyColumn = 1,
    ComboLastKeyWasBackspace = 2, // nothing sets it: masks of drop-downs never see a Backspace
    ComboEditableList = 4,
    ComboChangePending = 8,
    ComboFreeText = 16, // the text in the box is none of the items
};

// Opens the drop-down on the cell being edited. `key` as for StartCellEdit.
bool OpenComboEditor(Grid& grid, int key);
// The first step of a commit: takes the list back, with ComboCloseUp, and keeps what the user has chosen.
void SettleComboEdit(Grid& grid);
// What the cell stores for the current item when the column's list has keys; null: the text in the box.
const wchar_t* ComboKeyToStore(const Grid& grid);
// The notifications of the drop-down, while it is visible.
void OnComboCommand(Grid& grid, int notification);
