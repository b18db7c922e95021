#include "core/merge.h"

void RebuildMergeLinks(Grid&) {}

CellRange MergedRangeOf(Grid&, int row, int col)
{
    return {row, col, row, col};
}
