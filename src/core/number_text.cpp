#include "core/number_text.h"

#include "core/text_scan.h"

#include <cmath>
#include <cstdint>

namespace
{

constexpr int LargestExponent = 400;

// Walks a text once, character by character; each rule says how many characters it took, or refuses.
class NumberRecogniser
{
public:
    explicit NumberRecogniser(const LocaleInfo& info) : locale(info) {}

    bool Accepts(const wchar_t* text)
    {
        while (*text) {
            const int taken = Take(text);
            if (taken == Refused)
                return false;
            text += taken;
        }
        return seenDigit;
    }

private:
    static constexpr int Refused = 0;

    int Take(const wchar_t* at)
    {
        const wchar_t c = *at;
        if (IsDigit(c))
            return TakeDigit();
        if (c == locale.ThousandChar)
            return leading || closed ? Refused : 1;
        if (c == locale.DecimalChar)
            return TakeDecimal();
        switch (c) {
        case L'+':
        case L'-':
            return TakeSign();
        case L'(':
            return TakeOpening(at);
        case L')':
            return TakeClosing(at);
        case L' ':
        case L'\t':
            return leading || (locale.CurrencyLength > 0 && at[1] == locale.CurrencyText[0]) ? 1 : Refused;
        case L'E':
        case L'e':
            return TakeExponent(at);
        case L'%':
            return IsFinalPercent(at) ? 1 : TakeCurrency(at);
        default:
            return TakeCurrency(at);
        }
    }

    int TakeDigit()
    {
        if (closed)
            return Refused;
        seenDigit = true;
        leading = false;
        return 1;
    }

    int TakeDecimal()
    {
        if (closed || seenDecimal || seenExponent)
            return Refused;
        leading = false;
        seenDecimal = true;
        return 1;
    }

    int TakeSign()
    {
        if (closed || !leading || seenSign)
            return Refused;
        seenSign = true;
        return 1;
    }

    int TakeOpening(const wchar_t* at)
    {
        // A second opening finds the sign taken, so a text is searched for its closing once.
        if (closed || !leading || seenSign || !FindChar(at, L')'))
            return Refused;
        seenSign = true;
        inParen = true;
        return 1;
    }

    int TakeClosing(const wchar_t* at)
    {
        if (!inParen || FindChar(at + 1, L')'))
            return Refused;
        closed = true;
        return 1;
    }

    int TakeExponent(const wchar_t* at)
    {
        if (leading || closed || seenExponent)
            return Refused;
        const int signLength = at[1] == L'+' || at[1] == L'-' ? 1 : 0;
        seenExponent = true;
        const int exponent = ScanInt(at + 1 + signLength);
        return exponent > LargestExponent || exponent < -LargestExponent ? Refused : 1 + signLength;
    }

    static bool IsFinalPercent(const wchar_t* at) { return !at[1] || (at[1] == L')' && !at[2]); }

    int TakeCurrency(const wchar_t* at)
    {
        if (seenCurrency || !BeginsWithNoCase(at, locale.CurrencyText))
            return Refused;
        if (locale.SymbolAfter == leading)
            return Refused;
        seenCurrency = true;
        closed = closed || locale.SymbolAfter;
        return locale.CurrencyLength;
    }

    const LocaleInfo& locale;
    bool seenDigit = false;
    bool leading = true; // until the first digit or decimal character
    bool closed = false; // after a closing parenthesis or a trailing currency symbol
    bool seenDecimal = false;
    bool seenExponent = false;
    bool seenSign = false;
    bool seenCurrency = false;
    bool inParen = false;
};

const wchar_t* SkipBlanks(const wchar_t* at)
{
    while (IsBlank(*at))
        ++at;
    return at;
}

// Blanks, the currency symbol if it stands there, blanks.
const wchar_t* SkipCurrency(const LocaleInfo& locale, const wchar_t* at)
{
    at = SkipBlanks(at);
    if (BeginsWithNoCase(at, locale.CurrencyText))
        at = SkipBlanks(at + locale.CurrencyLength);
    return at;
}

double ReadWhole(const LocaleInfo& locale, const wchar_t*& at)
{
    double whole = 0.0;
    for (; IsDigit(*at) || (*at && *at == locale.ThousandChar); ++at)
        if (IsDigit(*at))
            whole = whole * 10.0 + (*at - L'0');
    return whole;
}

double ReadFraction(const wchar_t*& at)
{
    // Digits past this size are far below the last bit of the sum; reading them would only run into infinity.
    constexpr double EnoughDigits = 1e300;
    double fraction = 0.0;
    int count = 0;
    for (; IsDigit(*at); ++at) {
        if (fraction < EnoughDigits) {
            fraction = fraction * 10.0 + (*at - L'0');
            ++count;
        }
    }
    for (; count > 0 && fraction > 0.0; --count)
        fraction /= 10.0;
    return fraction;
}

double ApplyTail(const wchar_t* at, double value)
{
    if (*at == L'E' || *at == L'e') {
        // Zero and infinity stay what they are, whatever the exponent.
        return value == 0.0 || std::isinf(value) ? value : value * std::pow(10.0, ScanInt(at + 1));
    }
    return *at == L'%' ? value / 100.0 : value;
}

} // namespace

bool IsNumericText(const LocaleInfo& locale, const wchar_t* text)
{
    return text && NumberRecogniser(locale).Accepts(text);
}

bool ParsePlainDecimal(wchar_t decimal, const wchar_t* text, double* value)
{
    // Up to here both the digits and the power of ten are doubles without an error, and so is rounded once.
    constexpr int MostDigits = 15;
    static constexpr double powersOfTen[MostDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = *text == L'-';
    const wchar_t* at = negative ? text + 1 : text;
    int64_t digits = 0;
    int count = 0, decimals = 0;
    for (; IsDigit(*at) && count <= MostDigits; ++at, ++count)
        digits = digits * 10 + (*at - L'0');
    if (count > 0 && *at && *at == decimal) {
        for (++at; IsDigit(*at) && count <= MostDigits; ++at, ++count, ++decimals)
            digits = digits * 10 + (*at - L'0');
        if (decimals == 0)
            return false;
    }
    // A negative zero is left to the platform.
    if (*at || count == 0 || count > MostDigits || (negative && digits == 0))
        return false;
    const double magnitude = static_cast<double>(digits) / powersOfTen[decimals];
    *value = negative ? -magnitude : magnitude;
    return true;
}

double ParseNumberText(const LocaleInfo& locale, const wchar_t* text)
{
    if (!text)
        return 0.0;
    const wchar_t* at = SkipCurrency(locale, text);
    bool negative = false;
    if (*at == L'-' || *at == L'+' || *at == L'(') {
        negative = *at != L'+';
        at = SkipCurrency(locale, at + 1);
    } else if (!IsDigit(*at) && *at != locale.DecimalChar) {
        return 0.0;
    }

    double value = ReadWhole(locale, at);
    if (*at && *at == locale.DecimalChar) {
        ++at;
        value += ReadFraction(at);
    }
    value = ApplyTail(at, value);
    return negative ? -value : value;
}
