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

// What programs ask of the window of the last edit; -1, and no text, while there is none.
int ComboCountOf(const Grid& grid) noexcept;
// -1, too, when the box has a text that is no item.
int ComboIndexOf(const Grid& grid) noexcept;
void SelectComboItem(Grid& grid, int item);
// A text of the list; a null BSTR when there is no such item.
class Bstr ComboItemText(HWND comboBox, int item);

// After a change of `ComboList`: the window of the last edit goes, unless an edit goes on in it.
void DropStaleComboWindow(Grid& grid);
