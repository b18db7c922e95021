#pragma once
// Grids whose rows tell, after a sort, where they came from.

#include "core/cell_store.h"
#include "core/row_col.h"
#include "core/sort.h"

#include <string>
#include <vector>

using Texts = std::vector<std::wstring>;

// A grid with one fixed row whose scrollable rows carry the texts in column 1, and as their height the row
// that they start in.
inline void Fill(Grid& grid, const Texts& texts, int col = 1)
{
    ResizeRows(grid, static_cast<int>(texts.size()) + 1);
    for (int row = 1; row < grid.Rows; ++row) {
        SetCellText(grid, row, col, texts[row - 1].c_str());
        grid.RowTable[row].Height = row;
    }
    grid.OptionWord &= ~OptionMergeStale;
}

inline Texts ColumnOf(Grid& grid, int col = 1)
{
    Texts texts;
    for (int row = 1; row < grid.Rows; ++row) {
        const wchar_t* text = GetCellText(grid, row, col);
        texts.push_back(text ? text : L"");
    }
    return texts;
}

// Where each row came from.
inline std::vector<int> Origins(const Grid& grid)
{
    std::vector<int> origins;
    for (int row = 1; row < grid.Rows; ++row)
        origins.push_back(grid.RowTable[row].Height);
    return origins;
}

inline HRESULT SortAll(Grid& grid, int order, int col1 = 1, int col2 = 1)
{
    return SortRange(grid, order, 1, grid.Rows - 1, col1, col2);
}
