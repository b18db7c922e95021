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

// Pixels from behind an entry to the end of the first scrolled one. A first entry that was set before there
// was a window may lie far behind the table, where all lengths are alike.
int64_t LengthBack(const Grid& grid, const SheetAxis& axis, int index)
{
    int first = grid.*axis.First, last = grid.*axis.Count - 1;
    int64_t behindTable = std::max<int64_t>(int64_t{first} - std::max(index, last), 0);
    return ExactLength(grid, axis, index + 1, std::min(first, last) + 1) +
           behindTable * axis.LengthOf(grid, first);
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

int64_t ExactLength(const Grid& grid, const SheetAxis& axis, int first, int end)
{
    return axis.Sum(grid, std::max(first, 0), std::min(end, grid.*axis.Count));
}

int SumLengths(const Grid& grid, const SheetAxis& axis, int first, int end)
{
    return static_cast<int>(std::min<int64_t>(ExactLength(grid, axis, first, end), INT_MAX));
}

int64_t ExactStart(const Grid& grid, const SheetAxis& axis, int index)
{
    int frozenEnd = FrozenEnd(grid, axis), first = grid.*axis.First;
    int64_t start = ExactLength(grid, axis, 0, std::min(index, frozenEnd));
    if (index < frozenEnd)
        return start;
    return index >= first ? start + ExactLength(grid, axis, first, index)
                          : start - LengthBack(grid, axis, index);
}

int StartOf(const Grid& grid, const SheetAxis& axis, int index)
{
    constexpr int64_t farthest = 1 << 30; // so that a length can still be added
    return static_cast<int>(std::clamp(ExactStart(grid, axis, index), -farthest, farthest));
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
