#include "core/merge_links.h"

#include "core/cell_store.h"
#include "core/merge.h"
#include "core/outline_level.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "platform/com_ptr.h"
#include "platform/dpi.h"
#include "platform/gdi.h"

#include <cwchar>

namespace
{
bool RestrictsRows(int mode) noexcept
{
    return mode == lorvMergeRestrictRows || mode == lorvMergeRestrictAll;
}
bool RestrictsColumns(int mode) noexcept
{
    return mode == lorvMergeRestrictColumns || mode == lorvMergeRestrictAll;
}

void LinkColumn(Grid& grid, int mode, MergePass pass, int col)
{
    bool boolean = grid.ColTable[col].ColDataType == lorvDTBoolean;
    bool followsLeft = RestrictsRows(mode) && col != 0 && col != grid.FixedCols;
    int end = grid.Rows - 1;
    if (mode == lorvMergeFixedOnly && col >= grid.FixedCols && end > grid.FixedRows - 1)
        end = grid.FixedRows - 1;
    for (int row = 0; row < end && IsCell(grid, row + 1, col); ++row) {
        if (!InPass(grid, pass, row, col))
            continue;
        const CellRecord* cells = grid.RowTable[row].Cells;
        if (!cells && !boolean)
            continue;
        if (followsLeft && cells && !(cells[col - 1].State & LinkBelow))
            continue;
        if (!CanMerge(grid, {row, col}, {row + 1, col}) || !IsCell(grid, row + 1, col))
            continue;
        if (FAILED(EnsureRowCells(grid, row)) || FAILED(EnsureRowCells(grid, row + 1)))
            continue;
        grid.RowTable[row].Cells[col].State |= LinkBelow;
        grid.RowTable[row + 1].Cells[col].State |= LinkAbove;
    }
}

bool LinkedAcross(const Grid& grid, int row, int col) noexcept
{
    return (MergeLinksOf(grid, row, col) & LinkRight) != 0;
}

// A cell in a vertical merge does not join horizontally. A text source may change the grid at any read.
void LinkRow(Grid& grid, int mode, MergePass pass, int row)
{
    if (!grid.RowTable[row].Cells)
        return;
    bool followsAbove =
        RestrictsColumns(mode) && row != 0 && row != grid.FixedRows && grid.RowTable[row - 1].Cells;
    int end = grid.Cols - 1;
    if (mode == lorvMergeFixedOnly && row >= grid.FixedRows && end > grid.FixedCols - 1)
        end = grid.FixedCols - 1;
    for (int col = 0; col < end && IsCell(grid, row, col + 1); ++col) {
        if (!InPass(grid, pass, row, col))
            continue;
        if ((MergeLinksOf(grid, row, col) | MergeLinksOf(grid, row, col + 1)) & (LinkAbove | LinkBelow))
            continue;
        if (followsAbove && !LinkedAcross(grid, row - 1, col))
            continue;
        if (CanMerge(grid, {row, col}, {row, col + 1}) && IsCell(grid, row, col + 1))
            LinkAcross(grid, row, col);
    }
}
} // namespace

void BuildEqualLinks(Grid& grid, int mode, MergePass pass)
{
    for (int col = 0; col < grid.Cols; ++col)
        if (grid.ColTable[col].MergeCol)
            LinkColumn(grid, mode, pass, col);
    for (int row = 0; row < grid.Rows; ++row)
        if (grid.RowTable[row].MergeRow)
            LinkRow(grid, mode, pass, row);
}

namespace
{
constexpr int TextMargin = 8; // pixels beside a text, both sides together

bool IsHiddenCol(const Grid& grid, int col) noexcept
{
    return (grid.ColTable[col].ColFlags & ColFlagHidden) != 0;
}

bool HasPicture(const Grid& grid, int row, int col) noexcept
{
    const CellFormat* format = CellFormatOf(grid, row, col);
    return format && format->Picture;
}

int PictureWidth(IPictureDisp* picture) noexcept
{
    ComPtr<IPicture> object = QueryFor<IPicture>(picture, IID_IPicture);
    OLE_XSIZE_HIMETRIC width = 0;
    return object && SUCCEEDED(object->get_Width(&width)) ? HimetricToPixelsX(width) : 0;
}

// Pictures at the left or right edge push the text aside; centred and stretched ones lie under it.
bool PushesText(uint8_t pictureAlignment) noexcept
{
    switch (pictureAlignment) {
    case Unset:
    case lorvPicAlignLeftTop:
    case lorvPicAlignLeftCenter:
    case lorvPicAlignLeftBottom:
    case lorvPicAlignRightTop:
    case lorvPicAlignRightCenter:
    case lorvPicAlignRightBottom:
        return true;
    default:
        return false;
    }
}

// Measures with real fonts: the grid's, or the cell's own.
class TextMeasure
{
public:
    explicit TextMeasure(Grid& grid) noexcept
        : gridFont_(GridFontHandle(grid)), font_(screen_.Get(), gridFont_)
    {
    }

    int FirstLineWidth(const wchar_t* text, HFONT cellFont) noexcept
    {
        SelectedObject font(screen_.Get(), cellFont);
        SIZE size = {};
        GetTextExtentPoint32W(screen_.Get(), text, static_cast<int>(std::wcscspn(text, L"\r\n")), &size);
        return size.cx;
    }

private:
    ScreenDC screen_;
    HFONT gridFont_;
    SelectedObject font_;
};

int NeededWidth(Grid& grid, int row, int col, const wchar_t* text, TextMeasure& measure)
{
    const CellFormat* format = CellFormatOf(grid, row, col);
    int width = measure.FirstLineWidth(text, format ? format->Font : nullptr);
    width += TextMargin + 2 * grid.ColTable[col].Indent;
    if (col == grid.OutlineCol && ShowsOutline(grid) && row >= grid.FixedRows)
        if (int level = RowLevelIndex(grid, row); level >= 0)
            width += (level + 1) * DpiScale(OutlineStep);
    if (!HasOption(grid, OptionPicturesOver) && format && format->Picture &&
        PushesText(format->PictureAlignment))
        width += PictureWidth(format->Picture);
    return width;
}

void SpillText(Grid& grid, int row, int col, int needed)
{
    int width = EffectiveColWidth(grid, col);
    for (; width < needed && IsCell(grid, row, col + 1); ++col) {
        const wchar_t* next = GetDisplayText(grid, row, col + 1);
        if ((next && *next) || !IsCell(grid, row, col + 1) || HasPicture(grid, row, col + 1) ||
            col == FrozenEndCol(grid) - 1)
            return;
        LinkAcross(grid, row, col);
        width += EffectiveColWidth(grid, col + 1);
    }
}
} // namespace

void BuildSpillLinks(Grid& grid, MergePass pass)
{
    TextMeasure measure(grid);
    for (int row = 0; row < grid.Rows; ++row) {
        if (!grid.RowTable[row].Cells)
            continue;
        for (int col = 0; IsCell(grid, row, col + 1); ++col) { // a text source may take cells away
            if (!InPass(grid, pass, row, col) || IsHiddenCol(grid, col))
                continue;
            if (const wchar_t* text = GetDisplayText(grid, row, col); text && IsCell(grid, row, col))
                SpillText(grid, row, col, NeededWidth(grid, row, col, text, measure));
        }
    }
}

// A text is tested by its pointer: a source that yields one counts, even for an empty text. The step over
// the last frozen column sets no link, but the walk goes on.
static void TakeEmptyCells(Grid& grid, int row, int col)
{
    for (; IsCell(grid, row, col + 1) && !GetCellText(grid, row, col + 1); ++col)
        if (col != FrozenEndCol(grid) - 1 && IsCell(grid, row, col + 1))
            LinkAcross(grid, row, col);
}

void BuildOutlineLinks(Grid& grid, MergePass pass)
{
    for (int row = 0; row < grid.Rows; ++row) {
        if (!grid.RowTable[row].Cells || !IsSubtotalRow(grid, row))
            continue;
        for (int col = grid.FixedCols; IsCell(grid, row, col + 1); ++col)
            if (InPass(grid, pass, row, col) && !IsHiddenCol(grid, col) && GetCellText(grid, row, col))
                TakeEmptyCells(grid, row, col);
    }
}
