#pragma once

#include <climits>

// Small readers of 16-bit text. They stand in for the runtime's wide functions, so that the parsers built on
// them behave the same wherever they are compiled.

inline bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

inline bool IsBlank(wchar_t c)
{
    return c == L' ' || c == L'\t';
}

inline int TextLength(const wchar_t* text)
{
    int length = 0;
    while (text[length] && length < INT_MAX)
        ++length;
    return length;
}

inline const wchar_t* FindChar(const wchar_t* text, wchar_t c)
{
    for (; *text; ++text)
        if (*text == c)
            return text;
    return nullptr;
}

// The lower case of a letter of the Latin, Greek and Cyrillic alphabets; any other character as it is.
inline wchar_t FoldCase(wchar_t c)
{
    struct Range {
        unsigned first, last, distance;
    };
    static constexpr Range Ranges[] = {{'A', 'Z', 32},     {0xC0, 0xD6, 32},   {0xD8, 0xDE, 32},
                                       {0x391, 0x3A1, 32}, {0x3A3, 0x3AB, 32}, {0x400, 0x40F, 80},
                                       {0x410, 0x42F, 32}};
    const unsigned code = static_cast<unsigned>(c);
    for (const Range& range : Ranges)
        if (code >= range.first && code <= range.last)
            return static_cast<wchar_t>(code + range.distance);
    // The extended Latin letters come in pairs, the capital first.
    const bool evenCapital = (code >= 0x100 && code <= 0x12F) || (code >= 0x132 && code <= 0x137) ||
                             (code >= 0x14A && code <= 0x177);
    const bool oddCapital = (code >= 0x139 && code <= 0x148) || (code >= 0x179 && code <= 0x17E);
    if ((evenCapital && code % 2 == 0) || (oddCapital && code % 2 == 1))
        return static_cast<wchar_t>(code + 1);
    return c;
}

// True when text begins with word, without regard to case. An empty word begins nothing.
inline bool BeginsWithNoCase(const wchar_t* text, const wchar_t* word)
{
    if (!*word)
        return false;
    for (; *word; ++text, ++word)
        if (FoldCase(*text) != FoldCase(*word))
            return false;
    return true;
}

inline bool ContainsNoCase(const wchar_t* text, const wchar_t* word)
{
    for (; *text; ++text)
        if (BeginsWithNoCase(text, word))
            return true;
    return false;
}

inline bool EqualNoCase(const wchar_t* left, const wchar_t* right)
{
    for (; *left && FoldCase(*left) == FoldCase(*right); ++left, ++right) {
    }
    return *left == *right;
}

// Reads a decimal number as the runtime does: blanks, a sign, digits, up to the first other character. A
// number out of range stops at the largest or smallest int.
inline int ScanInt(const wchar_t* text)
{
    while (IsBlank(*text) || (*text >= 0x0A && *text <= 0x0D))
        ++text;
    const bool negative = *text == L'-';
    if (*text == L'-' || *text == L'+')
        ++text;
    long long value = 0;
    for (; IsDigit(*text); ++text) {
        value = value * 10 + (*text - L'0');
        if (value > INT_MAX)
            return negative ? INT_MIN : INT_MAX;
    }
    return static_cast<int>(negative ? -value : value);
}
