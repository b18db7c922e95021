#pragma once
// What a sort compares: the texts of two cells, under one of the SortSettings.

#include "core/grid_object.h"

// Result of a comparison that cannot be made; it ends the sort.
constexpr int CompareFailed = 2;

// The text that a column sorts on: the cell's own, or what its list shows for it. Never null. It may lie in
// the scratch buffer, or with `second` in the second one, and stays good until the next text request.
const wchar_t* SortText(Grid& grid, int row, int col, bool second = false) noexcept;

// Two texts of a column under `mode`: below 0, 0, above 0, or CompareFailed for a mode that is none.
int CompareTexts(const ColRecord& column, int mode, const wchar_t* x, const wchar_t* y) noexcept;

// Whether `mode` compares every two texts of the column as CompareStringW does with `flags`, so that sort
// keys may stand for the texts.
bool ComparesAsStrings(const ColRecord& column, int mode, DWORD& flags) noexcept;

// 1 for the ascending member of a pair of SortSettings, -1 for the descending one.
inline int DirectionOf(int mode) noexcept
{
    return mode % 2 != 0 ? 1 : -1;
}
