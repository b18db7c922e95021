#pragma once

// What the number and date routines know of the user's locale. Plain data, so that the parsers can run
// without a window system and tests can try locales that the machine does not have.

constexpr int MaxCurrencyLength = 15;
constexpr int MaxSeparatorLength = 7;

struct LocaleInfo {
    wchar_t DecimalChar = L'.';
    wchar_t ThousandChar = L',';
    wchar_t DateChar = L'/';
    wchar_t TimeChar = L':';

    // The currency symbol follows the value.
    bool SymbolAfter = false;
    // Negative currency stands in parentheses.
    bool NegParens = true;

    wchar_t CurrencyText[MaxCurrencyLength + 1] = L"$";
    int CurrencyLength = 1;
    // The symbol with the blank that the locale puts between it and the value, on its inner side.
    wchar_t CurrencyAffix[MaxCurrencyLength + 2] = L"$";
    int CurrencyAffixLength = 1;
    // 0 symbol in front, 1 behind, 2 in front with a blank, 3 behind with a blank.
    int CurrencyOrder = 0;

    int NegativeNumberOrder = 1;
    int DigitGrouping = 3;

    wchar_t DecimalText[MaxSeparatorLength + 1] = L".";
    wchar_t ThousandText[MaxSeparatorLength + 1] = L",";

    bool PlatformIsNT = true;
};
