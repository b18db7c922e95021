#pragma once
// The passes that a rebuild of the merge links is made of.

#include "core/grid_object.h"

enum class MergePass { FixedCells, ScrollableCells };

inline bool InPass(const Grid& grid, MergePass pass, int row, int col) noexcept
{
    return IsFixedCell(grid, row, col) == (pass == MergePass::FixedCells);
}

// Links a cell to the one at its right; a row without cells has no links.
inline void LinkAcross(Grid& grid, int row, int col) noexcept
{
    if (CellRecord* cells = grid.RowTable[row].Cells) {
        cells[col].State |= LinkRight;
        cells[col + 1].State |= LinkLeft;
    }
}

// Equal neighbours join, as MergeRow and MergeCol allow; vertical links go first.
void BuildEqualLinks(Grid& grid, int mode, MergePass pass);
// Texts overflow into the empty cells at their right, as far as they need.
void BuildSpillLinks(Grid& grid, MergePass pass);
// In subtotal rows each text takes in the empty cells at its right.
void BuildOutlineLinks(Grid& grid, MergePass pass);
