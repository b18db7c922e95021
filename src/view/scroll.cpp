#include "view/scroll.h"

#include "core/upcalls.h"
#include "view/metrics.h"

#include <algorithm>

namespace
{
// One axis: `end` is where the part that does not scroll ends, `first` where the scrolled part begins.
template<class Length> bool IsVisible(int index, int end, int first, long room, Length lengthOf)
{
    long sum = 0;
    for (int i = 0; i < std::min(index, end); ++i)
        if ((sum += lengthOf(i)) > room)
            return false;
    if (index < end)
        return true;
    if (first > index)
        return false;
    for (int i = first; i < index; ++i)
        if ((sum += lengthOf(i)) > room)
            return false;
    return true;
}
} // namespace

bool IsCellVisible(const Grid& grid, int row, int col)
{
    RECT client = ClientRectOf(grid);
    auto height = [&](int r) { return EffectiveRowHeight(grid, r); };
    auto width = [&](int c) { return EffectiveColWidth(grid, c); };
    return (row < 0 || IsVisible(row, FrozenEndRow(grid), grid.TopRow, client.bottom, height)) &&
           (col < 0 || IsVisible(col, FrozenEndCol(grid), grid.LeftCol, client.right, width));
}

void RecalculateLayout(Grid&) {}
