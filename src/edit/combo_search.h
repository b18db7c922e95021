#pragma once
// Search as the user types in a drop-down, in two forms: in a list the typed letters are collected and move
// through the items; in a box with free text the item that begins with the text completes it.

#include "core/grid_object.h"

// Forgets the letters that were typed.
void EndComboSearch() noexcept;
// What a typed key comes to; true when an item was found, and then the key is used up. `window` is the one
// that the key came to.
bool ComboSearchKey(Grid& grid, HWND window, WPARAM key);
