#pragma once
// Rows and columns as the two axes of the sheet. Whatever differs only in the fields it reads is written
// once, for an axis.

#include "core/grid_object.h"

struct SheetAxis {
    int32_t Grid::*Count;
    int32_t Grid::*Fixed;
    int32_t Grid::*Frozen;
    int32_t Grid::*First;    // TopRow or LeftCol
    int32_t Grid::*MaxFirst; // MaxTopRow or MaxLeftCol
    int (*LengthOf)(const Grid& grid, int index);
    int64_t (*Sum)(const Grid& grid, int first, int end); // of entries that are there
    LONG RECT::*Near; // the client edge that the axis starts at when nothing is mirrored
    LONG RECT::*Far;
    int Bar;       // of the window's scroll bars
    int Offered;   // bit of ScrollBars
    int BarMetric; // system metric that says how much of the other axis the bar takes
};

// Each bar is measured by the metric of the other one: sizes of existing forms rest on it.
extern const SheetAxis RowAxis;
extern const SheetAxis ColAxis;

inline int FrozenEnd(const Grid& grid, const SheetAxis& axis) noexcept
{
    return grid.*axis.Fixed + grid.*axis.Frozen;
}
// Pixels of the entries from `first` up to `end`; what is not in the table counts nothing.
int64_t ExactLength(const Grid& grid, const SheetAxis& axis, int first, int end);
// The same, capped at INT_MAX.
int SumLengths(const Grid& grid, const SheetAxis& axis, int first, int end);
inline int FrozenLength(const Grid& grid, const SheetAxis& axis)
{
    return SumLengths(grid, axis, 0, FrozenEnd(grid, axis));
}
// Top or left of an entry in client pixels when nothing is mirrored. One that is scrolled away is counted
// back from the first scrolled entry without its own length; both axes share this.
int64_t ExactStart(const Grid& grid, const SheetAxis& axis, int index);
// The same, kept within 2^30 pixels.
int StartOf(const Grid& grid, const SheetAxis& axis, int index);

// The first entry with a length at or after `index`, or else the last entry up to `last`.
int NextShown(const Grid& grid, const SheetAxis& axis, int index, int last);
// The first entry with a length at or before `index`, -1 without any.
int PreviousShown(const Grid& grid, const SheetAxis& axis, int index);
