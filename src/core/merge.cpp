#include "core/merge.h"

void RebuildMergeLinks(Grid&) {}

CellRange MergedRangeOf(const Grid&, int row, int col) noexcept
{
    return {row, col, row, col};
}

bool MergedPaintRect(Grid&, int, int, RECT&, const RECT&)
{
    return false;
}
