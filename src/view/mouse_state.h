#pragma once
// What the mouse is doing. There is one mouse: its state is one for all grids of the process.

#include "core/grid_object.h"

// What lies under the pointer, as the last move found it.
enum class MouseZone { None = 0, ResizeRow = 1, ResizeCol = 2, DragEdge = 3, FreezeRows = 4, FreezeCols = 5 };

// What a drag extends.
enum class SelectKind {
    Cells = 0,
    WholeRows = 1,
    WholeCols = 2,
    Settled = 5, // everything was selected at once: a drag changes nothing
};

constexpr int LineAtRest = -1000;

struct MouseState {
    MouseZone Zone = MouseZone::None;
    HWND ZoneWindow = nullptr; // the grid's window that Zone is about
    int ZoneIndex = 0;         // row or column that a press would resize
    int DragAnchor = 0;        // client pixels; the resize line does not pass the entry's start
    int DragLine = LineAtRest; // client pixels, LineAtRest: it has not moved
    SelectKind Kind = SelectKind::Cells;
    HWND TimerWindow = nullptr; // the window whose drag timer runs
    bool SuppressClick = false; // a double click came: the button's release is no Click
    bool PressTaken = false;    // a modal gesture or an OLE drag: the press has no MouseUp and no Click
    RECT GapMark = {};          // the insertion mark on the screen
};
MouseState& TheMouse() noexcept;

// The zone that the last move over this grid found.
MouseZone ZoneOf(const Grid& grid) noexcept;
void SetZone(const Grid& grid, MouseZone zone) noexcept;

inline bool HasCapture(const Grid& grid) noexcept
{
    return grid.Window && GetCapture() == grid.Window;
}
// Whether the window or one inside it has the focus.
inline bool HasFocusInside(const Grid& grid) noexcept
{
    HWND focus = GetFocus();
    return grid.Window && focus && (focus == grid.Window || IsChild(grid.Window, focus));
}
