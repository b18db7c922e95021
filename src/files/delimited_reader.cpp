#include "files/delimited_reader.h"

#include <algorithm>

bool TextUnitReader::Fill() noexcept
{
    at_ = 0;
    end_ = ended_ ? 0 : source_.Read(block_, BlockSize);
    ended_ = end_ == 0;
    return !ended_;
}

int TextUnitReader::NextNarrow() noexcept
{
    int byte = NextByte();
    if (byte == CtrlZ) {
        at_ = end_ = 0;
        ended_ = true;
        return End;
    }
    if (byte != '\r')
        return byte;
    // A block may end between the two.
    if ((at_ != end_ || Fill()) && block_[at_] == '\n')
        return block_[at_++];
    return byte;
}

DelimitedReader::DelimitedReader(ByteReader& source, bool utf16, DelimitedFormat format,
                                 const bool* leadBytes) noexcept
    : units_(source, utf16), format_(format), leadBytes_(leadBytes)
{
    for (int byte = 0; byte < 256; ++byte)
        special_[byte] = EndsField(byte) || IsLeadByte(byte) || byte == '"' || byte == '\r' || byte == 0x1A;
}

bool DelimitedReader::IsLeadByte(int unit) const noexcept
{
    return !units_.IsUtf16() && unit >= 0 && unit < 256 && leadBytes_[unit];
}

bool DelimitedReader::EndsField(int unit) const noexcept
{
    return unit == format_.ColSeparator || unit == format_.RowSeparator || unit == '\n';
}

// The end of a row in UTF-16 is CR LF or CR. What is neither belongs to the next field.
FieldEnd DelimitedReader::Ending(int unit) noexcept
{
    if (unit == TextUnitReader::End)
        return FieldEnd::File;
    if (unit != format_.RowSeparator && unit != '\n' && unit != '\r')
        return FieldEnd::Col;
    if (unit == '\r' && units_.IsUtf16())
        if (int next = units_.Next(); next != '\n')
            units_.PutBack(next);
    return FieldEnd::Row;
}

// Most of a text: bytes that are stored as they are.
void DelimitedReader::TakePlainBytes() noexcept
{
    TextUnitReader::Run run = units_.Bytes();
    size_t most = std::min(static_cast<size_t>(run.End - run.Begin), MaxFieldText - length_);
    wchar_t* to = text_ + length_;
    size_t count = 0;
    for (; count < most && !special_[run.Begin[count]]; ++count)
        to[count] = run.Begin[count];
    length_ += count;
    units_.Take(count);
}

// A quote that is not the first unit of its field. Doubled it is one quote. Alone it closes what is quoted,
// and is text elsewhere; either way `unit` becomes the unit behind it.
DelimitedReader::Quote DelimitedReader::ReadQuote(int& unit) noexcept
{
    int next = units_.Next();
    bool doubled = next == '"', text = doubled || quotes_ != Quotes::Open;
    if (text && Full()) {
        units_.PutBack(next);
        return Quote::PastEnd;
    }
    if (text)
        Store('"');
    else
        quotes_ = Quotes::Closed;
    unit = next;
    return doubled ? Quote::Text : Quote::Delimiter;
}

// A lead byte and the one behind it go together, whatever that is. False when the field has no room.
bool DelimitedReader::StoreUnit(int unit) noexcept
{
    bool pair = IsLeadByte(unit);
    if (length_ + pair >= MaxFieldText)
        return false;
    Store(unit);
    if (!pair)
        return true;
    if (int trail = units_.Next(); trail != TextUnitReader::End)
        Store(trail);
    return true;
}

FieldEnd DelimitedReader::ReadField() noexcept
{
    int unit = units_.Next();
    if (unit == TextUnitReader::End && last_ == FieldEnd::Row)
        return FieldEnd::Empty;
    if (unit == '"') {
        quotes_ = Quotes::Open;
        unit = units_.Next();
    }
    for (;; unit = units_.Next()) {
        if (unit == '"') {
            Quote quote = ReadQuote(unit);
            if (quote == Quote::PastEnd)
                break;
            if (quote == Quote::Text)
                continue;
        }
        if (unit == TextUnitReader::End || (quotes_ != Quotes::Open && EndsField(unit)))
            return Ending(unit);
        if (!StoreUnit(unit))
            break;
        TakePlainBytes();
    }
    units_.PutBack(unit);
    return FieldEnd::Cut;
}

FieldEnd DelimitedReader::Next() noexcept
{
    length_ = 0;
    quotes_ = Quotes::None;
    last_ = ReadField();
    // A quote that opens and never closes is no text of its own.
    if (length_ == 1 && text_[0] == '"' && quotes_ == Quotes::Open)
        length_ = 0;
    text_[length_] = 0;
    return last_;
}
