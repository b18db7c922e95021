#include "core/clip_parts.h"

ClipSeparatorPair ClipSeparatorsIn(const wchar_t* chosen) noexcept
{
    if (!chosen || !chosen[0] || !chosen[1] || chosen[0] == chosen[1])
        return {L'\t', L'\r'};
    return {chosen[0], chosen[1]};
}

ClipRows::ClipRows(const wchar_t* text, wchar_t separator) noexcept
    : rest_(WholeText(text)), separator_(separator)
{
}

bool ClipRows::Next(TextSpan& row) noexcept
{
    if (rest_.Empty())
        return false;
    const wchar_t* end = rest_.Begin;
    while (end < rest_.End && *end != separator_)
        ++end;
    row = {rest_.Begin, end};
    if (end < rest_.End)
        ++end;
    if (separator_ == L'\r' && end > row.End && end < rest_.End && *end == L'\n')
        ++end;
    rest_.Begin = end;
    return true;
}
