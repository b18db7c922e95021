// sources: files/grid_file_reader.cpp
// A grid file of any bytes, read as the grid reads it: the reader stays in its buffers and comes to the end,
// and what cannot be there is refused before anything is made for it.
#include "files/grid_file_format.h"
#include "files/grid_file_reader.h"

#include <cstdlib>
#include <memory>

namespace
{
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void ReadText(GridFileReader& file)
{
    GridFileReader::Text text = file.ReadText();
    Require(text.Length >= 0 && static_cast<size_t>(text.Length) <= MaxFileText);
    Require(text.Units[text.Length] == 0);
    for (int i = 0; i < text.Length; ++i)
        Require(text.Units[i] > 0 && text.Units[i] <= 0xFF);
}

void ReadTexts(GridFileReader& file, uint64_t count)
{
    while (count--)
        ReadText(file);
}

void ReadValue(GridFileReader& file)
{
    VariantImage image = {};
    file.ReadRecord(image);
    Require(VariantImageValueSize(image.Type) <= sizeof image.Value);
    if (image.Type == VariantImageText)
        ReadText(file);
}

void ReadRecords(GridFileReader& file)
{
    GridFileCellRecord record = {};
    while (file.ReadRecord(record) && (record.Row >= 0 || record.Col >= 0))
        if (record.Flags & FileRecordHasData)
            ReadValue(file);
}

void ReadContents(GridFileReader& file, const GridFileHeader& header)
{
    auto rows = static_cast<uint64_t>(header.Rows), cols = static_cast<uint64_t>(header.Cols);
    Require(rows * cols <= file.FileSize());
    bool extended = header.Version >= FirstExtendedVersion;
    GridFileColumn column = {};
    GridFileColumnExtra extra = {};
    for (uint64_t col = 0; col < cols; ++col) {
        file.ReadRecord(column);
        if (extended)
            file.ReadRecord(extra);
    }
    ReadTexts(file, extended ? 4 * cols : cols);
    ReadTexts(file, rows * cols);
    GridFileRow row = {};
    for (uint64_t at = 0; at < rows; ++at)
        file.ReadRecord(row);
    ReadRecords(file);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    MemoryReader source(data, size);
    auto file = std::make_unique<GridFileReader>(source);
    GridFileHeader header = {};
    if (!file->ReadRecord(header)) {
        Require(file->Ended() && size < sizeof header);
        return 0;
    }
    MergeModes modes = UnpackMergeModes(header.MergeCells);
    if (modes.Cells >= 0 && modes.Cells < 10 && modes.Fixed >= 0 && modes.Fixed < 10)
        Require(UnpackMergeModes(PackMergeModes(modes.Cells, modes.Fixed)).Cells == modes.Cells);
    if (!IsKnownHeader(header) || !CountsArePossible(header, size))
        return 0;
    GridFileExtension extension = {};
    if (header.Version >= FirstExtendedVersion)
        file->ReadRecord(extension);
    ReadContents(*file, header);
    return 0;
}
