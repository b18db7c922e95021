#pragma once
// What holds for every grid at any moment, whatever was done to it and whatever failed.

#include "core/grid_object.h"

#include <gtest/gtest.h>

inline void ExpectCellsInOrder(const Grid& grid, int row)
{
    for (int col = 0; col < grid.Cols; ++col) {
        const CellRecord& cell = grid.RowTable[row].Cells[col];
        EXPECT_TRUE(!cell.Text || *cell.Text) << "an empty text is none, cell " << row << "," << col;
        EXPECT_LE(cell.State >> CheckStateShift, lorvDisabledUnchecked) << row << "," << col;
        if (cell.Format) {
            EXPECT_GE(cell.Format->FloodPercent, -100);
            EXPECT_LE(cell.Format->FloodPercent, 100);
        }
    }
}

inline void ExpectInOrder(const Grid& grid)
{
    EXPECT_GE(grid.Rows, 0);
    EXPECT_GE(grid.Cols, 0);
    EXPECT_EQ(grid.RowCapacity % RowBlock, 0);
    EXPECT_GE(grid.RowCapacity, grid.Rows);
    EXPECT_EQ(grid.RowTable != nullptr, grid.RowCapacity > 0);
    EXPECT_TRUE(grid.Cols == 0 || grid.ColTable);
    EXPECT_GE(grid.FixedRows, 0);
    EXPECT_GE(grid.FrozenRows, 0);
    EXPECT_LE(FrozenEndRow(grid), grid.Rows);
    EXPECT_GE(grid.FixedCols, 0);
    EXPECT_GE(grid.FrozenCols, 0);
    EXPECT_LE(FrozenEndCol(grid), grid.Cols);
    EXPECT_GE(grid.TopRow, FrozenEndRow(grid));
    EXPECT_LE(grid.TopRow, grid.Rows);
    EXPECT_GE(grid.LeftCol, FrozenEndCol(grid));
    EXPECT_LE(grid.LeftCol, grid.Cols);
    EXPECT_TRUE(grid.OutlineCol == 0 || IsCol(grid, grid.OutlineCol));
    EXPECT_EQ(grid.InEvent, 0u);
    for (int row = 0; row < grid.RowCapacity; ++row)
        if (grid.RowTable[row].Cells) {
            ASSERT_LT(row, grid.Rows) << "a record that is not in use holds nothing";
            ExpectCellsInOrder(grid, row);
        }
}
