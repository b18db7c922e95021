#include "view/metrics.h"

#include "core/merge.h"
#include "platform/dpi.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
int Limited(int pixels, int minimum, int maximum) noexcept
{
    if (minimum != 0)
        pixels = std::max(pixels, minimum);
    if (maximum != 0)
        pixels = std::min(pixels, maximum);
    return pixels;
}
} // namespace

int EffectiveRowHeight(const Grid& grid, int row)
{
    if (!IsRow(grid, row))
        return grid.DefaultRowHeight;
    const RowRecord& record = grid.RowTable[row];
    if (record.Flags & RowFlagHidden)
        return 0;
    int height = record.Height;
    if (height < 0)
        height = grid.UniformRowHeight >= 1 ? grid.UniformRowHeight : grid.DefaultRowHeight;
    return Limited(height, grid.RowHeightMinPixels, grid.RowHeightMaxPixels);
}

int EffectiveColWidth(const Grid& grid, int col)
{
    if (!IsCol(grid, col))
        return 4 * grid.DefaultRowHeight;
    const ColRecord& record = grid.ColTable[col];
    if (record.ColFlags & ColFlagHidden)
        return 0;
    int width = record.Width < 0 ? 4 * grid.DefaultRowHeight : record.Width;
    return Limited(width, grid.ColWidthMinPixels, grid.ColWidthMaxPixels);
}

RECT ClientRectOf(const Grid& grid) noexcept
{
    RECT client = {};
    if (grid.Window)
        GetClientRect(grid.Window, &client);
    else
        client = {0, 0, HimetricToPixelsX(grid.Extent.cx), HimetricToPixelsY(grid.Extent.cy)};
    return client;
}

bool IsLastVisibleCol(const Grid& grid, int col) noexcept
{
    if (!HasOption(grid, OptionExtendLastCol))
        return false;
    for (int later = col + 1; later < grid.Cols; ++later)
        if (EffectiveColWidth(grid, later) != 0)
            return false;
    return true;
}

int RowY(Grid& grid, int row)
{
    return StartOf(grid, RowAxis, row);
}

namespace
{
int ColXIn(const Grid& grid, int col, const RECT& client)
{
    int x = StartOf(grid, ColAxis, col);
    return HasOption(grid, OptionRightToLeft) ? client.right - x - EffectiveColWidth(grid, col) : x;
}
} // namespace

int ColX(Grid& grid, int col)
{
    return ColXIn(grid, col, HasOption(grid, OptionRightToLeft) ? ClientRectOf(grid) : RECT{});
}

RECT CellRectIn(Grid& grid, int row, int col, const RECT& client)
{
    RECT cell = {ColXIn(grid, col, client), RowY(grid, row), 0, 0};
    cell.right = cell.left + EffectiveColWidth(grid, col);
    cell.bottom = cell.top + EffectiveRowHeight(grid, row);
    MergedPaintRect(grid, row, col, cell, client);
    int lastCol = IsCell(grid, row, col) ? MergedRangeOf(grid, row, col).Col2 : col;
    if (IsLastVisibleCol(grid, lastCol)) {
        if (HasOption(grid, OptionRightToLeft))
            cell.left = 0;
        else
            cell.right = client.right;
    }
    return cell;
}

RECT CellRect(Grid& grid, int row, int col)
{
    return CellRectIn(grid, row, col, ClientRectOf(grid));
}

RECT CellPixelRect(Grid& grid, int row, int col)
{
    int left = ColX(grid, col), top = RowY(grid, row);
    return {left, top, left + EffectiveColWidth(grid, col), top + EffectiveRowHeight(grid, row)};
}
