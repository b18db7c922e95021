// sources: core/clip_parts.cpp core/format_text.cpp
// Clip strings under any separators: rows and the separators between them are the text again, no part holds
// a separator that ends it, and each row has one part more than it has separators.
#include "core/clip_parts.h"

#include "fuzz_text.h"

#include <algorithm>
#include <cstdlib>

namespace
{
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool Has(TextSpan text, wchar_t c)
{
    return std::find(text.Begin, text.End, c) != text.End;
}

void CheckRow(TextSpan row, wchar_t separator)
{
    ClipCells cells(row, separator);
    const wchar_t* at = row.Begin;
    int count = 0;
    for (TextSpan cell; cells.Next(cell); ++count) {
        Require(cell.Begin == at && cell.Begin <= cell.End && cell.End <= row.End);
        Require(!Has(cell, separator));
        at = cell.End + 1;
    }
    Require(at == row.End + 1);
    Require(count == 1 + std::count(row.Begin, row.End, separator));
}

void CheckRows(const wchar_t* text, const wchar_t* end, ClipSeparatorPair separators)
{
    ClipRows rows(text, separators.Row);
    const wchar_t* at = text;
    for (TextSpan row; rows.Next(row);) {
        Require(row.Begin == at && row.Begin <= row.End && row.End <= end);
        Require(!Has(row, separators.Row));
        CheckRow(row, separators.Col);
        at = row.End;
        if (at == end)
            continue;
        Require(*at++ == separators.Row);
        if (separators.Row == L'\r' && at < end && *at == L'\n')
            ++at;
    }
    Require(at == end);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<wchar_t> text = TextOfBytes(data, size);
    const wchar_t* end = std::find(text.data(), text.data() + text.size(), L'\0');
    CheckRows(text.data(), end, ClipSeparatorsIn(nullptr));
    CheckRows(text.data(), end, ClipSeparatorsIn(text.data())); // the text's own first two characters
    return 0;
}
