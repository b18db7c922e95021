#pragma once
// The keys: one routine per message of the grid's window. While an editor is open they are its keys.

#include "core/grid_object.h"
#include "core/upcalls.h"

#include <optional>

bool OnKeyDown(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);    // WM_KEYDOWN
bool OnKeyUp(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);      // WM_KEYUP
bool OnSysKeyDown(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result); // WM_SYSKEYDOWN
bool OnSysKeyUp(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);   // WM_SYSKEYUP
bool OnChar(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);       // WM_CHAR
// WM_IME_STARTCOMPOSITION: what an input method composes goes into the cell.
bool OnStartComposition(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);

// The clipboard method that a key calls while lorvCFAutoClipboard is set. `modifiers` as in the events; any
// others besides those that a key needs make it another key.
std::optional<ClipboardCommand> ClipboardCommandOf(int key, short modifiers, bool editable) noexcept;
