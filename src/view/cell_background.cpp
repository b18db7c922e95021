#include "view/cell_background.h"

#include "core/outline_level.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "view/check_box.h"
#include "view/drawing_objects.h"
#include "view/outline_paint.h"
#include "view/picture.h"
#include "view/resources.h"
#include "view/selection.h"
#include "view/theme.h"

#include <algorithm>
#include <cstdlib>

namespace
{
constexpr COLORREF PureWhite = RGB(255, 255, 255);
constexpr int IndicatorMinimum = 10; // pixels; a smaller cell shows no row indicator
constexpr int IndicatorCentre = 5;   // pixels from the icon's origin

bool IsBetween(int index, int one, int other) noexcept
{
    return index >= std::min(one, other) && index <= std::max(one, other);
}

bool ShowsSelection(const Grid& grid) noexcept
{
    return grid.HighLight == lorvHighlightAlways ||
           (grid.HighLight == lorvHighlightWithFocus && (grid.PaintMode & PaintHasFocus));
}

bool IsSelectedFreely(const Grid& grid, int row, int col, bool drawFocus) noexcept
{
    if (grid.RowTable[row].Flags & RowFlagSelected)
        return true;
    if (!IsBetween(row, grid.Row, grid.RowSel) || !IsBetween(col, grid.Col, grid.ColSel))
        return false;
    if (drawFocus && grid.FocusRect != lorvFocusNone)
        return false;
    return !(grid.ActiveEditor != 0 && row == grid.Row && col == grid.Col);
}

bool IsFrozenCell(const Grid& grid, int row, int col) noexcept
{
    return row < FrozenEndRow(grid) || col < FrozenEndCol(grid);
}

// Where the colour of a cell comes from.
enum class BackSource { Selection, Own, Frozen, Alternate, Plain, Fixed };

BackSource BackSourceOf(const Grid& grid, int row, int col, const CellFormat* format, bool drawFocus) noexcept
{
    if (IsSelectedForPaint(grid, row, col, drawFocus))
        return BackSource::Selection;
    if (format && format->BackColorSet)
        return BackSource::Own;
    if (IsFixedCell(grid, row, col))
        return BackSource::Fixed;
    if (grid.Drawing.Frozen && IsFrozenCell(grid, row, col))
        return BackSource::Frozen;
    // By index, hidden rows counted: the first scrollable row is plain.
    if (grid.Drawing.Alternate && ((row - grid.FixedRows) & 1))
        return BackSource::Alternate;
    return BackSource::Plain;
}

OLE_COLOR ColorOf(const Grid& grid, BackSource source, const CellFormat* format) noexcept
{
    switch (source) {
    case BackSource::Selection:
        return grid.BackColorSel;
    case BackSource::Own:
        return format->BackColor;
    case BackSource::Frozen:
        return grid.BackColorFrozen;
    case BackSource::Alternate:
        return grid.BackColorAlternate;
    case BackSource::Fixed:
        return grid.BackColorFixed;
    default:
        return grid.BackColor;
    }
}

HBRUSH BrushOf(Grid& grid, BackSource source, const CellFormat* format) noexcept
{
    const DrawingObjects& drawing = grid.Drawing;
    switch (source) {
    case BackSource::Selection:
        return drawing.Selection;
    case BackSource::Own:
        return ScratchBrush(grid, format->BackColor);
    case BackSource::Frozen:
        return drawing.Frozen;
    case BackSource::Alternate:
        return drawing.Alternate;
    case BackSource::Fixed:
        return drawing.Fixed;
    default:
        return drawing.Back;
    }
}

bool IsHot(const Grid& grid, const CellRange& range) noexcept
{
    return range.Contains(grid.HoverRow, grid.HoverCol);
}

void DrawHeader(Grid& grid, HDC dc, const PaintedCell& cell)
{
    bool hot = IsHot(grid, cell.Range);
    bool pressed = hot && GetAsyncKeyState(VK_LBUTTON) != 0;
    if (HANDLE theme = ThemeOf(grid, ThemeClass::Header)) {
        int state = pressed ? StatePressed : hot ? StateHot : StateNormal;
        DrawThemePart(grid, theme, dc, HeaderItemPart, state, cell.Area);
        return;
    }
    RECT area = cell.Area;
    UINT state = DFCS_BUTTONPUSH | DFCS_FLAT | (hot ? DFCS_HOT : 0) | (pressed ? DFCS_PUSHED : 0);
    DrawFrameControl(dc, &area, DFC_BUTTON, state);
}

// Whether the cell's colour is to be laid down, after a header has been drawn in its place where one is due.
bool DrawsBackColor(Grid& grid, HDC dc, const PaintedCell& cell, BackSource source)
{
    bool fixed = IsFixedCell(grid, cell.Row, cell.Col);
    // With themes wanted and not to be had, fixed cells are plain cells with grid lines; every other
    // appearance makes them flat buttons, which have no use for BackColorFixed.
    if (fixed && (grid.Appearance != lorvXPThemes || IsThemed(grid))) {
        DrawHeader(grid, dc, cell);
        return false;
    }
    if (grid.WallPaper && !fixed && source != BackSource::Selection && source != BackSource::Own)
        return false;
    bool savesInk = (grid.PaintMode & PaintPrinting) && source == BackSource::Plain &&
                    TranslatedColor(grid, grid.BackColor) == PureWhite;
    return !savesInk;
}

void FillFlood(Grid& grid, HDC dc, const RECT& area, COLORREF colour) noexcept
{
    if (grid.PaintMode & PaintPrinting) {
        Brush brush(CreateSolidBrush(colour));
        FillRect(dc, &area, brush.Get());
        return;
    }
    SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void DrawFlood(Grid& grid, HDC dc, RECT area, const CellFormat& format) noexcept
{
    InflateRect(&area, -2, -2);
    if (IsRectEmpty(&area))
        return;
    int filled = MulDiv(area.right - area.left, std::abs(format.FloodPercent), 100);
    if (format.FloodPercent > 0)
        area.right = area.left + filled;
    else
        area.left = area.right - filled;
    FillFlood(grid, dc, area, TranslatedColor(grid, format.FloodColor ? format.FloodColor : grid.FloodColor));
}

// Returns the width that the tree takes at the leading edge.
int DrawTree(Grid& grid, HDC dc, const PaintedCell& cell)
{
    if (!ShowsOutline(grid) || cell.ContentCol() != grid.OutlineCol)
        return 0;
    int width = (RowLevelIndex(grid, cell.ContentRow()) + 1) * DpiScale(OutlineStep);
    PaintOutlineTree(grid, dc, cell.ContentRow(), cell.ContentCol(), cell.Area);
    return width;
}

void DrawCellPicture(Grid& grid, HDC dc, RECT area, const CellFormat& format, int treeWidth)
{
    --area.right, --area.bottom;
    if (HasOption(grid, OptionRightToLeft))
        area.right -= treeWidth;
    else
        area.left += treeWidth;
    int alignment =
        format.PictureAlignment == Unset ? static_cast<int>(lorvPicAlignLeftCenter) : format.PictureAlignment;
    DrawPicture(grid, dc, format.Picture, alignment, area);
}

void DrawRowIndicator(const Grid& grid, HDC dc, const PaintedCell& cell) noexcept
{
    const RECT& area = cell.Area;
    if (grid.GridLinesFixed != lorvGridDataGrid || cell.Col != grid.FixedCols - 1 || cell.Row != grid.Row ||
        area.right - area.left <= IndicatorMinimum || area.bottom - area.top <= IndicatorMinimum)
        return;
    DrawMarkIcon(dc, (area.left + area.right) / 2 - IndicatorCentre,
                 (area.top + area.bottom) / 2 - IndicatorCentre,
                 RowIndicatorIcon(HasOption(grid, OptionRightToLeft)));
}
} // namespace

bool IsSelectedForPaint(const Grid& grid, int row, int col, bool drawFocus) noexcept
{
    if (IsFixedCell(grid, row, col) || !ShowsSelection(grid))
        return false;
    bool flagged = (grid.RowTable[row].Flags & RowFlagSelected) != 0;
    switch (grid.SelectionMode) {
    case lorvSelectionByRow:
        return flagged || IsBetween(row, grid.Row, grid.RowSel);
    case lorvSelectionByColumn:
        return flagged || IsBetween(col, grid.Col, grid.ColSel);
    case lorvSelectionListBox:
        return IsRowSelected(grid, row);
    default:
        return IsSelectedFreely(grid, row, col, drawFocus);
    }
}

OLE_COLOR CellBackColorOf(const Grid& grid, int row, int col, const CellFormat* format,
                          bool drawFocus) noexcept
{
    return ColorOf(grid, BackSourceOf(grid, row, col, format, drawFocus), format);
}

HBRUSH CellBackBrush(Grid& grid, int row, int col, const CellFormat* format, bool drawFocus) noexcept
{
    return BrushOf(grid, BackSourceOf(grid, row, col, format, drawFocus), format);
}

void PaintCellBackground(Grid& grid, HDC dc, const PaintedCell& cell, bool drawFocus)
{
    const CellFormat* format = FormatForPaint(grid, cell.Row, cell.Col);
    BackSource source = BackSourceOf(grid, cell.Row, cell.Col, format, drawFocus);
    bool fills = DrawsBackColor(grid, dc, cell, source);
    COLORREF previous = SetBkColor(dc, TranslatedColor(grid, ColorOf(grid, source, format)));
    if (fills)
        FillRect(dc, &cell.Area, BrushOf(grid, source, format));
    if (format && format->FloodPercent != 0)
        DrawFlood(grid, dc, cell.Area, *format);
    int treeWidth = DrawTree(grid, dc, cell);
    if (format && format->Picture)
        DrawCellPicture(grid, dc, cell.Area, *format, treeWidth);
    DrawCheckBox(grid, dc, cell);
    DrawRowIndicator(grid, dc, cell);
    SetBkColor(dc, previous);
}
