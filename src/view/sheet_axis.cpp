#include "view/sheet_axis.h"

#include "core/upcalls.h"
#include "view/lengths.h"

#include <algorithm>
#include <climits>

namespace
{
template<class Lengths, class Record>
int64_t Sum(const Lengths& lengths, const Record* table, int first, int end) noexcept
{
    int64_t sum = 0;
    for (int index = first; index < end; ++index)
        sum += lengths.Of(table[index]);
    return sum;
}

int64_t SumRows(const Grid& grid, int first, int end)
{
    return Sum(RowLengths(grid), grid.RowTable, first, end);
}
int64_t SumCols(const Grid& grid, int first, int end)
{
    return Sum(ColLengths(grid), grid.ColTable, first, end);
}
} // namespace

const SheetAxis RowAxis = {
    &Grid::Rows,           &Grid::FixedRows, &Grid::FrozenRows, &Grid::TopRow, &Grid::MaxTopRow,
    EffectiveRowHeight,    SumRows,          &RECT::top,        &RECT::bottom, SB_VERT,
    lorvScrollBarVertical, SM_CXHSCROLL};
const SheetAxis ColAxis = {&Grid::Cols,
                           &Grid::FixedCols,
                           &Grid::FrozenCols,
                           &Grid::LeftCol,
                           &Grid::MaxLeftCol,
                           EffectiveColWidth,
                           SumCols,
                           &RECT::left,
                           &RECT::right,
                           SB_HORZ,
                           lorvScrollBarHorizontal,
                           SM_CYVSCROLL};

int SumLengths(const Grid& grid, const SheetAxis& axis, int first, int end)
{
    int64_t sum = axis.Sum(grid, std::max(first, 0), std::min(end, grid.*axis.Count));
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
