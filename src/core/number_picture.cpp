#include "core/number_picture.h"

#include "core/text_scan.h"
#include "core/text_writer.h"

#include <cmath>
#include <cstdio>

namespace
{

// A double has at most 309 digits before the point and 1074 behind it; all further decimals are zeros.
constexpr int MostWholeDigits = 309;
constexpr int MostDecimals = 1074;
constexpr int DigitBufferSize = MostWholeDigits + MostDecimals + 8;

// Below this count of decimals halves are rounded up, away from zero.
constexpr int NudgedDecimals = 10;
constexpr double Nudge = 1e-12;

bool ScalesByThousand(const wchar_t* at)
{
    return at[0] == L',' && at[1] == L'.';
}

int CountDecimals(const wchar_t* point)
{
    int count = 0;
    while (point[1 + count] == L'0' || point[1 + count] == L'#')
        ++count;
    return count;
}

NumberPicture CurrencyWordPicture(const LocaleInfo& locale)
{
    NumberPicture picture;
    picture.HasPoint = true;
    picture.Decimals = 2;
    picture.Thousands = true;
    picture.Dollar = true;
    picture.Parens = locale.NegParens;
    return picture;
}

void ScanDigitPlace(NumberPicture& picture, bool isZero)
{
    if (picture.HasPoint)
        ++picture.Decimals;
    else if (isZero)
        picture.HasZero = true;
    if (picture.HasZero)
        ++picture.Width;
}

void ScanPictureChar(NumberPicture& picture, const wchar_t* at)
{
    switch (*at) {
    case L'#':
        ScanDigitPlace(picture, false);
        break;
    case L'0':
        ScanDigitPlace(picture, true);
        break;
    case L'.':
        picture.HasPoint = true;
        picture.Width += picture.HasZero ? 1 : 0;
        break;
    case L',':
        picture.Thousands = true;
        picture.ScaleByThousand = picture.ScaleByThousand || ScalesByThousand(at);
        break;
    case L'$':
        picture.Dollar = true;
        break;
    case L'%':
        picture.Percent = true;
        break;
    case L'(':
    case L')':
        picture.Parens = true;
        break;
    default:
        break;
    }
}

double AdjustValue(const NumberPicture& picture, double value)
{
    if (picture.ScaleByThousand)
        value /= 1000.0;
    if (picture.Percent)
        value *= 100.0;
    if (picture.HasPoint && picture.Decimals < NudgedDecimals && value != 0.0)
        value += value > 0.0 ? Nudge : -Nudge;
    return value;
}

// The digits of a number as the runtime prints them, cut at the point. What stands for the point there is the
// runtime's business.
struct Digits {
    char Text[DigitBufferSize];
    int Length = 0;
    int WholeCount = 0;
    int DecimalCount = 0; // those that were printed

    bool Print(double magnitude, int decimals)
    {
        DecimalCount = decimals < MostDecimals ? decimals : MostDecimals;
        Length = std::snprintf(Text, sizeof Text, "%.*lf", DecimalCount, magnitude);
        if (Length <= 0 || Length >= DigitBufferSize)
            return false;
        while (Text[WholeCount] >= '0' && Text[WholeCount] <= '9')
            ++WholeCount;
        return WholeCount > 0;
    }

    const char* Decimals() const { return Text + Length - DecimalCount; }
};

void PutWhole(TextWriter& writer, const LocaleInfo& locale, const NumberPicture& picture,
              const Digits& digits, int padding)
{
    const int count = padding + digits.WholeCount;
    for (int i = 0; i < count && !writer.Overflowed(); ++i) {
        writer.Put(i < padding ? L'0' : static_cast<wchar_t>(digits.Text[i - padding]));
        const int left = count - 1 - i;
        if (picture.Thousands && locale.ThousandChar && left > 0 && left % 3 == 0)
            writer.Put(locale.ThousandChar);
    }
}

void PutDecimals(TextWriter& writer, const LocaleInfo& locale, const NumberPicture& picture,
                 const Digits& digits)
{
    if (picture.HasPoint)
        writer.Put(locale.DecimalChar);
    for (int i = 0; i < picture.Decimals && !writer.Overflowed(); ++i)
        writer.Put(i < digits.DecimalCount ? static_cast<wchar_t>(digits.Decimals()[i]) : L'0');
}

// The number alone, with its minus unless parentheses stand for it.
bool PutNumber(TextWriter& writer, const LocaleInfo& locale, const NumberPicture& picture, double value)
{
    Digits digits;
    if (!digits.Print(std::fabs(value), picture.Decimals))
        return false;
    const bool negative = std::signbit(value);
    if (negative && !picture.Parens)
        writer.Put(L'-');

    // A point without decimals is written after the padding, so it takes no part of the width.
    int width = picture.Width;
    if (picture.HasPoint && picture.Decimals == 0)
        --width;
    const int printed =
        (negative ? 1 : 0) + digits.WholeCount + (picture.Decimals > 0 ? 1 + picture.Decimals : 0);
    const int padding = width > printed ? width - printed : 0;

    const bool bareZero = digits.WholeCount == 1 && digits.Text[0] == '0' && picture.Decimals > 0;
    if (!bareZero || picture.HasZero || negative)
        PutWhole(writer, locale, picture, digits, padding);
    PutDecimals(writer, locale, picture, digits);
    return true;
}

} // namespace

bool BuildNumberFormat(const LocaleInfo& locale, const wchar_t* format, CurrencyPicture* picture)
{
    *picture = CurrencyPicture();
    const wchar_t* point = FindChar(format, L'.');
    int zerosBeforePoint = 0;
    for (const wchar_t* at = format; *at; ++at) {
        if (*at == L'%' || ScalesByThousand(at))
            return false;
        if (*at == L'0' && (!point || at < point) && ++zerosBeforePoint > 1)
            return false;
    }

    picture->NumDigits = point ? CountDecimals(point) : 0;
    picture->Grouping = FindChar(format, L',') ? locale.DigitGrouping : 0;
    if (FindChar(format, L'('))
        picture->NegativeOrder = 0;
    else
        picture->NegativeOrder = locale.NegativeNumberOrder ? locale.NegativeNumberOrder : 1;
    picture->WithSymbol = FindChar(format, L'$') != nullptr;
    picture->PositiveOrder = picture->WithSymbol ? locale.CurrencyOrder : 0;
    return true;
}

NumberPicture ScanNumberPicture(const LocaleInfo& locale, const wchar_t* format)
{
    if (EqualNoCase(format, L"Currency"))
        return CurrencyWordPicture(locale);
    NumberPicture picture;
    for (; *format; ++format)
        ScanPictureChar(picture, format);
    return picture;
}

bool FormatNumberFallback(const LocaleInfo& locale, const wchar_t* format, double value, wchar_t* buffer,
                          int capacity)
{
    const NumberPicture picture = ScanNumberPicture(locale, format);
    value = AdjustValue(picture, value);
    if (!std::isfinite(value))
        return false;

    TextWriter writer(buffer, capacity);
    const bool wrapped = picture.Parens && std::signbit(value);
    if (wrapped)
        writer.Put(L'(');
    if (picture.Dollar && !locale.SymbolAfter)
        writer.Put(locale.CurrencyAffix);
    if (!PutNumber(writer, locale, picture, value))
        return false;
    if (picture.Dollar && locale.SymbolAfter)
        writer.Put(locale.CurrencyAffix);
    if (picture.Percent)
        writer.Put(L'%');
    if (wrapped)
        writer.Put(L')');
    return !writer.Overflowed();
}
