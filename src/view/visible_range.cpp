#include "core/upcalls.h"
#include "view/metrics.h"
#include "view/scroll.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
bool IsVisible(const Grid& grid, const SheetAxis& axis, int index, int room)
{
    int frozenEnd = FrozenEnd(grid, axis);
    int64_t sum = 0;
    for (int each = 0; each < std::min(index, frozenEnd); ++each)
        if ((sum += axis.LengthOf(grid, each)) > room)
            return false;
    if (index < frozenEnd)
        return true;
    if (grid.*axis.First > index)
        return false;
    for (int each = grid.*axis.First; each < index; ++each)
        if ((sum += axis.LengthOf(grid, each)) > room)
            return false;
    return true;
}

// In lengths from the edge that the axis starts at, so that a mirrored axis needs nothing of its own.
int FirstToShow(const Grid& grid, const SheetAxis& axis, int index)
{
    int first = grid.*axis.First, count = grid.*axis.Count;
    if (index < 0)
        return first;
    if (index < first && index >= FrozenEnd(grid, axis))
        return index;
    int edge = ClientRectOf(grid).*axis.Far;
    int64_t start = ExactStart(grid, axis, index);
    int64_t end = start + axis.LengthOf(grid, index);
    int64_t frozenEdge = ExactLength(grid, axis, 0, FrozenEnd(grid, axis));
    if (end <= edge || start <= frozenEdge + 1)
        return first;
    int each = first;
    for (; each < count; ++each) {
        int length = axis.LengthOf(grid, each);
        end -= length;
        if (end < edge || end - length <= frozenEdge)
            break;
    }
    return std::min(each < count - 1 ? each + 1 : each, index); // one longer than the page shows its start
}

// What a page from an entry is made of: where it ends towards the start, and its room.
struct Page {
    int Limit;
    int64_t Room;
};
Page PageFrom(const Grid& grid, const SheetAxis& axis, int index)
{
    int limit = index < FrozenEnd(grid, axis) ? grid.*axis.Fixed : FrozenEnd(grid, axis);
    return {limit, ClientRectOf(grid).*axis.Far - ExactLength(grid, axis, 0, limit)};
}

int PreviousPage(const Grid& grid, const SheetAxis& axis, int index, bool leavesIndex)
{
    Page page = PageFrom(grid, axis, index);
    int each = index;
    for (; each > page.Limit; --each) {
        page.Room -= axis.LengthOf(grid, each);
        if (page.Room < 1 && (each < index || !leavesIndex))
            break;
    }
    return each;
}

int NextPage(const Grid& grid, const SheetAxis& axis, int index)
{
    Page page = PageFrom(grid, axis, index);
    int each = index;
    for (; each < grid.*axis.Count - 1; ++each) {
        page.Room -= axis.LengthOf(grid, each);
        if (page.Room < 1)
            break;
    }
    return each;
}

int LastInView(const Grid& grid, const SheetAxis& axis)
{
    int edge = ClientRectOf(grid).*axis.Far;
    int index = grid.*axis.First;
    int64_t start = ExactStart(grid, axis, index);
    for (; index < grid.*axis.Count - 1; ++index) {
        start += axis.LengthOf(grid, index);
        if (start >= edge)
            break;
    }
    while (index > 1 && axis.LengthOf(grid, index) == 0)
        --index;
    return index;
}
} // namespace

bool IsCellVisible(const Grid& grid, int row, int col)
{
    RECT client = ClientRectOf(grid);
    return (row < 0 || IsVisible(grid, RowAxis, row, client.bottom)) &&
           (col < 0 || IsVisible(grid, ColAxis, col, client.right));
}

int TopForRow(const Grid& grid, int row)
{
    return FirstToShow(grid, RowAxis, row);
}
int LeftForCol(const Grid& grid, int col)
{
    return FirstToShow(grid, ColAxis, col);
}

int PrevPageTop(const Grid& grid, int row)
{
    return PreviousPage(grid, RowAxis, row, true);
}
int PrevPageLeft(const Grid& grid, int col)
{
    return PreviousPage(grid, ColAxis, col, false);
}

int NextPageTop(const Grid& grid, int row)
{
    int target = NextPage(grid, RowAxis, row);
    return target == row && row < grid.Rows - 1 ? row + 1 : target;
}
int NextPageLeft(const Grid& grid, int col)
{
    return NextPage(grid, ColAxis, col);
}

int BottomRowOf(const Grid& grid)
{
    return LastInView(grid, RowAxis);
}
int RightColOf(const Grid& grid)
{
    return LastInView(grid, ColAxis);
}
