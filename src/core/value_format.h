#pragma once
// Cells hold text. Here is what a text is worth as a number or a date, and how a column's format shows it. A
// format changes what is shown and never what is stored. None of these routines fires an event.
//
// Results in the scratch buffer are good until the next text request. The text that a routine is given may
// itself lie there.

#include "core/grid_object.h"
#include "core/locale_info.h"

// The user's locale, read at the first need and never again.
const LocaleInfo& TheLocale() noexcept;

// The text of a cell as shown: the stored text, the scratch buffer, a text of the column's list, or null.
// Null, too, for a cell outside the grid.
const wchar_t* GetDisplayText(Grid& grid, int row, int col) noexcept;

// The text under a format, in the scratch buffer; the text itself where the format does not apply to it.
const wchar_t* FormatText(const wchar_t* format, const wchar_t* text) noexcept;

bool IsNumericText(const wchar_t* text) noexcept;

// The number that the platform, or else the grid's own parser, reads from the text; 0.0 when it is none.
double TextToDouble(const wchar_t* text) noexcept;

// The date that the text names, or else its number. False, with 0.0, when it is neither.
bool TextToDateOrNumber(const wchar_t* text, double* value) noexcept;

// The text as a typed value for a store that holds such; `type` is a DataTypeSettings value. The value is
// replaced. The code of the conversion; E_OUTOFMEMORY.
HRESULT TextToVariant(const wchar_t* text, VARIANT* value, int type) noexcept;

// A date under a format of wcsftime, in the scratch buffer. Null when the date is out of range, the format is
// not known to the runtime, or the result has no text or more than 127 characters.
const wchar_t* FormatDate(const wchar_t* format, double date) noexcept;

// Sets the format of a column, of all columns when `col` is negative. Does not repaint. LORV_E_INDEX,
// LORV_E_MEMORY.
HRESULT SetColFormat(Grid& grid, int col, const wchar_t* format) noexcept;
