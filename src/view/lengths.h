#pragma once
// What a row or a column takes of the sheet, in pixels: its own length or the default, between the limits of
// the grid, and nothing while it is hidden. What is the same for all of them is read once, since sums go over
// every row.

#include "core/grid_object.h"

#include <algorithm>
#include <climits>

class LengthLimits
{
public:
    LengthLimits(int minimum, int maximum) noexcept
        : minimum_(minimum != 0 ? minimum : INT_MIN), maximum_(maximum != 0 ? maximum : INT_MAX)
    {
    }
    // The maximum wins over a minimum above it.
    int Apply(int pixels) const noexcept { return std::min(std::max(pixels, minimum_), maximum_); }

private:
    int minimum_, maximum_;
};

class RowLengths
{
public:
    explicit RowLengths(const Grid& grid) noexcept
        : limits_(grid.RowHeightMinPixels, grid.RowHeightMaxPixels),
          default_(grid.UniformRowHeight >= 1 ? grid.UniformRowHeight : grid.DefaultRowHeight)
    {
    }
    int Of(const RowRecord& row) const noexcept
    {
        int height = limits_.Apply(row.Height < 0 ? default_ : row.Height);
        return row.Flags & RowFlagHidden ? 0 : height;
    }

private:
    LengthLimits limits_;
    int default_;
};

class ColLengths
{
public:
    explicit ColLengths(const Grid& grid) noexcept
        : limits_(grid.ColWidthMinPixels, grid.ColWidthMaxPixels), default_(4 * grid.DefaultRowHeight)
    {
    }
    int Of(const ColRecord& col) const noexcept
    {
        int width = limits_.Apply(col.Width < 0 ? default_ : col.Width);
        return col.ColFlags & ColFlagHidden ? 0 : width;
    }

private:
    LengthLimits limits_;
    int default_;
};
