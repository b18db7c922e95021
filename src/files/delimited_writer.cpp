#include "files/delimited_writer.h"

DelimitedWriter::DelimitedWriter(ByteWriter& target, bool utf16, wchar_t colSeparator,
                                 wchar_t rowSeparator) noexcept
    : out_(target), utf16_(utf16), colSeparator_(colSeparator), rowSeparator_(rowSeparator)
{
    if (utf16_)
        Unit(0xFEFF);
}

void DelimitedWriter::Unit(wchar_t unit) noexcept
{
    if (utf16_) {
        out_.Put(static_cast<uint8_t>(unit));
        out_.Put(static_cast<uint8_t>(unit >> 8));
        return;
    }
    if (unit > 0xFF)
        return;
    if (unit == '\n')
        out_.Put('\r');
    out_.Put(static_cast<uint8_t>(unit));
}

bool DelimitedWriter::NeedsQuotes(const wchar_t* text) const noexcept
{
    for (; *text; ++text)
        if (*text == ',' || *text == '\t' || *text == '"' || *text == '\n' || *text == colSeparator_ ||
            *text == rowSeparator_)
            return true;
    return false;
}

void DelimitedWriter::Field(const wchar_t* text) noexcept
{
    if (!text)
        return;
    bool quoted = NeedsQuotes(text);
    if (quoted)
        Unit('"');
    for (; *text; ++text) {
        if (*text == '\r')
            continue;
        if (*text == '"')
            Unit('"');
        Unit(*text);
    }
    if (quoted)
        Unit('"');
}

void DelimitedWriter::RowEnd() noexcept
{
    if (rowSeparator_ != '\r' && rowSeparator_ != '\n') {
        Unit(rowSeparator_);
        return;
    }
    if (utf16_)
        Unit('\r');
    Unit('\n');
}
