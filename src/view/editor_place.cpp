#include "view/editor_place.h"

#include "core/upcalls.h"
#include "platform/window_text.h"
#include "view/metrics.h"
#include "view/scroll.h"

#include <iterator>

namespace
{
constexpr RECT OutOfSight = {-50, -50, -10, -10};

// What the grid lines take off each side of the cell, so that an editor does not cover them.
struct LineRoom {
    int Left, Top, Right, Bottom;
};
constexpr LineRoom flat = {0, 0, 1, 1};
constexpr LineRoom roomOfLines[] = {
    {0, 0, 0, 0}, // lorvGridNone
    flat,         // lorvGridFlat
    {1, 1, 2, 2}, // lorvGridInset
    {1, 1, 2, 2}, // lorvGridRaised
    {0, 0, 0, 1}, // lorvGridFlatHorz
    {0, 1, 0, 2}, // lorvGridInsetHorz
    {0, 1, 0, 2}, // lorvGridRaisedHorz
    {0, 1, 0, 1}, // lorvGridSkipHorz
    {0, 0, 1, 0}, // lorvGridFlatVert
    {1, 0, 2, 0}, // lorvGridInsetVert
    {1, 0, 2, 0}, // lorvGridRaisedVert
    {1, 0, 1, 0}, // lorvGridSkipVert
};

RECT EditorRect(Grid& grid)
{
    if (!IsCellVisible(grid, grid.EditRow, grid.EditCol))
        return OutOfSight;
    RECT area = CellRect(grid, grid.EditRow, grid.EditCol);
    if (grid.ActiveEditor == EditorText)
        return InsideGridLines(grid, area);
    InflateRect(&area, 1, 1);
    return area;
}
} // namespace

RECT InsideGridLines(const Grid& grid, const RECT& cell) noexcept
{
    bool listed = grid.GridLines >= 0 && grid.GridLines < static_cast<int>(std::size(roomOfLines));
    const LineRoom& room = listed ? roomOfLines[grid.GridLines] : flat;
    return {cell.left + room.Left, cell.top + room.Top, cell.right - room.Right, cell.bottom - room.Bottom};
}

// The room that tree, button and a low row make is not made again: after a scroll the text editor covers the
// whole cell.
void PlaceEditorWindow(Grid& grid)
{
    HWND editor = OpenEditorWindow(grid);
    if (!IsShown(editor))
        return;
    RECT area = EditorRect(grid);
    if (EqualRect(&area, &grid.EditRect))
        return;
    grid.EditRect = area;
    if (grid.ActiveEditor == EditorCombo)
        return PlaceComboWindow(grid);
    MoveWindow(editor, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
}
