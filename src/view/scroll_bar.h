#pragma once
// The scroll bars of the grid's window. Their units are pixels: from the frozen length to the total length, a
// page being what lies between frozen part and client edge.

#include "view/sheet_axis.h"

struct ScrollBarState {
    SCROLLINFO Info;
    bool Exists;
};
ScrollBarState ReadScrollBar(const Grid& grid, const SheetAxis& axis) noexcept;

// Whether the axis runs from the right.
inline bool IsMirrored(const Grid& grid, const SheetAxis& axis) noexcept
{
    return axis.Bar == SB_HORZ && HasOption(grid, OptionRightToLeft);
}
// A position as the bar of a mirrored axis counts it, and back.
inline int MirroredPosition(const SCROLLINFO& info, int position) noexcept
{
    return static_cast<int>(int64_t{info.nMin} - position - info.nPage + info.nMax);
}

// Shows where the first scrolled row or column stands in the whole.
void WriteScrollPosition(const Grid& grid, const SheetAxis& axis);
// Puts a known position.
void PutScrollPosition(const Grid& grid, const SheetAxis& axis, int position);
