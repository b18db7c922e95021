// sources: files/delimited_reader.cpp files/delimited_writer.cpp
// A byte that says how, and a text: every field fits, the reading ends, and what was read comes back once it
// is written again.
#include "files/delimited_reader.h"
#include "files/delimited_writer.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace
{
using Row = std::vector<std::u16string>;

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// What a written text does not give back, or not as one field.
bool ComesBack(const std::u16string& field, bool utf16)
{
    if (field.size() >= MaxFieldText)
        return false;
    for (char16_t unit : field)
        if (unit == 0 || unit == '\r' || (!utf16 && (unit == 0x1A || unit > 0xFF)))
            return false;
    return true;
}

std::vector<Row> ReadRows(ByteReader& source, bool utf16, DelimitedFormat format, const bool* leadBytes,
                          bool& cut)
{
    auto reader = std::make_unique<DelimitedReader>(source, utf16, format, leadBytes);
    std::vector<Row> rows(1);
    uint64_t fields = 0;
    for (FieldEnd end = FieldEnd::Col; end != FieldEnd::File;) {
        end = reader->Next();
        Require(++fields <= source.Size() + 2);
        if (end == FieldEnd::Empty)
            break;
        Require(reader->Length() >= 0 && static_cast<size_t>(reader->Length()) <= MaxFieldText);
        Require(reader->Text()[reader->Length()] == 0);
        const wchar_t* text = reader->Text();
        rows.back().emplace_back(text, text + reader->Length());
        cut |= end == FieldEnd::Cut;
        if (end == FieldEnd::Row)
            rows.emplace_back();
    }
    if (rows.back().empty())
        rows.pop_back();
    return rows;
}

void WriteRows(const std::vector<Row>& rows, ByteWriter& target, bool utf16, DelimitedFormat format)
{
    auto writer = std::make_unique<DelimitedWriter>(target, utf16, format.ColSeparator, format.RowSeparator);
    for (size_t row = 0; row < rows.size(); ++row) {
        for (size_t col = 0; col < rows[row].size(); ++col) {
            if (col)
                writer->ColSeparator();
            std::vector<wchar_t> text(rows[row][col].begin(), rows[row][col].end());
            text.push_back(0);
            writer->Field(text.data());
        }
        if (row + 1 < rows.size())
            writer->RowEnd();
    }
    Require(writer->Finish());
}

void CheckRoundTrip(std::vector<Row> rows, bool utf16, DelimitedFormat format)
{
    const bool noLeadBytes[256] = {};
    for (const Row& row : rows)
        for (const std::u16string& field : row)
            if (!ComesBack(field, utf16))
                return;
    rows.push_back({u"end"});
    MemoryWriter written;
    WriteRows(rows, written, utf16, format);
    MemoryReader source(written.Bytes.data(), written.Bytes.size());
    Require(!utf16 || source.Seek(2));
    bool cut = false;
    Require(ReadRows(source, utf16, format, noLeadBytes, cut) == rows);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const DelimitedFormat formats[] = {{',', '\r'}, {'\t', '\r'}, {';', '|'}, {';', 0}};
    const DelimitedFormat format = formats[data[0] & 3];
    const bool utf16 = (data[0] & 4) != 0;
    bool leadBytes[256] = {};
    for (int byte = 0x81; byte < 0xA0; ++byte)
        leadBytes[byte] = (data[0] & 8) != 0;
    MemoryReader source(data + 1, size - 1);
    bool cut = false;
    std::vector<Row> rows = ReadRows(source, utf16, format, leadBytes, cut);
    if (!cut)
        CheckRoundTrip(rows, utf16, format);
    return 0;
}
