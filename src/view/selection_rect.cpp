#include "core/merge.h"
#include "core/selection_range.h"
#include "core/upcalls.h"
#include "view/metrics.h"
#include "view/selection.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
constexpr int FirstGridLineWithHeaderMark = 13; // from lorvGridExcel on

bool AnyInRow(const Grid& grid, const CellRange& range, int row, uint8_t link) noexcept
{
    for (int col = range.Col1; col <= range.Col2; ++col)
        if (IsCell(grid, row, col) && (MergeLinksOf(grid, row, col) & link))
            return true;
    return false;
}

bool AnyInCol(const Grid& grid, const CellRange& range, int col, uint8_t link) noexcept
{
    for (int row = range.Row1; row <= range.Row2; ++row)
        if (IsCell(grid, row, col) && (MergeLinksOf(grid, row, col) & link))
            return true;
    return false;
}

bool MergesOutward(const Grid& grid, const CellRange& range) noexcept
{
    return AnyInRow(grid, range, range.Row1, LinkAbove) || AnyInRow(grid, range, range.Row2, LinkBelow) ||
           AnyInCol(grid, range, range.Col1, LinkLeft) || AnyInCol(grid, range, range.Col2, LinkRight);
}

// The client area without the fixed rows and columns.
void RepaintScrollableArea(Grid& grid)
{
    if (!grid.Window)
        return;
    RECT area = ClientRectOf(grid);
    area.top += SumLengths(grid, RowAxis, 0, grid.FixedRows);
    int fixedWidth = SumLengths(grid, ColAxis, 0, grid.FixedCols);
    if (HasOption(grid, OptionRightToLeft))
        area.right -= fixedWidth;
    else
        area.left += fixedWidth;
    InvalidateRect(grid.Window, &area, FALSE);
}
} // namespace

RECT SelectionOuterRect(Grid& grid)
{
    CellRange range = SelectionRange(grid);
    RECT first = CellRect(grid, range.Row1, range.Col1), last = CellRect(grid, range.Row2, range.Col2);
    bool mirrored = HasOption(grid, OptionRightToLeft);
    RECT area = {mirrored ? last.left : first.left, first.top, mirrored ? first.right : last.right,
                 last.bottom};
    area.right = std::min<LONG>(area.right, MaxPixels);
    area.bottom = std::min<LONG>(area.bottom, MaxPixels);
    return area;
}

RECT SelectionPixelRect(Grid& grid, bool force)
{
    if (!force && grid.HighLight == lorvHighlightNever)
        return CellRect(grid, grid.Row, grid.Col);
    CellRange range = SelectionRange(grid);
    RECT area = SelectionOuterRect(grid);
    if (MergesAtAll(grid) && !range.IsSingleCell() && MergesOutward(grid, range))
        RepaintScrollableArea(grid);
    return area;
}

bool RectDifference(RECT& band, const RECT& a, const RECT& b) noexcept
{
    LONG largest = std::max({a.left, a.top, a.right, a.bottom, b.left, b.top, b.right, b.bottom});
    if (largest >= MaxPixels)
        return false;
    band = a;
    auto between = [](LONG& low, LONG& high, LONG x, LONG y) {
        low = std::min(x, y);
        high = std::max(x, y);
        return true;
    };
    if (a.top == b.top && a.bottom == b.bottom) {
        if (a.left == b.left)
            return between(band.left, band.right, a.right, b.right);
        return a.right == b.right && between(band.left, band.right, a.left, b.left);
    }
    if (a.left == b.left && a.right == b.right) {
        if (a.top == b.top)
            return between(band.top, band.bottom, a.bottom, b.bottom);
        return a.bottom == b.bottom && between(band.top, band.bottom, a.top, b.top);
    }
    return false;
}

// The bands of fixed rows and columns along the selection; one call repaints them whole.
void RepaintSelectionHeaders(Grid& grid)
{
    if (grid.GridLinesFixed < FirstGridLineWithHeaderMark || !grid.Window)
        return;
    RECT client = ClientRectOf(grid);
    RECT rows = client, cols = client;
    rows.bottom = SumLengths(grid, RowAxis, 0, grid.FixedRows);
    int fixedWidth = SumLengths(grid, ColAxis, 0, grid.FixedCols);
    if (HasOption(grid, OptionRightToLeft))
        cols.left = cols.right - fixedWidth;
    else
        cols.right = cols.left + fixedWidth;
    InvalidateRect(grid.Window, &rows, FALSE);
    InvalidateRect(grid.Window, &cols, FALSE);
}

void RepaintSelection(Grid& grid)
{
    if (!grid.Window)
        return RepaintGrid(grid);
    RECT area = SelectionPixelRect(grid, true);
    InvalidateRect(grid.Window, &area, FALSE);
}
