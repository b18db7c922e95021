#pragma once

#include "core/locale_info.h"
#include "core/text_scan.h"

#include <string>

// Locales of the three shapes that matter, whatever the machine's own is.

inline void SetCurrency(LocaleInfo& locale, const wchar_t* text, const wchar_t* affix, int order)
{
    locale.CurrencyLength = TextLength(text);
    locale.CurrencyAffixLength = TextLength(affix);
    for (int i = 0; i <= locale.CurrencyLength; ++i)
        locale.CurrencyText[i] = text[i];
    for (int i = 0; i <= locale.CurrencyAffixLength; ++i)
        locale.CurrencyAffix[i] = affix[i];
    locale.CurrencyOrder = order;
    locale.SymbolAfter = order == 1 || order == 3;
}

inline LocaleInfo AmericanLocale()
{
    return LocaleInfo();
}

inline LocaleInfo GermanLocale()
{
    LocaleInfo locale;
    locale.DecimalChar = L',';
    locale.ThousandChar = L'.';
    locale.NegParens = false;
    SetCurrency(locale, L"\x20AC", L" \x20AC", 3);
    return locale;
}

// The symbol in front with a blank; the blank itself as the thousands separator.
inline LocaleInfo NorwegianLocale()
{
    LocaleInfo locale;
    locale.DecimalChar = L',';
    locale.ThousandChar = L'\xA0';
    locale.NegParens = false;
    SetCurrency(locale, L"kr", L"kr ", 2);
    return locale;
}

// For messages, and for comparing: ASCII as it stands, all else as <hex>.
inline std::string Show(const wchar_t* text)
{
    if (!text)
        return "(null)";
    std::string shown;
    for (; *text; ++text) {
        if (*text < 0x7F) {
            shown += static_cast<char>(*text);
        } else {
            static const char Hex[] = "0123456789abcdef";
            const unsigned code = static_cast<unsigned>(*text);
            shown += '<';
            for (int shift = 12; shift >= 0; shift -= 4)
                shown += Hex[(code >> shift) & 15];
            shown += '>';
        }
    }
    return shown;
}
