#pragma once

#include "files/buffered_writer.h"

// Writes delimited text. In UTF-16 the mark of the byte order comes first and every unit is written.
// Otherwise a unit is a byte, LF is written as CR LF, and what is no byte is left out.
class DelimitedWriter
{
public:
    DelimitedWriter(ByteWriter& target, bool utf16, wchar_t colSeparator, wchar_t rowSeparator) noexcept;

    // `text`: terminated, or null. Quoted where it has to be; a CR in it is dropped.
    void Field(const wchar_t* text) noexcept;
    void ColSeparator() noexcept { Unit(colSeparator_); }
    // A line end where the row separator is CR or LF, else the separator.
    void RowEnd() noexcept;
    bool Finish() noexcept { return out_.Finish(); }

private:
    bool NeedsQuotes(const wchar_t* text) const noexcept;
    void Unit(wchar_t unit) noexcept;

    BufferedWriter out_;
    const bool utf16_;
    const wchar_t colSeparator_, rowSeparator_;
};
