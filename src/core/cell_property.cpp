#include "core/cell_property.h"

#include "core/cell_font.h"
#include "core/check_state.h"
#include "core/events.h"
#include "core/font_pool.h"
#include "core/merge.h"
#include "core/selection_range.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "platform/memory.h"
#include "platform/variant.h"

#include <utility>

namespace
{
struct ColourField {
    CellSelector Selector;
    uint32_t CellFormat::*Field;
};
constexpr ColourField colourFields[] = {
    {CellSelector::BackColor, &CellFormat::BackColor},
    {CellSelector::ForeColor, &CellFormat::ForeColor},
    {CellSelector::FloodColor, &CellFormat::FloodColor},
    {CellSelector::BorderColor, &CellFormat::BorderColor},
};

struct ByteField {
    CellSelector Selector;
    uint8_t CellFormat::*Field;
};
constexpr ByteField byteFields[] = {
    {CellSelector::Alignment, &CellFormat::Alignment},
    {CellSelector::TextStyle, &CellFormat::TextStyle},
    {CellSelector::PictureAlignment, &CellFormat::PictureAlignment},
    {CellSelector::BorderLeft, &CellFormat::BorderLeft},
    {CellSelector::BorderRight, &CellFormat::BorderRight},
    {CellSelector::BorderTop, &CellFormat::BorderTop},
    {CellSelector::BorderBottom, &CellFormat::BorderBottom},
};

// Plain numbers of the format. LORV_E_VALUE for a selector that is none.
HRESULT StoreNumber(CellFormat& format, CellSelector selector, CellValue value) noexcept
{
    if (selector == CellSelector::BackColor)
        format.BackColorSet = 1;
    for (const ColourField& colour : colourFields)
        if (colour.Selector == selector) {
            format.*colour.Field = value.Number();
            return S_OK;
        }
    for (const ByteField& byte : byteFields)
        if (byte.Selector == selector) {
            format.*byte.Field = value.Byte();
            return S_OK;
        }
    return LORV_E_VALUE;
}

void StorePicture(CellFormat& format, IPictureDisp* picture) noexcept
{
    if (format.Picture != picture)
        ReplaceReference(format.Picture, picture); // lets go of the old one last: that can run foreign code
}

// Copying a value and letting go of the old one can both run foreign code: the format is looked up in
// between.
HRESULT StoreData(Grid& grid, int row, int col, const VARIANT* value)
{
    OwnedVariant copy;
    if (value)
        if (HRESULT result = VariantCopyInd(&copy.Get(), const_cast<VARIANT*>(&FollowVariant(*value)));
            FAILED(result))
            return result;
    if (!IsCell(grid, row, col))
        return LORV_E_INDEX;
    CellFormat* format = EnsureCellFormat(grid, row, col);
    if (!format)
        return LORV_E_MEMORY;
    if (!format->Data)
        format->Data = static_cast<VARIANT*>(AllocateZeroed(1, sizeof(VARIANT)));
    if (!format->Data)
        return LORV_E_MEMORY;
    std::swap(*format->Data, copy.Get());
    return S_OK;
}

// Everything but the data goes over. The font is asked of the pool by its description, like any other.
HRESULT CopyFormat(Grid& grid, int row, int col, const CellFormat* source)
{
    if (!source) {
        FreeCellContents(grid, row, col, lorvClearFormatting);
        return S_OK;
    }
    if (FAILED(EnsureRowCells(grid, row)))
        return LORV_E_MEMORY;
    if (CellFormatOf(grid, row, col) == source)
        return S_OK;
    CellFormat* target = EnsureCellFormat(grid, row, col);
    if (!target)
        return LORV_E_MEMORY;
    ReleasePooledFont(target->Font);
    ComPtr<IPictureDisp> oldPicture;
    oldPicture.Attach(target->Picture);
    CellFormat copy = *source;
    copy.Data = target->Data;
    copy.Font = AcquireFontLike(source->Font);
    if (copy.Picture)
        copy.Picture->AddRef();
    *target = copy;
    return S_OK;
}

HRESULT WriteFormatProperty(Grid& grid, int row, int col, CellSelector selector, CellValue value)
{
    CellFormat* format = EnsureCellFormat(grid, row, col);
    if (!format)
        return LORV_E_MEMORY;
    if (selector >= CellSelector::Font && selector <= CellSelector::FontWidth)
        return SetCellFont(grid, row, col, selector, value);
    switch (selector) {
    case CellSelector::Picture:
        StorePicture(*format, value.Picture());
        return S_OK;
    case CellSelector::FloodPercent:
        format->FloodPercent = static_cast<int8_t>(value.Byte());
        return S_OK;
    case CellSelector::Data:
        return StoreData(grid, row, col, value.Data());
    case CellSelector::Refresh:
        return S_OK;
    default:
        return StoreNumber(*format, selector, value);
    }
}

// A text or a check box makes no format.
HRESULT WriteProperty(Grid& grid, int row, int col, CellSelector selector, CellValue value)
{
    if (selector == CellSelector::CopyFormat)
        return CopyFormat(grid, row, col, value.Format());
    if (FAILED(EnsureRowCells(grid, row)))
        return LORV_E_MEMORY;
    if (selector == CellSelector::CheckState)
        return SetCheckState(grid, row, col, static_cast<int>(value.Number()));
    if (selector == CellSelector::Text)
        return SetCellText(grid, row, col, value.Text());
    return WriteFormatProperty(grid, row, col, selector, value);
}
} // namespace

HRESULT SetCellProperty(Grid& grid, int row, int col, CellSelector selector, CellValue value)
{
    if (!IsCell(grid, row, col))
        return LORV_E_INDEX;
    KeepAlive alive(grid);
    HRESULT result = WriteProperty(grid, row, col, selector, value);
    if (IsCell(grid, row, col))
        RepaintCell(grid, row, col);
    return result;
}

HRESULT SetCellPropertyRange(Grid& grid, const CellRange& range, CellSelector selector, CellValue value)
{
    KeepAlive alive(grid);
    for (int row = range.Row1; row <= range.Row2; ++row)
        for (int col = range.Col1; col <= range.Col2; ++col)
            if (HRESULT result = SetCellProperty(grid, row, col, selector, value); result != S_OK)
                return result;
    return S_OK;
}

namespace
{
bool CurrentCellMayMerge(const Grid& grid) noexcept
{
    if (!MergesAtAll(grid) || !IsCell(grid, grid.Row, grid.Col))
        return false;
    return RowMerges(grid, grid.Row) || grid.ColTable[grid.Col].MergeCol != 0;
}

// The cells linked to one, along its own row and column. The links are followed whatever the row and the
// column permit, but not into the fixed part above or to the left.
CellRange LinkedRange(const Grid& grid, int row, int col) noexcept
{
    CellRange range(row, col, row, col);
    while (range.Row1 > grid.FixedRows && (MergeLinksOf(grid, range.Row1, col) & LinkAbove))
        --range.Row1;
    while (range.Row2 + 1 < grid.Rows && (MergeLinksOf(grid, range.Row2, col) & LinkBelow))
        ++range.Row2;
    while (range.Col1 > grid.FixedCols && (MergeLinksOf(grid, row, range.Col1) & LinkLeft))
        --range.Col1;
    while (range.Col2 + 1 < grid.Cols && (MergeLinksOf(grid, row, range.Col2) & LinkRight))
        ++range.Col2;
    return range;
}

HRESULT SetMergedCheckState(Grid& grid, CellValue value)
{
    if (HasOption(grid, OptionMergeStale) && grid.Redraw != lorvRDNone)
        RebuildMergeLinks(grid);
    if (!IsCell(grid, grid.Row, grid.Col)) // a text source may have changed the grid
        return LORV_E_INDEX;
    HRESULT result =
        SetCellPropertyRange(grid, LinkedRange(grid, grid.Row, grid.Col), CellSelector::CheckState, value);
    RepaintGrid(grid);
    return result;
}

// One repaint for the whole selection instead of one per cell.
HRESULT SetSelectedCells(Grid& grid, CellSelector selector, CellValue value)
{
    int32_t redraw = std::exchange(grid.Redraw, lorvRDNone);
    HRESULT result =
        SetCellPropertyRange(grid, {grid.Row, grid.Col, grid.RowSel, grid.ColSel}, selector, value);
    grid.Redraw = redraw;
    RepaintSelection(grid);
    return result;
}
} // namespace

HRESULT SetCellPropertySelection(Grid& grid, CellSelector selector, CellValue value)
{
    KeepAlive alive(grid);
    if (selector == CellSelector::CheckState && CurrentCellMayMerge(grid))
        return SetMergedCheckState(grid, value);
    if (grid.FillStyle != lorvFillSingle)
        return SetSelectedCells(grid, selector, value);
    return SetCellProperty(grid, grid.Row, grid.Col, selector, value);
}
