#pragma once

#include "core/grid_object.h"

// Position of the row's level in the outline's list of levels, -1 when it is not there.
inline int RowLevelIndex(const Grid& grid, int row) noexcept
{
    for (int index = 0; index < grid.OutlineLevelCount; ++index)
        if (grid.OutlineLevels[index] == grid.RowTable[row].OutlineLevel)
            return index;
    return -1;
}

inline bool IsSubtotalRow(const Grid& grid, int row) noexcept
{
    return (grid.RowTable[row].Flags & RowFlagSubtotal) != 0;
}

constexpr int OutlineStep = 13; // pixels at 96 dpi that each level of the tree takes
