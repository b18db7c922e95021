#include "core/value_format.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/date_picture.h"
#include "core/number_picture.h"
#include "core/number_text.h"
#include "core/text_scan.h"
#include "platform/variant.h"

#include <cstdio>
#include <ctime>
#include <cwchar>
#include <utility>

namespace
{

// The platform's formatters keep the digits of a number in a small fixed room, and do not all check it. What
// is longer is written by the grid itself.
constexpr int LongestPlatformNumber = 80;
constexpr int MostPlatformDecimals = 60;
constexpr int PlatformResultSize = 512;

constexpr int DateTextLimit = 128;

// Process-wide, safe because every grid of the process lives on one thread. A result is made here and moves
// to the scratch buffer when it is good, since the text that it is made of may lie there.
struct ValueFormatState {
    wchar_t Work[ScratchCapacity + 1];
};
ValueFormatState valueFormat;

// False when there is no memory for a copy of the text.
bool SetText(VARIANT& value, const wchar_t* text) noexcept
{
    value.bstrVal = SysAllocString(text);
    value.vt = value.bstrVal ? VT_BSTR : VT_EMPTY;
    return value.bstrVal != nullptr;
}

bool PlatformDate(const wchar_t* text, double* date) noexcept
{
    OwnedVariant source;
    OwnedVariant result;
    if (!SetText(source.Get(), text) || FAILED(VariantChangeType(&result.Get(), &source.Get(), 0, VT_DATE)))
        return false;
    *date = result.Get().date;
    return true;
}

// The platform knows no percent sign: a blank stands in for it, in a copy.
bool PlatformNumber(const wchar_t* text, double* value) noexcept
{
    OwnedVariant source;
    if (!SetText(source.Get(), text))
        return false;
    wchar_t* percent = std::wcschr(source.Get().bstrVal, L'%');
    if (percent)
        *percent = L' ';
    OwnedVariant number;
    if (FAILED(VariantChangeType(&number.Get(), &source.Get(), 0, VT_R8)))
        return false;
    *value = percent ? number.Get().dblVal / 100.0 : number.Get().dblVal;
    return true;
}

// A number text with the separators that the platform's formatters take; false when it is too long for them.
bool NormaliseNumber(const wchar_t* text, wchar_t (&number)[LongestPlatformNumber + 1]) noexcept
{
    const LocaleInfo& locale = TheLocale();
    int length = 0;
    for (; text[length]; ++length) {
        if (length == LongestPlatformNumber)
            return false;
        const wchar_t c = text[length];
        if (c == locale.DecimalChar)
            number[length] = L'.';
        else
            number[length] = c == locale.ThousandChar ? L',' : c;
    }
    number[length] = 0;
    return true;
}

// The value as the runtime writes it with six decimals.
bool RewriteNumber(double value, wchar_t (&number)[LongestPlatformNumber + 1]) noexcept
{
    char digits[LongestPlatformNumber + 1];
    const int length = std::snprintf(digits, sizeof digits, "%lf", value);
    if (length < 0 || length > LongestPlatformNumber)
        return false;
    for (int i = 0; i <= length; ++i) {
        const wchar_t c = static_cast<unsigned char>(digits[i]);
        number[i] = IsDigit(c) || c == L'-' || !c ? c : L'.';
    }
    return true;
}

const wchar_t* PlatformCurrency(const wchar_t* number, const CURRENCYFMTW* description) noexcept
{
    wchar_t result[PlatformResultSize];
    if (!GetCurrencyFormatW(LOCALE_USER_DEFAULT, 0, number, description, result, PlatformResultSize))
        return nullptr;
    return CopyToScratch(result);
}

const wchar_t* FormatByDescription(const CurrencyPicture& picture, const wchar_t* text) noexcept
{
    wchar_t number[LongestPlatformNumber + 1];
    if (picture.NumDigits > MostPlatformDecimals || !NormaliseNumber(text, number))
        return nullptr;
    LocaleInfo locale = TheLocale(); // the description takes its texts as writable
    if (!picture.WithSymbol)
        locale.CurrencyAffix[0] = 0;
    CURRENCYFMTW description = {};
    description.NumDigits = static_cast<UINT>(picture.NumDigits);
    description.LeadingZero = static_cast<UINT>(picture.LeadingZero);
    description.Grouping = static_cast<UINT>(picture.Grouping);
    description.lpDecimalSep = locale.DecimalText;
    description.lpThousandSep = locale.ThousandText;
    description.NegativeOrder = static_cast<UINT>(picture.NegativeOrder);
    description.PositiveOrder = static_cast<UINT>(picture.PositiveOrder);
    description.lpCurrencySymbol = locale.CurrencyAffix;
    return PlatformCurrency(number, &description);
}

const wchar_t* FormatNumberText(const wchar_t* format, const wchar_t* text) noexcept
{
    if (!IsNumericText(text))
        return text;
    CurrencyPicture picture;
    if (BuildNumberFormat(TheLocale(), format, &picture))
        if (const wchar_t* result = FormatByDescription(picture, text))
            return result;
    if (!FormatNumberFallback(TheLocale(), format, TextToDouble(text), valueFormat.Work, ScratchCapacity + 1))
        return text;
    return valueFormat.Work[0] ? CopyToScratch(valueFormat.Work) : text;
}

const wchar_t* FormatCurrencyText(const wchar_t* text) noexcept
{
    if (!IsNumericText(text))
        return text;
    wchar_t number[LongestPlatformNumber + 1];
    if (NormaliseNumber(text, number))
        if (const wchar_t* result = PlatformCurrency(number, nullptr))
            return result;
    if (RewriteNumber(TextToDouble(text), number))
        if (const wchar_t* result = PlatformCurrency(number, nullptr))
            return result;
    return text;
}

// The locale's date pictures, translated once per process.
class LocaleDates
{
public:
    LocaleDates() noexcept
    {
        Translate(LOCALE_SLONGDATE, longDate);
        Translate(LOCALE_SSHORTDATE, shortDate);
    }
    LocaleDatePictures Pictures() const noexcept { return {longDate, shortDate}; }

private:
    static void Translate(LCTYPE type, wchar_t (&result)[MaxDatePicture]) noexcept
    {
        wchar_t picture[128];
        if (!GetLocaleInfoW(LOCALE_USER_DEFAULT, type, picture, 128) ||
            !TranslateDateFormat(picture, LocaleDatePictures(), result, MaxDatePicture))
            result[0] = 0;
    }

    wchar_t longDate[MaxDatePicture];
    wchar_t shortDate[MaxDatePicture];
};

LocaleDatePictures TheLocaleDates() noexcept
{
    static const LocaleDates dates;
    return dates.Pictures();
}

const wchar_t* FormatDateText(const wchar_t* format, const wchar_t* text) noexcept
{
    wchar_t picture[MaxDatePicture];
    if (!TranslateDateFormat(format, TheLocaleDates(), picture, MaxDatePicture))
        return text;
    double date = 0.0;
    if (!TextToDateOrNumber(text, &date))
        return text;
    const wchar_t* result = FormatDate(picture, date);
    return result ? result : text;
}

// The format of a cell with a check box is a pair of words.
const wchar_t* CheckStateWord(const wchar_t* format, bool checked) noexcept
{
    const wchar_t* separator = std::wcschr(format, L';');
    if (!checked)
        return separator ? separator + 1 : nullptr;
    wchar_t* word = CopyToScratch(format);
    if (separator && separator - format < ScratchCapacity)
        word[separator - format] = 0;
    return word;
}

// What a translated list shows for a stored key; null when it has no text for it.
const wchar_t* ListText(const ComboListState& list, const wchar_t* text) noexcept
{
    if (!list.ComboKeys || !list.ComboTexts)
        return nullptr;
    for (int i = 0; i < list.ComboCount; ++i)
        if (list.ComboKeys[i] && lstrcmpiW(text, list.ComboKeys[i]) == 0)
            return list.ComboTexts[i];
    return nullptr;
}

bool ShowsParentheses(const wchar_t* format) noexcept
{
    return FindChar(format, L'$') || FindChar(format, L'(') || ContainsNoCase(format, L"Currency");
}

tm CalendarTime(const DateParts& parts) noexcept
{
    tm time = {};
    time.tm_year = parts.Year - 1900;
    time.tm_mon = parts.Month - 1;
    time.tm_mday = parts.Day;
    time.tm_hour = parts.Hour;
    time.tm_min = parts.Minute;
    time.tm_sec = parts.Second;
    time.tm_wday = parts.Weekday - 1;
    time.tm_yday = parts.YearDay - 1;
    return time;
}

} // namespace

const wchar_t* GetDisplayText(Grid& grid, int row, int col) noexcept
{
    if (!IsCell(grid, row, col))
        return nullptr;
    // A text that a data source gives is a call to the host, after which the tables may be others.
    const int state = grid.ColTable[col].ColFormat ? CheckStateOf(grid, row, col) : 0;
    if (!IsCell(grid, row, col))
        return nullptr;
    if (state && grid.ColTable[col].ColFormat)
        return CheckStateWord(grid.ColTable[col].ColFormat, state == lorvChecked);

    const wchar_t* text = GetCellText(grid, row, col);
    if (!text || !*text || !IsCell(grid, row, col))
        return nullptr;
    const ColRecord& column = grid.ColTable[col];
    if (column.ComboState.ComboCount > 0)
        if (const wchar_t* listed = ListText(column.ComboState, text))
            return listed;
    return column.ColFormat ? FormatText(column.ColFormat, text) : text;
}

const wchar_t* FormatText(const wchar_t* format, const wchar_t* text) noexcept
{
    if (!format || !text)
        return text;
    if (*format == L'[')
        if (const wchar_t* end = FindChar(format, L']'))
            format = end + 1;
    if (FindChar(format, L'#') || FindChar(format, L'0'))
        return FormatNumberText(format, text);
    if (ContainsNoCase(format, L"Currency"))
        return FormatCurrencyText(text);
    return FormatDateText(format, text);
}

bool IsNumericText(const wchar_t* text) noexcept
{
    return IsNumericText(TheLocale(), text);
}

double TextToDouble(const wchar_t* text) noexcept
{
    if (!text)
        return 0.0;
    double value = 0.0;
    // Most numbers need no platform: a copy and a conversion cost many times the reading itself.
    if (TheLocale().PlatformIsNT &&
        (ParsePlainDecimal(TheLocale().DecimalChar, text, &value) || PlatformNumber(text, &value)))
        return value;
    return ParseNumberText(TheLocale(), text);
}

bool TextToDateOrNumber(const wchar_t* text, double* value) noexcept
{
    *value = 0.0;
    if (text && PlatformDate(text, value))
        return true;
    if (!IsNumericText(text))
        return false;
    *value = TextToDouble(text);
    return true;
}

HRESULT TextToVariant(const wchar_t* text, VARIANT* value, int type) noexcept
{
    // Each of the types that a typed store knows, beside the variant type of its values.
    static constexpr struct {
        int Type;
        VARTYPE VariantType;
    } Conversions[] = {{2, VT_I2},   {3, VT_I4},    {4, VT_R4},  {5, VT_R8}, {6, VT_CY},
                       {7, VT_DATE}, {11, VT_BOOL}, {20, VT_I8}, {14, VT_R8}};

    const bool empty = !text || !*text;
    VariantClear(value);
    for (const auto& conversion : Conversions) {
        if (conversion.Type != type)
            continue;
        OwnedVariant source;
        source.Get().vt = VT_NULL; // an empty text has no value of any type
        if (!empty && !SetText(source.Get(), text))
            return E_OUTOFMEMORY;
        const HRESULT result = VariantChangeType(value, &source.Get(), 0, conversion.VariantType);
        if (FAILED(result))
            std::swap(*value, source.Get());
        return result;
    }
    return SetText(*value, empty ? L"" : text) ? S_OK : E_OUTOFMEMORY;
}

const wchar_t* FormatDate(const wchar_t* format, double date) noexcept
{
    DateParts parts;
    if (!DatePartsFromValue(date, &parts) || !IsKnownDateFormat(format))
        return nullptr;
    tm time = CalendarTime(parts);
    // A year of two digits needs no more of the year than these.
    if (time.tm_year < 0 && (std::wcsstr(format, L"%y") || std::wcsstr(format, L"%x")))
        time.tm_year += (99 - time.tm_year) / 100 * 100;

    wchar_t text[DateTextLimit + 1];
    const size_t length = std::wcsftime(text, DateTextLimit, format, &time);
    // Some runtimes answer the limit itself, with no terminator, when the text does not fit.
    if (length == 0 || length >= DateTextLimit)
        return nullptr;
    text[length] = 0;
    return CopyToScratch(text);
}

HRESULT SetColFormat(Grid& grid, int col, const wchar_t* format) noexcept
{
    if (col >= grid.Cols)
        return LORV_E_INDEX;
    const int first = col < 0 ? 0 : col;
    const int last = col < 0 ? grid.Cols - 1 : col;
    for (int i = first; i <= last; ++i) {
        ColRecord& column = grid.ColTable[i];
        column.ColFlags &= static_cast<uint8_t>(~ColFlagParenFormat);
        if (const HRESULT result = ReplaceText(column.ColFormat, format); FAILED(result))
            return result;
        if (format && ShowsParentheses(format))
            column.ColFlags |= ColFlagParenFormat;
    }
    return S_OK;
}
