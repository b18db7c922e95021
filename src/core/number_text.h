#pragma once

#include "core/locale_info.h"

// The grid's own number recogniser and parser. They accept what the grid itself shows for a number: the
// currency symbol, parentheses for a negative value, thousands separators, a percent sign.

// True when the text reads as a number of this locale. Null and empty texts do not.
bool IsNumericText(const LocaleInfo& locale, const wchar_t* text);

// The value of a text that is nothing but a short decimal number: a minus sign perhaps, digits, perhaps
// `decimal` and more digits, 15 digits in all at most. The value is exact, or the double nearest to it. False
// for any other text.
bool ParsePlainDecimal(wchar_t decimal, const wchar_t* text, double* value);

// The number that the text begins with; 0.0 when it begins with none. Whatever follows the number is not
// looked at. Too large an exponent gives an infinity, as arithmetic does.
double ParseNumberText(const LocaleInfo& locale, const wchar_t* text);
