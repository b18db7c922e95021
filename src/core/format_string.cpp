#include "core/format_string.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/format_text.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/gdi.h"
#include "platform/memory.h"

#include <algorithm>

namespace
{
constexpr int TitleMargin = 8; // pixels beside a title, both sides together
constexpr int RowPadding = 4;  // pixels above and below a text, together
constexpr wchar_t ItemSeparators[] = L"|\t";

// A screen device context with the grid's font in it.
class TitleMeasure
{
public:
    explicit TitleMeasure(Grid& grid) noexcept
        : font_(screen_.Get(), GridFontHandle(grid) ? static_cast<HGDIOBJ>(GridFontHandle(grid))
                                                    : GetStockObject(SYSTEM_FONT))
    {
    }

    SIZE Measure(TextSpan text) noexcept
    {
        SIZE size = {};
        GetTextExtentPoint32W(screen_.Get(), text.Begin, text.Length(), &size);
        return size;
    }
    int TitleWidth(TextSpan text) noexcept
    {
        TextSpan line = FirstLine(text);
        return (line.Empty() ? 0 : Measure(line).cx) + TitleMargin;
    }
    int RowHeight() noexcept
    {
        constexpr wchar_t sample[] = L"Hj";
        return Measure({sample, sample + 2}).cy + RowPadding;
    }

private:
    ScreenDC screen_;
    SelectedObject font_;
};

void StoreTitle(Grid& grid, int row, int col, TextSpan text)
{
    TextSpan trimmed = Trimmed(text);
    SetCellText(grid, row, col, trimmed.Begin, trimmed.Length());
}

int8_t AlignmentOf(wchar_t mark) noexcept
{
    switch (mark) {
    case L'<':
        return lorvAlignLeftCenter;
    case L'>':
        return lorvAlignRightCenter;
    case L'^':
        return lorvAlignCenterCenter;
    default:
        return lorvAlignGeneral;
    }
}

void ApplyColumnItems(Grid& grid, TextSpan columns, TitleMeasure& measure)
{
    TextParts parts(columns, ItemSeparators);
    TextSpan part;
    for (int col = 0; parts.Next(part) && IsCol(grid, col); ++col) {
        BarItem item = ReadBarItem(part);
        grid.ColTable[col].Alignment = AlignmentOf(item.Alignment);
        grid.ColTable[col].Width = measure.TitleWidth(item.Text);
        StoreTitle(grid, 0, col, item.Text);
    }
}

void ApplyRowItems(Grid& grid, TextSpan titles, TitleMeasure& measure)
{
    TextParts parts(titles, ItemSeparators);
    TextSpan part;
    for (int row = 0; parts.Next(part) && IsCell(grid, row, 0); ++row) {
        grid.ColTable[0].Width = std::max(grid.ColTable[0].Width, measure.TitleWidth(part));
        StoreTitle(grid, row, 0, part);
    }
}

// One column's settings, each stored through its member, so that it is checked as a host's would be. A
// refused field leaves that setting as it was.
class ColumnRecord
{
public:
    ColumnRecord(Grid& grid, int col) noexcept
        : grid_(grid), members_(QueryFor<ILorvGrid>(grid.Outer, IID_ILorvGrid)), col_(col)
    {
    }

    void Read(TextSpan record, int fieldCount)
    {
        using Setter = void (ColumnRecord::*)(TextSpan);
        static constexpr Setter setters[] = {
            &ColumnRecord::SetWidth,    &ColumnRecord::SetAlignment, &ColumnRecord::SetFixedAlignment,
            &ColumnRecord::SetFormat,   &ColumnRecord::SetEditMask,  &ColumnRecord::SetComboList,
            &ColumnRecord::SetDataType, &ColumnRecord::SetHidden,    &ColumnRecord::SetKey,
            &ColumnRecord::SetIndent,
        };
        if (!members_)
            return;
        TextParts fields(record, L"\t");
        TextSpan field;
        for (int i = 0; i < fieldCount && fields.Next(field); ++i) {
            if (fields.Ended() && field.Empty())
                break; // nothing stands behind the last tab
            (this->*setters[i])(field);
        }
    }

private:
    static Bstr TextOf(TextSpan field) noexcept
    {
        Bstr text;
        *text.Put() = SysAllocStringLen(field.Begin, field.Length());
        return text;
    }

    void SetWidth(TextSpan field) { members_->put_ColWidth(col_, NumberOf(field)); }
    void SetAlignment(TextSpan field)
    {
        members_->put_ColAlignment(col_, static_cast<AlignmentSettings>(NumberOf(field)));
    }
    // General, like the column itself, means that the fixed cells follow the column.
    void SetFixedAlignment(TextSpan field)
    {
        int value = NumberOf(field);
        if (value == lorvAlignGeneral && IsCol(grid_, col_) && grid_.ColTable[col_].Alignment == value)
            grid_.ColTable[col_].FixedAlignment = Unset;
        else
            members_->put_FixedAlignment(col_, static_cast<AlignmentSettings>(value));
    }
    void SetFormat(TextSpan field) { members_->put_ColFormat(col_, TextOf(field).Get()); }
    void SetEditMask(TextSpan field) { members_->put_ColEditMask(col_, TextOf(field).Get()); }
    void SetComboList(TextSpan field) { members_->put_ColComboList(col_, TextOf(field).Get()); }
    void SetDataType(TextSpan field)
    {
        members_->put_ColDataType(col_, static_cast<DataTypeSettings>(NumberOf(field)));
    }
    void SetHidden(TextSpan field)
    {
        members_->put_ColHidden(col_, static_cast<VARIANT_BOOL>(NumberOf(field)));
    }
    void SetKey(TextSpan field) { members_->put_ColKey(col_, TextOf(field).Get()); }
    void SetIndent(TextSpan field) { members_->put_ColIndent(col_, NumberOf(field)); }

    Grid& grid_;
    ComPtr<ILorvGrid> members_;
    int col_;
};

constexpr int BarRecordFields = 8;
constexpr int FullRecordFields = 10;

HRESULT ParseFormatBar(Grid& grid, const wchar_t* text, TitleMeasure& measure)
{
    BarSections bar = SplitBar(text);
    int columns = CountParts(bar.Columns, ItemSeparators);
    HRESULT result = columns > grid.Cols ? ResizeCols(grid, columns) : S_OK;
    if (SUCCEEDED(result) && bar.RowTitles.Begin) {
        int rows = CountParts(bar.RowTitles, ItemSeparators);
        result = rows > grid.Rows ? ResizeRows(grid, rows) : S_OK;
    }
    if (FAILED(result))
        return result;
    ApplyColumnItems(grid, bar.Columns, measure);
    if (bar.RowTitles.Begin)
        ApplyRowItems(grid, bar.RowTitles, measure);
    if (!bar.Records.Begin)
        return S_OK;
    TextParts lines(bar.Records, L"\n");
    TextSpan line;
    for (int col = 0; lines.Next(line) && IsCol(grid, col); ++col)
        if (!line.Empty())
            ColumnRecord(grid, col).Read(line, BarRecordFields);
    return S_OK;
}

HRESULT ParseEqualBar(Grid& grid, const wchar_t* text, TitleMeasure& measure)
{
    HRESULT result = ParseFormatBar(grid, text, measure);
    int widest = UnsetLength;
    for (int col = grid.FixedCols; SUCCEEDED(result) && col < grid.Cols; ++col)
        widest = std::max(widest, grid.ColTable[col].Width);
    for (int col = grid.FixedCols; SUCCEEDED(result) && col < grid.Cols; ++col)
        grid.ColTable[col].Width = widest;
    return result;
}

// A row is made as high as its cell with the most lines needs.
void ApplyTextRow(Grid& grid, int row, TextSpan text)
{
    TextParts cells(text, L"\t");
    TextSpan cell;
    int mostBreaks = 0;
    for (int col = 0; cells.Next(cell); ++col) {
        if (IsCell(grid, row, col) && !cell.Empty())
            SetCellText(grid, row, col, cell.Begin, cell.Length());
        mostBreaks = std::max(mostBreaks, CountParts(cell, L"\n") - 1);
    }
    if (mostBreaks > 0 && IsRow(grid, row))
        grid.RowTable[row].Height = std::min<long long>(
            static_cast<long long>(grid.DefaultRowHeight - RowPadding) * (mostBreaks + 1) + RowPadding,
            MaxPixels);
}

void ParseFormatRecords(Grid& grid, const wchar_t* text)
{
    RecordSections sections = SplitRecords(text);
    TextParts records(sections.Records, L"\v");
    TextSpan record;
    for (int col = 0; col < sections.Count && IsCol(grid, col) && records.Next(record); ++col)
        ColumnRecord(grid, col).Read(record, FullRecordFields);
    if (!sections.Texts.Begin)
        return;
    TextParts rows(sections.Texts, L"\v");
    TextSpan row;
    for (int index = 0; IsRow(grid, index) && rows.Next(row); ++index)
        ApplyTextRow(grid, index, row);
}

void EmptyForDesigner(Grid& grid)
{
    for (int row = 0; row < grid.Rows; ++row) {
        grid.RowTable[row].Height = UnsetLength;
        for (int col = 0; IsCell(grid, row, col); ++col)
            FreeCellContents(grid, row, col, lorvClearEverything);
    }
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].Width = UnsetLength;
}
} // namespace

HRESULT ApplyFormatString(Grid& grid)
{
    KeepAlive alive(grid);
    TitleMeasure measure(grid);
    grid.DefaultRowHeight = measure.RowHeight();
    if (IsDesignMode(grid))
        EmptyForDesigner(grid);
    if (!grid.FormatString || !*grid.FormatString)
        return S_OK;
    wchar_t* text = DuplicateText(grid.FormatString); // an event may set another one
    if (!text)
        return LORV_E_MEMORY;
    HRESULT result = S_OK;
    if (HasRecordHead(text))
        ParseFormatRecords(grid, text);
    else if (*text == L'=')
        result = ParseEqualBar(grid, text + 1, measure);
    else
        result = ParseFormatBar(grid, text, measure);
    FreeBlock(text);
    return result;
}

HRESULT SetFormatString(Grid& grid, const wchar_t* text)
{
    HRESULT result = ReplaceText(grid.FormatString, text);
    if (SUCCEEDED(result))
        result = ApplyFormatString(grid);
    if (FAILED(result))
        return result;
    RecalculateLayout(grid);
    RepaintGrid(grid);
    MarkDirtyAndNotify(grid, 10);
    return S_OK;
}
