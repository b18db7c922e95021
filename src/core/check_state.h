#pragma once

#include "core/errors.h"
#include "core/grid_object.h"

// The check box of a cell. In a boolean column the box of a data cell lives in the text: "-1" or "0".
// LORV_E_INDEX, LORV_E_VALUE for what is no CellCheckedSettings, LORV_E_MEMORY.
HRESULT SetCheckState(Grid& grid, int row, int col, int state);
// A CellCheckedSettings. No range check.
int CheckStateOf(Grid& grid, int row, int col) noexcept;

// Reads a text as the platform reads a boolean: a number or a word of the locale. False when it is neither.
bool TextToBoolean(const wchar_t* text, bool& value) noexcept;
