#pragma once
// Clip strings: the texts of a rectangle of cells as one string, row by row, with a separator between cells
// and another between rows. They hold the stored texts, not what the cells show.

#include "core/clip_parts.h"
#include "core/errors.h"
#include "core/grid_object.h"

// Tab and carriage return, or what the program chose, unless the separators are to be fixed.
ClipSeparatorPair ClipSeparatorsOf(const Grid& grid, bool fixedSeparators) noexcept;

// The clip string of a range whose corners come in any order. The caller frees it with FreeBlock. Null when
// the range leaves the grid or memory runs out.
[[nodiscard]] wchar_t* ClipOfRange(Grid& grid, int row1, int col1, int row2, int col2, bool fixedSeparators);
// The same of the selection; in list-box mode of the selected rows, without their fixed columns.
[[nodiscard]] wchar_t* ClipOfSelection(Grid& grid, bool fixedSeparators);

// Writes a clip string into a range. What the string has no part for stays as it is, and surplus parts are
// dropped. LORV_E_INDEX, LORV_E_MEMORY, or the code of the first cell that failed.
HRESULT PutClip(Grid& grid, const wchar_t* text, int row1, int col1, int row2, int col2,
                bool fixedSeparators);
// The same with the texts of one row.
HRESULT PutRowText(Grid& grid, const wchar_t* text, int row, int col1, int col2, bool fixedSeparators);

// What `Clip` sets: the selection, or with an empty text the current cell alone.
HRESULT SetClip(Grid& grid, const wchar_t* text);
// Two different characters, neither a lead byte, or nothing. LORV_E_VALUE, LORV_E_MEMORY.
HRESULT SetClipSeparators(Grid& grid, BSTR text);
