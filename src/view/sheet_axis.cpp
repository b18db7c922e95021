#include "view/sheet_axis.h"

#include "core/upcalls.h"

#include <algorithm>
#include <climits>

const SheetAxis RowAxis = {&Grid::Rows,      &Grid::FixedRows,      &Grid::FrozenRows, &Grid::TopRow,
                           &Grid::MaxTopRow, EffectiveRowHeight,    &RECT::top,        &RECT::bottom,
                           SB_VERT,          lorvScrollBarVertical, SM_CXHSCROLL};
const SheetAxis ColAxis = {&Grid::Cols,       &Grid::FixedCols,        &Grid::FrozenCols, &Grid::LeftCol,
                           &Grid::MaxLeftCol, EffectiveColWidth,       &RECT::left,       &RECT::right,
                           SB_HORZ,           lorvScrollBarHorizontal, SM_CYVSCROLL};

int SumLengths(const Grid& grid, const SheetAxis& axis, int first, int end)
{
    int64_t sum = 0;
    end = std::min(end, grid.*axis.Count);
    for (int index = std::max(first, 0); index < end; ++index)
        sum += axis.LengthOf(grid, index);
    return static_cast<int>(std::min<int64_t>(sum, INT_MAX));
}

int StartOf(const Grid& grid, const SheetAxis& axis, int index)
{
    int frozenEnd = FrozenEnd(grid, axis);
    int start = SumLengths(grid, axis, 0, std::min(index, frozenEnd));
    if (index < frozenEnd)
        return start;
    int first = grid.*axis.First;
    if (index >= first)
        return start + SumLengths(grid, axis, first, index);
    for (int each = first; each > index; --each)
        start -= axis.LengthOf(grid, each);
    return start;
}

int NextShown(const Grid& grid, const SheetAxis& axis, int index, int last)
{
    while (index < last && axis.LengthOf(grid, index) == 0)
        ++index;
    return index;
}

int PreviousShown(const Grid& grid, const SheetAxis& axis, int index)
{
    while (index >= 0 && axis.LengthOf(grid, index) == 0)
        --index;
    return index;
}
