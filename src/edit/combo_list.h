#pragma once
// A drop-down list as an object: parsed from its text, with its columns measured. Each column of the grid
// embeds one, so that stored keys show as their texts; the drop-down editor has one with a window.

#include "core/errors.h"
#include "core/grid_object.h"

// Bits of ComboListState::ComboBits.
enum ComboBit : uint8_t {
    ComboBoldKeyColumn = 1,
    ComboLastKeyWasBackspace = 2, // nothing sets it: masks of drop-downs never see a Backspace
    ComboEditableList = 4,
    ComboChangePending = 8, // a change that ChangeEdit has not told of
    ComboFreeText = 16,     // the text in the box is none of the items
};

// Replaces what the state holds by a list. With a device context the columns are measured, in its font; with
// a combo box its items are added. An item for which there is no memory is left out.
void ParseComboList(ComboListState& state, const wchar_t* text, HDC dc = nullptr, HWND comboBox = nullptr);

// Frees the list, empties that of `comboBox`, and puts the state back to how a new one is.
void ClearComboList(ComboListState& state, HWND comboBox = nullptr) noexcept;

// The key of an item, null when the list has none for it.
const wchar_t* ComboKeyOf(const ComboListState& state, int item) noexcept;

// Sets a column's list, null for none. Hosts set the same list on each move of the cursor: then nothing is
// parsed, and `changed` stays as it is. LORV_E_VALUE for what is no list, LORV_E_MEMORY.
HRESULT SetColumnList(ColRecord& column, const wchar_t* list, bool& changed) noexcept;
