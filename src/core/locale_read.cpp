#include "core/text_scan.h"
#include "core/text_writer.h"
#include "core/value_format.h"

#include <clocale>
#include <cwchar>

namespace
{

void ReadText(LCTYPE type, wchar_t* buffer, int capacity) noexcept
{
    if (!GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer, capacity))
        buffer[0] = 0;
}

int ReadNumber(LCTYPE type) noexcept
{
    wchar_t text[32];
    ReadText(type, text, 32);
    return ScanInt(text);
}

wchar_t ReadChar(LCTYPE type) noexcept
{
    wchar_t text[32];
    ReadText(type, text, 32);
    return text[0];
}

void ReadCurrency(LocaleInfo& locale) noexcept
{
    constexpr int BlankInFront = 3;
    constexpr int BlankBehind = 2;
    locale.CurrencyOrder = ReadNumber(LOCALE_ICURRENCY);
    locale.SymbolAfter = locale.CurrencyOrder == 1 || locale.CurrencyOrder == 3;
    ReadText(LOCALE_SCURRENCY, locale.CurrencyText, MaxCurrencyLength + 1);
    locale.CurrencyLength = TextLength(locale.CurrencyText);

    TextWriter affix(locale.CurrencyAffix, MaxCurrencyLength + 2);
    if (locale.CurrencyOrder == BlankInFront)
        affix.Put(L' ');
    affix.Put(locale.CurrencyText);
    if (locale.CurrencyOrder == BlankBehind)
        affix.Put(L' ');
    locale.CurrencyAffixLength = affix.Length();

    const int negative = ReadNumber(LOCALE_INEGCURR);
    locale.NegParens = negative == 0 || negative == 4 || negative == 14 || negative == 15;
}

bool RunsOnNT() noexcept
{
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExW(&version) && version.dwPlatformId >= VER_PLATFORM_WIN32_NT;
}

LocaleInfo ReadLocale() noexcept
{
    // Dates and numbers that the runtime writes follow the user's locale from here on.
    _wsetlocale(LC_ALL, L".ACP");

    LocaleInfo locale;
    locale.DecimalChar = ReadChar(LOCALE_SDECIMAL);
    locale.ThousandChar = ReadChar(LOCALE_STHOUSAND);
    locale.DateChar = ReadChar(LOCALE_SDATE);
    locale.TimeChar = ReadChar(LOCALE_STIME);
    ReadText(LOCALE_SDECIMAL, locale.DecimalText, MaxSeparatorLength + 1);
    ReadText(LOCALE_STHOUSAND, locale.ThousandText, MaxSeparatorLength + 1);
    locale.NegativeNumberOrder = ReadNumber(LOCALE_INEGNUMBER);
    locale.DigitGrouping = ReadNumber(LOCALE_SGROUPING);
    locale.PlatformIsNT = RunsOnNT();
    ReadCurrency(locale);
    return locale;
}

} // namespace

const LocaleInfo& TheLocale() noexcept
{
    static const LocaleInfo locale = ReadLocale();
    return locale;
}
