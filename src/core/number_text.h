#pragma once

#include "core/locale_info.h"

// The grid's own number recogniser and parser. They accept what the grid itself shows for a number: the
// currency symbol, parentheses for a negative value, thousands separators, a percent sign.

// True when the text reads as a number of this locale. Null and empty texts do not.
bool IsNumericText(const LocaleInfo& locale, const wchar_t* text);

// The number that the text begins with; 0.0 when it begins with none. Whatever follows the number is not
// looked at. Too large an exponent gives an infinity, as arithmetic does.
double ParseNumberText(const LocaleInfo& locale, const wchar_t* text);
