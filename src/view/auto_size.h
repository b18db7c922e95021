#pragma once
// Sizing columns or rows by what is in them.

#include "core/grid_object.h"

constexpr int AutoSizeByProperty = -1; // for `mode`: what AutoSizeMode says

// Sizes the columns from `first` to `last` by their texts, or, with mode lorvAutoSizeRowHeight, every row by
// its cells in those columns. `extra` pixels are added; with `equal` all get the size of the largest. Nothing
// happens when `first` or `last` is no column.
void AutoSizeRange(Grid& grid, int first, int last, bool equal, int extra, int mode);
