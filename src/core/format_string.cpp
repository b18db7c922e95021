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

enum class RecordForm { Bar, Full };
constexpr int BarRecordFields = 8;
constexpr int FullRecordFields = 10;

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

bool IsOutOfMemory(HRESULT result) noexcept
{
    return result == LORV_E_MEMORY || result == E_OUTOFMEMORY;
}

// One column's settings, each stored through its member, so that it is checked as a host's would be. A
// refused field leaves that setting as it was; only a want of memory ends the reading.
class ColumnRecord
{
public:
    ColumnRecord(Grid& grid, int col, RecordForm form) noexcept
        : grid_(grid), members_(QueryFor<ILorvGrid>(grid.Outer, IID_ILorvGrid)), col_(col), form_(form)
    {
    }

    HRESULT Read(TextSpan record)
    {
        using Setter = HRESULT (ColumnRecord::*)(TextSpan);
        static constexpr Setter setters[] = {
            &ColumnRecord::SetWidth,    &ColumnRecord::SetAlignment, &ColumnRecord::SetFixedAlignment,
            &ColumnRecord::SetFormat,   &ColumnRecord::SetEditMask,  &ColumnRecord::SetComboList,
            &ColumnRecord::SetDataType, &ColumnRecord::SetHidden,    &ColumnRecord::SetKey,
            &ColumnRecord::SetIndent,
        };
        int fieldCount = form_ == RecordForm::Full ? FullRecordFields : BarRecordFields;
        TextParts fields(record, L"\t");
        TextSpan field;
        for (int i = 0; members_ && i < fieldCount && fields.Next(field); ++i) {
            if (fields.Ended() && field.Empty())
                break; // nothing stands behind the last tab
            if (HRESULT result = (this->*setters[i])(field); IsOutOfMemory(result))
                return result;
        }
        return S_OK;
    }

private:
    using TextMember = HRESULT (STDMETHODCALLTYPE ILorvGrid::*)(LONG col, BSTR value);
    HRESULT SetText(TextMember member, TextSpan field)
    {
        Bstr text;
        *text.Put() = SysAllocStringLen(field.Begin, static_cast<UINT>(field.Length()));
        return text.Get() ? (members_.Get()->*member)(col_, text.Get()) : LORV_E_MEMORY;
    }

    HRESULT SetWidth(TextSpan field) { return members_->put_ColWidth(col_, NumberOf(field)); }
    HRESULT SetAlignment(TextSpan field)
    {
        return members_->put_ColAlignment(col_, static_cast<AlignmentSettings>(NumberOf(field)));
    }
    // The grid's own records say general, like the column itself, where the fixed cells follow the column.
    HRESULT SetFixedAlignment(TextSpan field)
    {
        int value = NumberOf(field);
        if (form_ == RecordForm::Full && value == lorvAlignGeneral && IsCol(grid_, col_) &&
            grid_.ColTable[col_].Alignment == value) {
            grid_.ColTable[col_].FixedAlignment = Unset;
            return S_OK;
        }
        return members_->put_FixedAlignment(col_, static_cast<AlignmentSettings>(value));
    }
    HRESULT SetFormat(TextSpan field) { return SetText(&ILorvGrid::put_ColFormat, field); }
    HRESULT SetEditMask(TextSpan field) { return SetText(&ILorvGrid::put_ColEditMask, field); }
    HRESULT SetComboList(TextSpan field) { return SetText(&ILorvGrid::put_ColComboList, field); }
    HRESULT SetDataType(TextSpan field)
    {
        return members_->put_ColDataType(col_, static_cast<DataTypeSettings>(NumberOf(field)));
    }
    HRESULT SetHidden(TextSpan field)
    {
        return members_->put_ColHidden(col_, static_cast<VARIANT_BOOL>(NumberOf(field)));
    }
    HRESULT SetKey(TextSpan field) { return SetText(&ILorvGrid::put_ColKey, field); }
    HRESULT SetIndent(TextSpan field) { return members_->put_ColIndent(col_, NumberOf(field)); }

    Grid& grid_;
    ComPtr<ILorvGrid> members_;
    int col_;
    RecordForm form_;
};

// A line per column behind the titles of the bar form.
HRESULT ApplyBarRecords(Grid& grid, TextSpan records)
{
    TextParts lines(records, L"\n");
    TextSpan line;
    HRESULT result = S_OK;
    for (int col = 0; SUCCEEDED(result) && IsCol(grid, col) && lines.Next(line); ++col)
        result = ColumnRecord(grid, col, RecordForm::Bar).Read(line);
    return result;
}

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
    return bar.Records.Begin ? ApplyBarRecords(grid, bar.Records) : S_OK;
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

HRESULT ParseFormatRecords(Grid& grid, const wchar_t* text)
{
    RecordSections sections = SplitRecords(text);
    TextParts records(sections.Records, L"\v");
    TextSpan record;
    HRESULT result = S_OK;
    for (int col = 0; SUCCEEDED(result) && col < sections.Count && IsCol(grid, col) && records.Next(record);
         ++col)
        result = ColumnRecord(grid, col, RecordForm::Full).Read(record);
    if (FAILED(result) || !sections.Texts.Begin)
        return result;
    TextParts rows(sections.Texts, L"\v");
    TextSpan row;
    for (int index = 0; IsRow(grid, index) && rows.Next(row); ++index)
        ApplyTextRow(grid, index, row);
    return S_OK;
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
    MarkMergeStale(grid);
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
        result = ParseFormatRecords(grid, text);
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
    if (SpillsText(grid))
        MarkMergeStale(grid); // widths decide how far a text spills
    if (FAILED(result))
        return result;
    RecalculateLayout(grid);
    RepaintGrid(grid);
    MarkDirtyAndNotify(grid, 10);
    return S_OK;
}
