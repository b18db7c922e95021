#pragma once
// Fields of delimited text.

#include "files/byte_stream.h"

// The longest field, in UTF-16 units; a longer one is handed out in pieces.
constexpr size_t MaxFieldText = 65536;

// Units of a text. A UTF-16 text is read as it stands. Of another one each byte is a unit, CR LF is one LF,
// and Ctrl+Z ends it.
class TextUnitReader
{
public:
    static constexpr int End = -1;

    // Reads from where the source stands.
    TextUnitReader(ByteReader& source, bool utf16) noexcept : source_(source), utf16_(utf16) {}
    TextUnitReader(const TextUnitReader&) = delete;
    TextUnitReader& operator=(const TextUnitReader&) = delete;

    bool IsUtf16() const noexcept { return utf16_; }
    int Next() noexcept
    {
        if (pushedCount_)
            return pushed_[--pushedCount_];
        return utf16_ ? NextWide() : NextNarrow();
    }
    // Next gives this unit, or the end, once more. Two units can be put back, the last one first.
    void PutBack(int unit) noexcept { pushed_[pushedCount_++] = unit; }

    // The bytes at hand that can be taken without a look at each. None while a unit was put back.
    struct Run {
        const uint8_t* Begin;
        const uint8_t* End;
    };
    Run Bytes() const noexcept
    {
        return pushedCount_ == 0 && !utf16_ ? Run{block_ + at_, block_ + end_} : Run{};
    }
    void Take(size_t count) noexcept { at_ += count; }

private:
    static constexpr size_t BlockSize = 1 << 16;
    static constexpr int CtrlZ = 0x1A;

    int NextByte() noexcept { return at_ != end_ || Fill() ? block_[at_++] : End; }
    int NextWide() noexcept
    {
        int low = NextByte();
        int high = low == End ? End : NextByte();
        return high == End ? End : high << 8 | low;
    }
    int NextNarrow() noexcept;
    bool Fill() noexcept;

    ByteReader& source_;
    const bool utf16_;
    bool ended_ = false;
    int pushed_[2] = {};
    int pushedCount_ = 0;
    size_t at_ = 0, end_ = 0;
    uint8_t block_[BlockSize];
};

struct DelimitedFormat {
    wchar_t ColSeparator, RowSeparator; // 0 for no row separator: then the unit 0 is one
};

// What stands behind a field.
enum class FieldEnd {
    Col,   // another field of the row
    Row,   // the next row
    Cut,   // the rest of the same field
    File,  // nothing
    Empty, // there was no field: the text ended with the row before
};

class DelimitedReader
{
public:
    // `leadBytes`: the 256 bytes of the code page, true where the next one belongs to the same character.
    DelimitedReader(ByteReader& source, bool utf16, DelimitedFormat format, const bool* leadBytes) noexcept;

    // Reads the next field into Text and Length.
    FieldEnd Next() noexcept;
    const wchar_t* Text() const noexcept { return text_; } // terminated
    int Length() const noexcept { return static_cast<int>(length_); }

private:
    // Quoting of the field being read.
    enum class Quotes { None, Open, Closed };

    // What a quote inside a field was.
    enum class Quote { Text, Delimiter, PastEnd };

    FieldEnd ReadField() noexcept;
    Quote ReadQuote(int& unit) noexcept;
    bool StoreUnit(int unit) noexcept;
    void TakePlainBytes() noexcept;
    bool IsLeadByte(int unit) const noexcept;
    bool EndsField(int unit) const noexcept;
    FieldEnd Ending(int unit) noexcept;
    void Store(int unit) noexcept { text_[length_++] = static_cast<wchar_t>(unit); }
    bool Full() const noexcept { return length_ == MaxFieldText; }

    TextUnitReader units_;
    const DelimitedFormat format_;
    const bool* leadBytes_;
    Quotes quotes_ = Quotes::None;
    FieldEnd last_ = FieldEnd::Row;
    bool special_[256]; // bytes that need a look
    size_t length_ = 0;
    wchar_t text_[MaxFieldText + 1];
};
