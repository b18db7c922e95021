#include "files/grid_file.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/events.h"
#include "core/grid_font.h"
#include "core/outline_level.h"
#include "core/property_frame.h"
#include "files/buffered_writer.h"
#include "files/grid_file_fields.h"
#include "platform/bstr.h"
#include "platform/memory.h"
#include "platform/variant.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <new>

namespace
{
constexpr size_t LongestNarrowText = 0x3FFFFFFF; // units; from here on a text is left out
constexpr size_t ShortText = 256;                // units that are tried without a conversion

// A text of ASCII is the same in every code page. False, and nothing written, for others and for long ones.
bool WriteShortAscii(BufferedWriter& out, const wchar_t* text) noexcept
{
    uint8_t* to = out.Reserve(ShortText);
    for (size_t i = 0; i < ShortText; ++i) {
        if (text[i] >= 0x80)
            return false;
        to[i] = static_cast<uint8_t>(text[i]);
        if (text[i] == 0) {
            out.Commit(i + 1);
            return true;
        }
    }
    return false;
}

HRESULT WriteConverted(BufferedWriter& out, const wchar_t* text)
{
    size_t length = std::wcslen(text);
    int units = length < LongestNarrowText ? static_cast<int>(length) : 0;
    int size = units ? WideCharToMultiByte(CP_THREAD_ACP, 0, text, units, nullptr, 0, nullptr, nullptr) : 0;
    if (size > 0) {
        auto* narrow = static_cast<char*>(AllocateZeroed(static_cast<size_t>(size), 1));
        if (!narrow)
            return E_OUTOFMEMORY;
        size = WideCharToMultiByte(CP_THREAD_ACP, 0, text, units, narrow, size, nullptr, nullptr);
        out.Write(narrow, static_cast<size_t>(size));
        FreeBlock(narrow);
    }
    out.Put(0);
    return S_OK;
}
} // namespace

HRESULT WriteNarrowText(BufferedWriter& out, const wchar_t* text)
{
    if (!text)
        text = L"";
    return WriteShortAscii(out, text) ? S_OK : WriteConverted(out, text);
}

// What a pointer would be, and what no value fills, is written as zeros.
HRESULT WriteVariantImage(BufferedWriter& out, const VARIANT& value)
{
    if (!IsStorableType(value.vt))
        return LORV_E_VALUE;
    VariantImage image = {};
    image.Type = value.vt;
    std::memcpy(image.Value, &value.llVal, VariantImageValueSize(value.vt));
    out.Write(&image, sizeof image);
    return value.vt == VT_BSTR ? WriteNarrowText(out, value.bstrVal) : S_OK;
}

namespace
{
// The value as far as it is a number. An object is asked, so that the value is copied first.
int NumberOf(const VARIANT* data)
{
    OwnedVariant copy;
    if (!data || FAILED(VariantCopy(&copy.Get(), const_cast<VARIANT*>(data))))
        return 0;
    return VariantToLong(copy.Get(), 0);
}

FontImage ImageOf(HFONT font) noexcept
{
    LOGFONTW description = {};
    FontImage image = {};
    if (GetObjectW(font, sizeof description, &description))
        std::memcpy(&image, &description, sizeof image);
    return image;
}

void StoreFontName(Grid& grid, FontImage& image) noexcept
{
    Bstr name;
    IFont* font = GridFont(grid);
    if (!font || FAILED(font->get_Name(name.Put())))
        return;
    char narrow[4 * LF_FACESIZE] = {};
    int length = std::min<int>(static_cast<int>(name.Length()), LF_FACESIZE);
    WideCharToMultiByte(CP_THREAD_ACP, 0, name.Text(), length, narrow, sizeof narrow, nullptr, nullptr);
    std::memcpy(image.FaceName, narrow, sizeof image.FaceName);
}

GridFileHeader HeaderOf(Grid& grid, GridFileKind kind)
{
    GridFileHeader header = {};
    header.Signature[0] = 'L';
    header.Signature[1] = 'V';
    header.HeaderSize = sizeof header;
    header.Version = GridFileVersion;
    header.MergeCoding = grid.MergeCells != grid.MergeCellsFixed;
    header.Saved = static_cast<uint16_t>(kind);
    HFONT font = GridFontHandle(grid);
    header.Font = ImageOf(font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    StoreFontName(grid, header.Font);
    header.FontSize = FontSizeOf(grid);
    header.FontWidth = grid.FontWidth;
    for (const HeaderColour& colour : headerColours)
        header.*colour.Stored = grid.*colour.Property;
    for (const HeaderWord& word : headerWords)
        header.*word.Stored = grid.*word.Property;
    header.Rows = grid.Rows;
    header.Cols = grid.Cols;
    header.FixedRows = grid.FixedRows;
    header.FixedCols = grid.FixedCols;
    header.WordWrap = HasOption(grid, OptionWordWrap);
    header.RowHeightMin = grid.RowHeightMin;
    header.MergeCells = static_cast<int16_t>(PackMergeModes(grid.MergeCells, grid.MergeCellsFixed));
    header.GridLineWidth = grid.GridLineWidth;
    return header;
}

GridFileExtension ExtensionOf(const Grid& grid) noexcept
{
    return {grid.FrozenRows, grid.FrozenCols, grid.BackColorFrozen, grid.ForeColorFrozen};
}

GridFileColumn ColumnOf(const ColRecord& col, int data) noexcept
{
    GridFileColumn stored = {};
    stored.Width = col.Width;
    stored.Alignment = col.Alignment;
    stored.FixedAlignment = static_cast<uint8_t>(col.FixedAlignment);
    stored.MergeCol = col.MergeCol;
    stored.ColData = data;
    stored.SourceCol = col.SourceCol;
    stored.ColSort = col.ColSort;
    stored.ColDataType = static_cast<uint16_t>(col.ColDataType);
    return stored;
}

GridFileColumnExtra ExtraOf(const ColRecord& col) noexcept
{
    GridFileColumnExtra stored = {};
    stored.ColIndent = col.Indent;
    stored.ColHidden = (col.ColFlags & ColFlagHidden) != 0;
    return stored;
}

GridFileRow RowOf(const RowRecord& row, int data) noexcept
{
    GridFileRow stored = {};
    stored.Height = row.Height;
    stored.LevelOrData = static_cast<uint32_t>(row.Flags & RowFlagSubtotal ? row.OutlineLevel : data);
    stored.MergeRow = row.MergeRow;
    stored.Flags = row.Flags & FileRowFlags;
    return stored;
}

GridFileCellRecord RecordAt(int row, int col, bool hasData) noexcept
{
    GridFileCellRecord record = {};
    record.Row = row;
    record.Col = col;
    record.Flags = hasData ? FileRecordHasData : 0;
    return record;
}

GridFileCellRecord RecordOf(int row, int col, const CellFormat& format) noexcept
{
    GridFileCellRecord record = RecordAt(row, col, format.Data && IsStorableType(format.Data->vt));
    record.BackColor = format.BackColor;
    record.ForeColor = format.ForeColor;
    record.FloodColor = format.FloodColor;
    record.FloodPercent = format.FloodPercent;
    record.Alignment = format.Alignment;
    record.TextStyle = format.TextStyle;
    record.BorderColor = format.BorderColor;
    record.BorderLeft = format.BorderLeft;
    record.BorderTop = format.BorderTop;
    record.BorderRight = format.BorderRight;
    record.BorderBottom = format.BorderBottom;
    if (format.Font) {
        record.Flags |= FileRecordHasFont;
        record.Font = ImageOf(format.Font);
    }
    return record;
}

// Asking an object or a data source for its value can change the grid, so that the counts are read anew at
// each step. Such a file does not load as a whole, but writing it does no harm.
class GridFileSaver
{
public:
    GridFileSaver(Grid& grid, ByteWriter& target, GridFileKind kind) noexcept
        : grid_(grid), kind_(kind), out_(target)
    {
    }

    HRESULT Save()
    {
        Write(HeaderOf(grid_, kind_));
        Write(ExtensionOf(grid_));
        if (kind_ != GridFileFormat)
            SaveContents();
        bool written = out_.Finish();
        if (FAILED(result_))
            return result_;
        return written ? S_OK : LORV_E_CANNOTWRITE;
    }

private:
    void SaveContents()
    {
        SaveColumns();
        SaveColumnTexts(&ColRecord::ColFormat);
        SaveColumnTexts(&ColRecord::ColComboList);
        SaveColumnTexts(&ColRecord::ColEditMask);
        SaveColumnTexts(&ColRecord::ColKey);
        SaveCells();
        SaveRows();
        if (kind_ != GridFileData)
            SaveFormats();
        SaveData();
        Write(RecordAt(-1, -1, false));
    }

    void SaveColumns()
    {
        for (int col = 0; col < grid_.Cols; ++col) {
            int data = NumberOf(grid_.ColTable[col].ColData);
            if (!IsCol(grid_, col))
                return;
            Write(ColumnOf(grid_.ColTable[col], data));
            Write(ExtraOf(grid_.ColTable[col]));
        }
    }

    void SaveColumnTexts(wchar_t* ColRecord::*text)
    {
        for (int col = 0; col < grid_.Cols; ++col)
            WriteText(grid_.ColTable[col].*text);
    }

    void SaveCells()
    {
        for (int row = 0; row < grid_.Rows; ++row)
            for (int col = 0; IsCell(grid_, row, col); ++col)
                SaveCell(row, col);
    }

    // The text of a boolean column says itself whether the box of a data cell is checked.
    void SaveCell(int row, int col)
    {
        bool checkInText = grid_.ColTable[col].ColDataType == lorvDTBoolean && row >= grid_.FixedRows;
        if (!checkInText)
            if (int state = CheckStateOf(grid_, row, col))
                out_.Put(static_cast<uint8_t>(state));
        WriteText(GetCellText(grid_, row, col));
    }

    void SaveRows()
    {
        for (int row = 0; row < grid_.Rows; ++row) {
            int data = IsSubtotalRow(grid_, row) ? 0 : NumberOf(grid_.RowTable[row].RowData);
            if (!IsRow(grid_, row))
                return;
            Write(RowOf(grid_.RowTable[row], data));
        }
    }

    void SaveFormats()
    {
        for (int row = 0; row < grid_.Rows; ++row) {
            if (!grid_.RowTable[row].Cells)
                continue;
            for (int col = 0; col < grid_.Cols; ++col)
                if (const CellFormat* format = CellFormatOf(grid_, row, col))
                    WriteRecord(RecordOf(row, col, *format), format->Data);
        }
    }

    void SaveData()
    {
        for (int col = 0; col < grid_.Cols; ++col)
            if (const VARIANT* data = grid_.ColTable[col].ColData; data && IsStorableType(data->vt))
                WriteRecord(RecordAt(-1, col, true), data);
        for (int row = 0; row < grid_.Rows; ++row)
            if (const VARIANT* data = grid_.RowTable[row].RowData; data && IsStorableType(data->vt))
                WriteRecord(RecordAt(row, -1, true), data);
    }

    void WriteRecord(const GridFileCellRecord& record, const VARIANT* data)
    {
        Write(record);
        if (record.Flags & FileRecordHasData)
            Note(WriteVariantImage(out_, *data));
    }
    template<class Record> void Write(const Record& record) { out_.Write(&record, sizeof record); }
    void WriteText(const wchar_t* text) { Note(WriteNarrowText(out_, text)); }
    void Note(HRESULT result) noexcept
    {
        if (SUCCEEDED(result_))
            result_ = result;
    }

    Grid& grid_;
    const GridFileKind kind_;
    HRESULT result_ = S_OK;
    BufferedWriter out_;
};
} // namespace

HRESULT SaveBinaryGrid(Grid& grid, ByteWriter& target, GridFileKind kind)
{
    KeepAlive alive(grid);
    std::unique_ptr<GridFileSaver> saver(new (std::nothrow) GridFileSaver(grid, target, kind));
    return saver ? saver->Save() : E_OUTOFMEMORY;
}
