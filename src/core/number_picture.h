#pragma once

#include "core/locale_info.h"

// What a number format such as "$#,##0.00" asks for. A format is read anew at each use.

// The description that the platform's currency formatter gets. Its separators are the locale's.
struct CurrencyPicture {
    int NumDigits = 0;
    int LeadingZero = 1;
    int Grouping = 0;
    int NegativeOrder = 1;
    int PositiveOrder = 0;
    // The locale's symbol with its blank; without it the symbol is empty.
    bool WithSymbol = false;
};

// False when the format asks for what the platform cannot do: percent, scaling by a thousand, padding with
// zeros.
bool BuildNumberFormat(const LocaleInfo& locale, const wchar_t* format, CurrencyPicture* picture);

// What the grid's own writer reads from a format.
struct NumberPicture {
    int Width = 0; // of the number padded with zeros, before separators and symbols
    int Decimals = 0;
    bool HasPoint = false;
    bool HasZero = false; // a zero stands before the point
    bool Thousands = false;
    bool ScaleByThousand = false;
    bool Percent = false;
    bool Dollar = false;
    bool Parens = false;
};

NumberPicture ScanNumberPicture(const LocaleInfo& locale, const wchar_t* format);

// Writes the value as the format asks, terminated. False when the result does not fit, or the value is no
// finite number; the buffer's content is then of no use.
bool FormatNumberFallback(const LocaleInfo& locale, const wchar_t* format, double value, wchar_t* buffer,
                          int capacity);
