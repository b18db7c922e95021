#pragma once

#include <utility>

struct CellPos {
    int Row;
    int Col;
    friend bool operator==(const CellPos&, const CellPos&) = default;
};

// A rectangle of cells with ordered corners, both inclusive.
struct CellRange {
    int Row1;
    int Col1;
    int Row2;
    int Col2;

    CellRange(int row1, int col1, int row2, int col2) noexcept
        : Row1(row1), Col1(col1), Row2(row2), Col2(col2)
    {
        if (Row1 > Row2)
            std::swap(Row1, Row2);
        if (Col1 > Col2)
            std::swap(Col1, Col2);
    }

    bool Contains(int row, int col) const noexcept
    {
        return row >= Row1 && row <= Row2 && col >= Col1 && col <= Col2;
    }
    bool IsSingleCell() const noexcept { return Row1 == Row2 && Col1 == Col2; }
    // Whether every cell of the range lies in a table of `rows` by `cols`.
    bool Within(int rows, int cols) const noexcept
    {
        return Row1 >= 0 && Col1 >= 0 && Row2 < rows && Col2 < cols;
    }

    friend bool operator==(const CellRange&, const CellRange&) = default;
};
