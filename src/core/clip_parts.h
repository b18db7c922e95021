#pragma once
// The grammar of Clip strings: plain text work, no grid and no system. Rows stand apart by one character,
// the cells of a row by another.

#include "core/format_text.h"

struct ClipSeparatorPair {
    wchar_t Col, Row;
};
// The two characters that a program chose, or tab and carriage return where it chose none.
ClipSeparatorPair ClipSeparatorsIn(const wchar_t* chosen) noexcept;

// Hands out the rows of a text. It ends where the text ends, so that a separator at the end starts no row.
// Behind a carriage return that separates rows a line feed is passed over.
class ClipRows
{
public:
    ClipRows(const wchar_t* text, wchar_t separator) noexcept;
    bool Next(TextSpan& row) noexcept;

private:
    TextSpan rest_;
    wchar_t separator_;
};

// Hands out the texts of a row's cells; behind a separator there is always one more.
class ClipCells
{
public:
    ClipCells(TextSpan row, wchar_t separator) noexcept : separator_{separator, 0}, parts_(row, separator_) {}
    ClipCells(const ClipCells&) = delete;
    ClipCells& operator=(const ClipCells&) = delete;
    bool Next(TextSpan& cell) noexcept { return parts_.Next(cell); }

private:
    wchar_t separator_[2];
    TextParts parts_;
};
