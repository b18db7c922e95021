#include "view/hit_test.h"

#include "core/merge.h"
#include "core/upcalls.h"
#include "view/metrics.h"
#include "view/sheet_axis.h"

namespace
{
constexpr int Missed = -1;

// A point on the line between two entries belongs to the first of them.
int EntryAt(const Grid& grid, const SheetAxis& axis, int at)
{
    int64_t sum = 0;
    int frozenEnd = FrozenEnd(grid, axis);
    for (int index = 0; index < frozenEnd; ++index)
        if (at <= (sum += axis.LengthOf(grid, index)))
            return index;
    for (int index = grid.*axis.First; index < grid.*axis.Count; ++index)
        if (at <= (sum += axis.LengthOf(grid, index)))
            return index;
    return Missed;
}

// The entry at a point beside the scrolled part, as if there were nothing in front of it.
int ScrolledAwayAt(const Grid& grid, const SheetAxis& axis, int at)
{
    int index = grid.*axis.First;
    int64_t start = FrozenLength(grid, axis);
    while (index > 0 && at <= start)
        start -= axis.LengthOf(grid, --index);
    return index;
}

int HitOnAxis(const Grid& grid, const SheetAxis& axis, int at, bool strict)
{
    bool beside = !strict && at < FrozenLength(grid, axis);
    return beside ? ScrolledAwayAt(grid, axis, at) : EntryAt(grid, axis, at);
}

CellPos FirstShownOf(const Grid& grid, const CellRange& range)
{
    return {NextShown(grid, RowAxis, range.Row1, range.Row2),
            NextShown(grid, ColAxis, range.Col1, range.Col2)};
}
} // namespace

CellHit HitTest(const Grid& grid, POINT point, bool strict, bool resolveMerge)
{
    if (HasOption(grid, OptionRightToLeft))
        point.x = ClientRectOf(grid).right - point.x;
    int row = HitOnAxis(grid, RowAxis, point.y, strict);
    int col = HitOnAxis(grid, ColAxis, point.x, strict);
    if (col == Missed && HasOption(grid, OptionExtendLastCol))
        col = grid.Cols - 1;
    CellHit hit = {{row, col}, IsCell(grid, row, col)};
    if (!strict && row == Missed)
        hit.Cell.Row = grid.Rows - 1;
    if (!strict && col == Missed)
        hit.Cell.Col = grid.Cols - 1;
    if (resolveMerge && hit.OnCell)
        hit.Cell = FirstShownOf(grid, MergedRangeOf(grid, row, col));
    return hit;
}
