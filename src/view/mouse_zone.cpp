#include "core/events.h"
#include "core/merge.h"
#include "view/drag_selection.h"
#include "view/hit_test.h"
#include "view/metrics.h"
#include "view/mouse.h"
#include "view/mouse_state.h"
#include "view/resources.h"
#include "view/scroll_bar.h"
#include "view/selection.h"
#include "view/sheet_axis.h"

#include <algorithm>
#include <cstdlib>

namespace
{
constexpr int ZoneWidth = 5; // pixels from a line that belong to it
constexpr int DragEdge = 4;  // pixels along the inside of the selection's edge

// Lengths from the edge that the axis starts at, so that a mirrored axis needs nothing of its own.
int AlongAxis(const Grid& grid, const SheetAxis& axis, POINT point)
{
    if (axis.Bar == SB_VERT)
        return point.y;
    return IsMirrored(grid, axis) ? ClientRectOf(grid).right - point.x : point.x;
}

int EndOf(const Grid& grid, const SheetAxis& axis, int index)
{
    return StartOf(grid, axis, index) + axis.LengthOf(grid, index);
}

bool IsNear(int at, int line) noexcept
{
    return std::abs(at - line) < ZoneWidth;
}

void EnterZone(const Grid& grid, MouseZone zone, GridCursor cursor)
{
    SetCursor(GridCursorOf(cursor));
    SetZone(grid, zone);
}

// The edge of the selection, from which it can be dragged away.
bool IsOnDragEdge(Grid& grid, POINT point, CellPos cell)
{
    if (grid.OLEDragMode != lorvOLEDragAutomatic || IsFixedCell(grid, cell.Row, cell.Col))
        return false;
    bool list = grid.SelectionMode == lorvSelectionListBox;
    if (list && !IsRowSelected(grid, cell.Row))
        return false;
    RECT edge = list ? CellRect(grid, cell.Row, cell.Col) : SelectionOuterRect(grid);
    ++edge.right, ++edge.bottom;
    RECT inside = edge;
    InflateRect(&inside, -DragEdge, -DragEdge);
    return PtInRect(&edge, point) && !PtInRect(&inside, point);
}

bool MayResize(const Grid& grid, const SheetAxis& axis, CellPos cell) noexcept
{
    if (axis.Bar == SB_VERT)
        return cell.Col < grid.FixedCols && grid.AllowUserResizing >= lorvResizeRows;
    return cell.Row < grid.FixedRows && grid.AllowUserResizing != lorvResizeNone &&
           grid.AllowUserResizing != lorvResizeRows;
}

// The row or column whose far edge the zone of this cell is.
int EdgeEntry(const Grid& grid, const SheetAxis& axis, CellPos cell)
{
    if (!MergesAtAll(grid))
        return axis.Bar == SB_VERT ? cell.Row : cell.Col;
    CellRange range = MergedRangeOf(grid, cell.Row, cell.Col);
    return axis.Bar == SB_VERT ? range.Row2 : range.Col2;
}

// One that is longer than the page can be resized by the client edge.
int ResizeLine(const Grid& grid, const SheetAxis& axis, int index)
{
    int end = EndOf(grid, axis, index);
    bool cut = index == grid.*axis.First || index < FrozenEnd(grid, axis);
    return cut ? std::min<int>(end, ClientRectOf(grid).*axis.Far) : end;
}

void EnterResizeZone(Grid& grid, const SheetAxis& axis, int index)
{
    bool rows = axis.Bar == SB_VERT;
    EnterZone(grid, rows ? MouseZone::ResizeRow : MouseZone::ResizeCol,
              rows ? GridCursor::ResizeRow : GridCursor::ResizeCol);
    MouseState& mouse = TheMouse();
    int start = StartOf(grid, axis, index);
    mouse.ZoneIndex = index;
    mouse.DragLine = LineAtRest;
    mouse.DragAnchor = IsMirrored(grid, axis) ? ClientRectOf(grid).right - start : start;
}

// True when the search for a zone is over, with one or without. A hidden entry's line is its neighbour's.
bool FindResizeZone(Grid& grid, const SheetAxis& axis, POINT point, CellPos cell)
{
    if (!MayResize(grid, axis, cell))
        return false;
    int index = EdgeEntry(grid, axis, cell);
    if (!IsNear(AlongAxis(grid, axis, point), ResizeLine(grid, axis, index)))
        return false;
    index = PreviousShown(grid, axis, index);
    if (index < 0)
        return false;
    bool rows = axis.Bar == SB_VERT;
    if (!rows && IsLastVisibleCol(grid, index))
        return true;
    bool refused = rows ? event::BeforeUserResize(grid, index, -1) : event::BeforeUserResize(grid, -1, index);
    if (!refused && grid.Window && index < grid.*axis.Count)
        EnterResizeZone(grid, axis, index);
    return true;
}

// Unlike the zones of resizing, this one lies on both sides of its line.
bool IsOnFreezeLine(const Grid& grid, const SheetAxis& axis, POINT point)
{
    int end = FrozenEnd(grid, axis);
    int line = end < 1 ? StartOf(grid, axis, 0) : EndOf(grid, axis, end - 1);
    return IsNear(AlongAxis(grid, axis, point), line);
}

bool FindFreezeZone(Grid& grid, POINT point, CellPos cell)
{
    bool cols = (grid.AllowUserFreezing & lorvFreezeColumns) && cell.Row >= grid.FixedRows;
    bool rows = (grid.AllowUserFreezing & lorvFreezeRows) && cell.Col >= grid.FixedCols;
    if (cols && IsOnFreezeLine(grid, ColAxis, point))
        EnterZone(grid, MouseZone::FreezeCols, GridCursor::FreezeCols);
    else if (rows && IsOnFreezeLine(grid, RowAxis, point))
        EnterZone(grid, MouseZone::FreezeRows, GridCursor::FreezeRows);
    else
        return false;
    return true;
}

void FindZone(Grid& grid, POINT point, CellPos cell)
{
    if (IsOnDragEdge(grid, point, cell))
        return EnterZone(grid, MouseZone::DragEdge, GridCursor::Move);
    if (FindResizeZone(grid, ColAxis, point, cell) || FindResizeZone(grid, RowAxis, point, cell))
        return;
    if (!FindFreezeZone(grid, point, cell))
        SendMessageW(grid.Window, WM_SETCURSOR, reinterpret_cast<WPARAM>(grid.Window),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}
} // namespace

void UpdateMouseZone(Grid& grid, POINT point)
{
    KeepAlive alive(grid);
    NoticeMissedRelease(grid);
    if (!HasCapture(grid)) {
        SetZone(grid, MouseZone::None);
        if (CellHit hit = HitTest(grid, point, true, true); hit.OnCell)
            FindZone(grid, point, hit.Cell);
    }
    DragSelectionTo(grid, point);
}
