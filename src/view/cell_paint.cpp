#include "view/cell_paint.h"

#include "core/events.h"
#include "core/merge.h"
#include "core/outline_level.h"
#include "core/value_format.h"
#include "platform/gdi.h"
#include "view/cell_background.h"
#include "view/cell_button.h"
#include "view/cell_marks.h"
#include "view/cell_text.h"
#include "view/check_box.h"
#include "view/drawing_objects.h"
#include "view/grid_lines.h"
#include "view/metrics.h"
#include "view/picture.h"

#include <commctrl.h>

#include <algorithm>

namespace
{
// Text colour of a context, put back at the end of a scope.
class TextColour
{
public:
    TextColour(HDC dc, COLORREF colour) noexcept : dc_(dc), previous_(SetTextColor(dc, colour)) {}
    TextColour(const TextColour&) = delete;
    TextColour& operator=(const TextColour&) = delete;
    ~TextColour() { SetTextColor(dc_, previous_); }

private:
    HDC dc_;
    COLORREF previous_;
};

bool IsSubtotalAcross(const Grid& grid, int row) noexcept
{
    return (grid.MergeCells == lorvMergeOutline || grid.MergeCellsFixed == lorvMergeOutline) &&
           IsSubtotalRow(grid, row);
}

bool TakesMergedWay(const Grid& grid, int row, int col) noexcept
{
    bool merges = MergesAtAll(grid) && (SpillsText(grid) || grid.RowTable[row].MergeRow != 0 ||
                                        IsSubtotalAcross(grid, row) || grid.ColTable[col].MergeCol != 0);
    return merges || IsLastVisibleCol(grid, col);
}

// The rectangle of the merged range within the bounds of the paint.
RECT MergedArea(Grid& grid, const PaintedCell& cell, const RECT& given, const RECT* bounds)
{
    bool rightToLeft = HasOption(grid, OptionRightToLeft);
    RECT area = CellRectIn(grid, cell.Row, cell.Col, bounds ? *bounds : ClientRectOf(grid));
    if (bounds) {
        OffsetRect(&area, rightToLeft ? 0 : bounds->left, bounds->top);
        area.right = std::min(area.right, bounds->right);
        if (rightToLeft && IsLastVisibleCol(grid, cell.Col))
            area.left = given.left;
        if (area.bottom > bounds->bottom)
            area.bottom = bounds->bottom + (grid.PaintMode & PaintPrinting ? -1 : 1);
    }
    LONG least = area.top + EffectiveRowHeight(grid, cell.Range.Row1);
    area.bottom = std::max(area.bottom, least);
    return area;
}

PaintedCell ChooseRange(Grid& grid, int row, int col, const RECT& given, const RECT* bounds)
{
    PaintedCell cell = {row, col, {row, col, row, col}, given};
    if (IsCell(grid, row, col) && TakesMergedWay(grid, row, col)) {
        cell.Range = MergedRangeOf(grid, row, col);
        cell.Area = MergedArea(grid, cell, given, bounds);
    }
    return cell;
}

// Whether the owner draws at this place, for all cells or for fixed ones.
bool AsksOwner(const Grid& grid, const PaintedCell& cell, int always, int inFixed) noexcept
{
    return grid.OwnerDraw == always || (grid.OwnerDraw == inFixed && IsFixedCell(grid, cell.Row, cell.Col));
}

bool OwnerDrew(Grid& grid, HDC dc, const PaintedCell& cell)
{
    return event::DrawCell(grid, dc, cell.Row, cell.Col, cell.Area);
}

bool IsStillThere(const Grid& grid, const PaintedCell& cell) noexcept
{
    return !grid.Closing && IsCell(grid, cell.Row, cell.Col);
}

OLE_COLOR TextColourOf(const Grid& grid, const PaintedCell& cell, bool drawFocus) noexcept
{
    const CellFormat* format = FormatForPaint(grid, cell.Row, cell.Col);
    if (IsSelectedForPaint(grid, cell.Row, cell.Col, drawFocus))
        return grid.ForeColorSel;
    if (format && format->ForeColor != 0)
        return format->ForeColor;
    if (IsFixedCell(grid, cell.Row, cell.Col))
        return grid.ForeColorFixed;
    bool frozen = cell.Row < FrozenEndRow(grid) || cell.Col < FrozenEndCol(grid);
    return grid.ForeColorFrozen != 0 && frozen ? grid.ForeColorFrozen : grid.ForeColor;
}

// True when the text is the number of an image in the column's list, and that image is drawn in its place.
bool DrawListImage(Grid& grid, HDC dc, const PaintedCell& cell)
{
    auto list = static_cast<HIMAGELIST>(grid.ColTable[cell.ContentCol()].ColImageList);
    if (!list)
        return false;
    const wchar_t* text = GetCellText(grid, cell.ContentRow(), cell.ContentCol());
    double number = IsNumericText(text) ? TextToDouble(text) : -1;
    int width = 0, height = 0;
    if (!(number >= 0 && number < ImageList_GetImageCount(list)) ||
        !ImageList_GetIconSize(list, &width, &height))
        return false;
    const CellFormat* format = FormatForPaint(grid, cell.Row, cell.Col);
    int alignment = EffectiveAlignment(grid, text, cell.ContentRow(), cell.ContentCol(), format);
    POINT at = AlignedOrigin(cell.Area, {width, height}, alignment);
    return ImageList_Draw(list, static_cast<int>(number), dc, std::max(at.x, cell.Area.left),
                          std::max(at.y, cell.Area.top), ILD_TRANSPARENT) != FALSE;
}

bool DrawsWords(const Grid& grid, const PaintedCell& cell) noexcept
{
    return !IsBooleanCell(grid, cell.ContentRow(), cell.ContentCol()) ||
           grid.ColTable[cell.ContentCol()].ColFormat;
}

int StyleOfText(const Grid& grid, const PaintedCell& cell) noexcept
{
    const CellFormat* format = FormatForPaint(grid, cell.Row, cell.Col);
    if (format && format->TextStyle != Unset)
        return format->TextStyle;
    return IsFixedCell(grid, cell.Row, cell.Col) ? grid.TextStyleFixed : grid.TextStyle;
}

void RefreshMergeLinks(Grid& grid)
{
    if (MergesAtAll(grid) && HasOption(grid, OptionMergeStale) && grid.Redraw != lorvRDNone)
        RebuildMergeLinks(grid);
}

void PaintText(Grid& grid, HDC dc, const PaintedCell& cell, DrawnText& drawn)
{
    RefreshMergeLinks(grid);
    const wchar_t* text = GetDisplayText(grid, cell.ContentRow(), cell.ContentCol());
    if (!text || !*text || !IsStillThere(grid, cell))
        return;
    const ColRecord& column = grid.ColTable[cell.ContentCol()];
    drawn.Alignment = EffectiveAlignment(grid, text, cell.ContentRow(), cell.ContentCol(),
                                         FormatForPaint(grid, cell.Row, cell.Col));
    InflateRect(&drawn.Area, -TextMarginX, -TextMarginY);
    if (IsLeftAligned(drawn.Alignment))
        drawn.Area.left += column.Indent;
    else if (IsRightAligned(drawn.Alignment))
        drawn.Area.right -= column.Indent;
    drawn.Width = DrawCellText(grid, dc, text, drawn.Area, drawn.Alignment, StyleOfText(grid, cell),
                               (column.ColFlags & ColFlagParenFormat) != 0);
    if (grid.IsSearching && grid.SearchLength > 0 && cell.Row == grid.Row && cell.Col == grid.Col)
        InvertSearchedText(grid, dc, text, drawn.Area, drawn.Alignment);
    InflateRect(&drawn.Area, TextMarginX, TextMarginY);
}

// Everything that is drawn in the cell's font and colour. False when the owner's handler left nothing to
// paint on.
bool DrawContents(Grid& grid, HDC dc, const PaintedCell& cell, bool drawFocus, ButtonSource button,
                  DrawnText& drawn)
{
    const CellFormat* format = FormatForPaint(grid, cell.Row, cell.Col);
    SelectedObject font(dc, format ? format->Font : nullptr);
    TextColour colour(dc, TranslatedColor(grid, TextColourOf(grid, cell, drawFocus)));
    PaintCellBackground(grid, dc, cell, drawFocus);
    bool imageDrawn = IsStillThere(grid, cell) && DrawListImage(grid, dc, cell);
    if (!IsStillThere(grid, cell))
        return false;
    PaintCellLines(grid, dc, cell.Row, cell.Col, cell.Area);
    DrawCellBorders(grid, dc, cell);
    bool ownerDrew = AsksOwner(grid, cell, lorvODContent, lorvODContentFixed) && OwnerDrew(grid, dc, cell);
    if (!IsStillThere(grid, cell))
        return false;
    if (ownerDrew)
        return true;
    TextAreaAdjust(grid, cell.ContentRow(), cell.ContentCol(), FormatForPaint(grid, cell.Row, cell.Col),
                   drawn.Area, false);
    if (*ButtonTextOf(grid, cell.Col, button))
        drawn.Area.right -= GetSystemMetrics(SM_CXHSCROLL);
    if (drawn.Area.right - drawn.Area.left < 2 || imageDrawn || !IsStillThere(grid, cell) ||
        !DrawsWords(grid, cell))
        return IsStillThere(grid, cell);
    PaintText(grid, dc, cell, drawn);
    if (!IsStillThere(grid, cell))
        return false;
    DrawSortMark(grid, dc, cell, drawn);
    return true;
}
} // namespace

void PaintCell(Grid& grid, HDC dc, int row, int col, const RECT& rectangle, const RECT* bounds)
{
    if (IsRectEmpty(&rectangle))
        return;
    PaintedCell cell = ChooseRange(grid, row, col, rectangle, bounds);
    bool fixed = IsFixedCell(grid, row, col);
    bool current = cell.Range.Contains(grid.Row, grid.Col);
    bool drawFocus = (grid.PaintMode & PaintHasFocus) && current && !fixed;
    int indent = IsCell(grid, row, col) ? grid.ColTable[cell.ContentCol()].Indent + TextMarginX : TextMarginX;
    if (AsksOwner(grid, cell, lorvODComplete, lorvODCompleteFixed) && OwnerDrew(grid, dc, cell))
        return;
    ButtonSource button = FindButton(grid, cell, current, drawFocus);
    if (!IsStillThere(grid, cell))
        return;
    DrawnText drawn = {cell.Area};
    if (!DrawContents(grid, dc, cell, drawFocus, button, drawn))
        return;
    if (AsksOwner(grid, cell, lorvODOver, lorvODOverFixed))
        OwnerDrew(grid, dc, cell);
    if (!IsStillThere(grid, cell))
        return;
    if (grid.GridLines != lorvGridNone) {
        --cell.Area.right, --cell.Area.bottom;
        --drawn.Area.right, --drawn.Area.bottom;
    }
    if (const wchar_t* text = ButtonTextOf(grid, col, button); *text)
        DrawCellButton(grid, dc, text, cell.Area, drawn.Area);
    if (drawFocus)
        DrawFocusMark(grid, dc, cell, drawn, indent);
}
