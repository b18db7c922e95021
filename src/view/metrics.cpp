#include "view/metrics.h"

#include "core/merge.h"
#include "platform/dpi.h"
#include "view/lengths.h"
#include "view/sheet_axis.h"

#include <algorithm>

int EffectiveRowHeight(const Grid& grid, int row)
{
    return IsRow(grid, row) ? RowLengths(grid).Of(grid.RowTable[row]) : grid.DefaultRowHeight;
}

int EffectiveColWidth(const Grid& grid, int col)
{
    return IsCol(grid, col) ? ColLengths(grid).Of(grid.ColTable[col]) : 4 * grid.DefaultRowHeight;
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
