#include "files/grid_file.h"

#include "core/cell_property.h"
#include "core/check_state.h"
#include "core/events.h"
#include "core/grid_font.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "edit/combo_list.h"
#include "files/grid_file_fields.h"
#include "files/grid_file_reader.h"
#include "platform/bstr.h"
#include "platform/variant.h"

#include <algorithm>
#include <memory>
#include <new>

HRESULT ReadVariantImage(GridFileReader& file, VARIANT& value)
{
    VariantClear(&value);
    VariantImage image = {};
    file.ReadRecord(image);
    if (!IsStorableType(image.Type))
        return LORV_E_VALUE;
    if (image.Type != VT_BSTR) {
        value.vt = image.Type;
        std::memcpy(&value.llVal, image.Value, VariantImageValueSize(image.Type));
        return S_OK;
    }
    GridFileReader::Text text = file.ReadText();
    BSTR copy = text.Length ? SysAllocStringLen(text.Units, static_cast<UINT>(text.Length)) : nullptr;
    if (text.Length && !copy)
        return E_OUTOFMEMORY;
    value.vt = VT_BSTR;
    value.bstrVal = copy;
    return S_OK;
}

void ShowFirstScreen(Grid& grid)
{
    grid.TopRow = grid.FixedRows;
    if (!grid.Window)
        return;
    InvalidateRect(grid.Window, nullptr, FALSE);
    UpdateWindow(grid.Window);
}

namespace
{
bool IsOutOfMemory(HRESULT result) noexcept
{
    return result == LORV_E_MEMORY || result == E_OUTOFMEMORY;
}

// A number of a file where the grid can bear it.
int Length(int pixels) noexcept
{
    return pixels < 0 ? UnsetLength : std::min(pixels, MaxPixels);
}
bool IsAlignment(int value) noexcept
{
    return value >= lorvAlignLeftTop && value <= lorvAlignGeneralBottom;
}
bool IsTextStyle(int value) noexcept
{
    return value >= lorvTextFlat && value <= lorvTextInsetLight;
}

LOGFONTW DescriptionOf(const FontImage& image) noexcept
{
    LOGFONTW description = {};
    std::memcpy(&description, &image, sizeof image);
    description.lfHeight = std::clamp<LONG>(description.lfHeight, -MaxPixels, MaxPixels);
    description.lfWidth = std::clamp<LONG>(description.lfWidth, -MaxPixels, MaxPixels);
    return description;
}

constexpr float LargestFont = 1000; // points that a file may ask for

// A handler of an event can change the grid at any time. What no longer fits is then passed over.
class GridFileLoader
{
public:
    GridFileLoader(Grid& grid, ByteReader& source, GridFileKind kind) noexcept
        : grid_(grid), kind_(kind), file_(source)
    {
    }

    HRESULT Load();

private:
    bool TakesFormat() const noexcept { return kind_ != GridFileData; }
    bool IsExtended() const noexcept { return header_.Version >= FirstExtendedVersion; }

    void ApplyHeader();
    void ApplyMergeModes() noexcept;
    void ApplyFont();
    void ApplyFrozen() noexcept;
    HRESULT Resize();
    HRESULT LoadContents();
    HRESULT LoadColumns();
    HRESULT ApplyColumn(int col, const GridFileColumn& stored);
    void ApplyExtra(int col, const GridFileColumnExtra& stored) noexcept;
    template<class Store> HRESULT LoadColumnTexts(bool wanted, Store store);
    HRESULT LoadAllColumnTexts();
    HRESULT LoadCells();
    HRESULT LoadCell(int row, int col);
    void ApplyState(int row, int col, int state);
    HRESULT LoadRows();
    HRESULT LoadRecords();
    HRESULT ApplyRecord(const GridFileCellRecord& record);
    HRESULT ApplyCellFormat(const GridFileCellRecord& record);
    HRESULT ReadData(OwnedVariant& value, bool& good);

    Grid& grid_;
    const GridFileKind kind_;
    GridFileHeader header_ = {};
    GridFileExtension extension_ = {};
    GridFileReader file_;
};

HRESULT GridFileLoader::Load()
{
    if (!file_.ReadRecord(header_) || !IsKnownHeader(header_))
        return LORV_E_BADFORMAT;
    if (kind_ != GridFileFormat && !CountsArePossible(header_, file_.FileSize()))
        return LORV_E_BADFORMAT;
    if (TakesFormat())
        ApplyHeader();
    if (IsExtended()) {
        file_.ReadRecord(extension_);
        if (TakesFormat())
            ApplyFrozen();
    }
    if (kind_ == GridFileFormat)
        return S_OK;
    HRESULT result = Resize();
    return SUCCEEDED(result) ? LoadContents() : result;
}

void GridFileLoader::ApplyHeader()
{
    for (const HeaderColour& colour : headerColours)
        grid_.*colour.Property = header_.*colour.Stored;
    for (const HeaderWord& word : headerWords)
        if (int value = header_.*word.Stored; value >= 0 && value <= word.Largest)
            grid_.*word.Property = static_cast<int16_t>(value);
    SetOption(grid_, OptionWordWrap, header_.WordWrap != 0);
    if (header_.RowHeightMin >= 0)
        grid_.RowHeightMin = header_.RowHeightMin; // the pixel form stays: hosts see the old limit at work
    if (header_.GridLineWidth <= MaxPixels)
        grid_.GridLineWidth = header_.GridLineWidth;
    ApplyMergeModes();
    ApplyFont();
    RebuildGdi(grid_, -1);
}

void GridFileLoader::ApplyMergeModes() noexcept
{
    auto isMode = [](int mode) { return mode >= lorvMergeNever && mode <= lorvMergeOutline; };
    MergeModes modes = UnpackMergeModes(header_.MergeCells);
    if (!isMode(modes.Cells) || !isMode(modes.Fixed))
        return;
    grid_.MergeCells = static_cast<int16_t>(modes.Cells);
    grid_.MergeCellsFixed = static_cast<int16_t>(modes.Fixed);
}

// A trait that the font refuses stays as it was.
void GridFileLoader::ApplyFont()
{
    const FontImage& image = header_.Font;
    wchar_t name[sizeof image.FaceName + 1] = {};
    std::copy(std::begin(image.FaceName), std::end(image.FaceName), name);
    SetFontName(grid_, Bstr(name).Get());
    if (header_.FontSize > 0 && header_.FontSize <= LargestFont)
        SetFontSize(grid_, header_.FontSize);
    if (header_.FontWidth >= 0 && header_.FontWidth <= LargestFont)
        SetFontWidth(grid_, header_.FontWidth);
    SetFontFlag(grid_, FontBold, image.Weight >= FW_BOLD);
    SetFontFlag(grid_, FontItalic, image.Italic != 0);
    SetFontFlag(grid_, FontStrikethru, image.StrikeOut != 0);
    SetFontFlag(grid_, FontUnderline, image.Underline != 0);
}

// A count that does not fit the grid as it is becomes 0. Where rows and columns are loaded too, the counts
// are set again once these are there.
void GridFileLoader::ApplyFrozen() noexcept
{
    auto fitting = [](int frozen, int room) { return frozen >= 0 && frozen <= room ? frozen : 0; };
    grid_.FrozenRows = fitting(extension_.FrozenRows, grid_.Rows - grid_.FixedRows);
    grid_.FrozenCols = fitting(extension_.FrozenCols, grid_.Cols - grid_.FixedCols);
    grid_.BackColorFrozen = extension_.BackColorFrozen;
    grid_.ForeColorFrozen = extension_.ForeColorFrozen;
    RebuildGdi(grid_, 8);
}

HRESULT GridFileLoader::Resize()
{
    ResizeRows(grid_, 0);
    ResizeRows(grid_, header_.Rows);
    ResizeCols(grid_, header_.Cols);
    if (grid_.Rows != header_.Rows || grid_.Cols != header_.Cols)
        return LORV_E_MEMORY;
    bool frozen = TakesFormat();
    SetFixedCounts(grid_, header_.FixedRows, header_.FixedCols, frozen ? extension_.FrozenRows : 0,
                   frozen ? extension_.FrozenCols : 0);
    return S_OK;
}

HRESULT GridFileLoader::LoadContents()
{
    HRESULT result = LoadColumns();
    if (SUCCEEDED(result))
        result = LoadAllColumnTexts();
    if (SUCCEEDED(result))
        result = LoadCells();
    if (FAILED(result) || kind_ == GridFileData || header_.Saved == GridFileData)
        return result;
    result = LoadRows();
    return SUCCEEDED(result) ? LoadRecords() : result;
}

// Past the end of the file a column is like the one before it.
HRESULT GridFileLoader::LoadColumns()
{
    GridFileColumn column = {};
    GridFileColumnExtra extra = {};
    for (int col = 0; col < header_.Cols; ++col) {
        file_.ReadRecord(column);
        if (IsExtended())
            file_.ReadRecord(extra);
        if (!TakesFormat() || !IsCol(grid_, col))
            continue;
        if (HRESULT result = ApplyColumn(col, column); IsOutOfMemory(result))
            return result;
        if (IsExtended() && IsCol(grid_, col))
            ApplyExtra(col, extra);
    }
    return S_OK;
}

HRESULT GridFileLoader::ApplyColumn(int col, const GridFileColumn& stored)
{
    ColRecord& record = grid_.ColTable[col];
    record.Width = Length(stored.Width);
    if (IsAlignment(stored.Alignment))
        record.Alignment = stored.Alignment;
    if (IsAlignment(stored.FixedAlignment) || stored.FixedAlignment == Unset)
        record.FixedAlignment = static_cast<int8_t>(stored.FixedAlignment);
    record.MergeCol = stored.MergeCol;
    record.SourceCol = std::max(stored.SourceCol, -1);
    if (stored.ColSort >= 0 && stored.ColSort <= lorvSortUseColSort)
        record.ColSort = stored.ColSort;
    record.ColDataType = static_cast<int16_t>(stored.ColDataType & ~FileColumnHidden);
    record.ColFlags = static_cast<uint8_t>(record.ColFlags & ~ColFlagHidden);
    if (stored.ColDataType & FileColumnHidden)
        record.ColFlags |= ColFlagHidden;
    if (stored.ColData == 0)
        return S_OK;
    OwnedVariant number;
    number.Get().vt = VT_I4;
    number.Get().lVal = stored.ColData;
    return StoreHeapVariant(record.ColData, number.Get());
}

void GridFileLoader::ApplyExtra(int col, const GridFileColumnExtra& stored) noexcept
{
    ColRecord& record = grid_.ColTable[col];
    record.Indent = std::clamp(stored.ColIndent, 0, MaxPixels);
    record.ColFlags = stored.ColHidden ? ColFlagHidden : 0;
}

template<class Store> HRESULT GridFileLoader::LoadColumnTexts(bool wanted, Store store)
{
    for (int col = 0; col < header_.Cols; ++col) {
        GridFileReader::Text text = file_.ReadText();
        if (!wanted || !IsCol(grid_, col))
            continue;
        if (HRESULT result = store(col, text.Units); IsOutOfMemory(result))
            return result;
    }
    return S_OK;
}

// Keys belong to the data: they are taken whatever is loaded.
HRESULT GridFileLoader::LoadAllColumnTexts()
{
    auto replace = [this](wchar_t* ColRecord::*field) {
        return [this, field](int col, const wchar_t* text) {
            return ReplaceText(grid_.ColTable[col].*field, text);
        };
    };
    HRESULT result = LoadColumnTexts(
        TakesFormat(), [this](int col, const wchar_t* text) { return SetColFormat(grid_, col, text); });
    if (!IsExtended())
        return result;
    if (SUCCEEDED(result))
        result = LoadColumnTexts(TakesFormat(), [this](int col, const wchar_t* text) {
            bool changed = false;
            return SetColumnList(grid_.ColTable[col], text, changed);
        });
    if (SUCCEEDED(result))
        result = LoadColumnTexts(TakesFormat(), replace(&ColRecord::ColEditMask));
    return SUCCEEDED(result) ? LoadColumnTexts(true, replace(&ColRecord::ColKey)) : result;
}

HRESULT GridFileLoader::LoadCells()
{
    for (int row = 0; row < header_.Rows; ++row) {
        if (row == FirstScreenRows)
            ShowFirstScreen(grid_);
        for (int col = 0; col < header_.Cols; ++col)
            if (HRESULT result = LoadCell(row, col); IsOutOfMemory(result))
                return result;
    }
    return S_OK;
}

HRESULT GridFileLoader::LoadCell(int row, int col)
{
    GridFileReader::Text text = file_.ReadText();
    if (IsStateByte(text.Units[0])) {
        if (IsCell(grid_, row, col))
            ApplyState(row, col, text.Units[0]);
        ++text.Units;
        --text.Length;
    }
    return SetCellText(grid_, row, col, text.Units, text.Length);
}

// Older files keep three bits there.
void GridFileLoader::ApplyState(int row, int col, int state)
{
    if (IsExtended()) {
        SetCheckState(grid_, row, col, state);
        return;
    }
    if (state & 1)
        SetCheckState(grid_, row, col, lorvChecked);
    if (state & 2)
        SetCheckState(grid_, row, col, lorvUnchecked);
    if ((state & 4) && IsRow(grid_, row))
        grid_.RowTable[row].MergeRow = 1;
}

// Past the end of the file a row keeps its height, and is in all else like the one before it.
HRESULT GridFileLoader::LoadRows()
{
    GridFileRow stored = {};
    for (int row = 0; row < header_.Rows; ++row) {
        stored.Height = UnsetLength;
        file_.ReadRecord(stored);
        if (!IsRow(grid_, row))
            continue;
        RowRecord& record = grid_.RowTable[row];
        record.Height = Length(stored.Height);
        record.MergeRow = stored.MergeRow;
        record.Flags = stored.Flags & FileRowFlags;
        if (record.Flags & RowFlagSubtotal) {
            record.OutlineLevel = static_cast<int8_t>(stored.LevelOrData & 0xFF);
        } else if (stored.LevelOrData != 0) {
            OwnedVariant number;
            number.Get().vt = VT_I4;
            number.Get().lVal = static_cast<LONG>(stored.LevelOrData);
            if (HRESULT result = StoreHeapVariant(record.RowData, number.Get()); IsOutOfMemory(result))
                return result;
        }
    }
    return S_OK;
}

HRESULT GridFileLoader::LoadRecords()
{
    for (;;) {
        GridFileCellRecord record = {};
        if (!file_.ReadRecord(record))
            return S_OK;
        if (record.Row >= grid_.Rows || record.Col >= grid_.Cols)
            return LORV_E_BADFORMAT;
        if (record.Row < 0 && record.Col < 0)
            return S_OK;
        if (HRESULT result = ApplyRecord(record); IsOutOfMemory(result))
            return result;
    }
}

// A value of a type that no file holds is none: `good` is then false, and the reading goes on behind it.
HRESULT GridFileLoader::ReadData(OwnedVariant& value, bool& good)
{
    HRESULT result = ReadVariantImage(file_, value.Get());
    good = SUCCEEDED(result);
    return IsOutOfMemory(result) ? result : S_OK;
}

HRESULT GridFileLoader::ApplyRecord(const GridFileCellRecord& record)
{
    bool hasData = (record.Flags & FileRecordHasData) != 0;
    if (hasData && (record.Row < 0 || record.Col < 0)) {
        OwnedVariant value;
        bool good = false;
        if (HRESULT result = ReadData(value, good); FAILED(result) || !good)
            return result;
        VARIANT*& slot =
            record.Row < 0 ? grid_.ColTable[record.Col].ColData : grid_.RowTable[record.Row].RowData;
        return StoreHeapVariant(slot, value.Get());
    }
    HRESULT result = ApplyCellFormat(record);
    if (IsOutOfMemory(result))
        return result;
    if (record.Flags & FileRecordHasFont) {
        LOGFONTW font = DescriptionOf(record.Font);
        SetCellProperty(grid_, record.Row, record.Col, CellSelector::Font, &font);
    }
    if (!hasData)
        return S_OK;
    OwnedVariant value;
    bool good = false;
    result = ReadData(value, good);
    return good ? SetCellProperty(grid_, record.Row, record.Col, CellSelector::Data, &value.Get()) : result;
}

// Every property is written, whether it was ever set or not: a colour of 0 comes back as one that was set.
HRESULT GridFileLoader::ApplyCellFormat(const GridFileCellRecord& record)
{
    const struct {
        CellSelector Selector;
        CellValue Value;
    } properties[] = {
        {CellSelector::FloodPercent, std::clamp<int>(record.FloodPercent, -100, 100)},
        {CellSelector::FloodColor, record.FloodColor},
        {CellSelector::BackColor, record.BackColor},
        {CellSelector::ForeColor, record.ForeColor},
        {CellSelector::Alignment, IsAlignment(record.Alignment) ? record.Alignment : Unset},
        {CellSelector::TextStyle, IsTextStyle(record.TextStyle) ? record.TextStyle : Unset},
        {CellSelector::BorderColor, record.BorderColor},
        {CellSelector::BorderLeft, record.BorderLeft},
        {CellSelector::BorderRight, record.BorderRight},
        {CellSelector::BorderTop, record.BorderTop},
        {CellSelector::BorderBottom, record.BorderBottom},
    };
    for (const auto& property : properties)
        if (HRESULT result =
                SetCellProperty(grid_, record.Row, record.Col, property.Selector, property.Value);
            FAILED(result))
            return result;
    return S_OK;
}
} // namespace

HRESULT LoadBinaryGrid(Grid& grid, ByteReader& source, GridFileKind kind)
{
    KeepAlive alive(grid);
    std::unique_ptr<GridFileLoader> loader(new (std::nothrow) GridFileLoader(grid, source, kind));
    return loader ? loader->Load() : E_OUTOFMEMORY;
}
