#include "view/resize_gesture.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/gdi.h"
#include "view/gesture.h"
#include "view/metrics.h"
#include "view/mouse_state.h"
#include "view/resources.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int LineWidth = 2; // pixels

// An inverted line follows the pointer, no further back than where the row or column begins.
class ResizeGesture final : public Gesture
{
public:
    ResizeGesture(Grid& grid, bool rows, POINT start)
        : grid_(grid), rows_(rows), mirrored_(!rows && HasOption(grid, OptionRightToLeft)), start_(start),
          dc_(grid.Window)
    {
    }

    void MoveTo(POINT point) override
    {
        MouseState& mouse = TheMouse();
        SetCursor(GridCursorOf(rows_ ? GridCursor::ResizeRow : GridCursor::ResizeCol));
        int at = rows_ ? point.y : point.x;
        // The system tells of moves that are none, and a click must not resize.
        if (mouse.DragLine == LineAtRest && at == (rows_ ? start_.y : start_.x))
            return;
        at = mirrored_ ? std::min(at, mouse.DragAnchor) : std::max(at, mouse.DragAnchor);
        if (mouse.DragLine != LineAtRest)
            InvertLine(mouse.DragLine);
        mouse.DragLine = at;
        InvertLine(at);
    }

    int Size() const noexcept
    {
        const MouseState& mouse = TheMouse();
        int size = mouse.DragLine - mouse.DragAnchor;
        return std::clamp(mirrored_ ? -size : size, 1, MaxPixels);
    }

private:
    void InvertLine(int at) const
    {
        RECT line = ClientRectOf(grid_);
        (rows_ ? line.top : line.left) = at;
        (rows_ ? line.bottom : line.right) = at + LineWidth;
        InvertRect(dc_.Get(), &line);
    }

    Grid& grid_;
    bool rows_, mirrored_;
    POINT start_;
    ClientDC dc_;
};

// The rows or columns that get the new size: those that are selected as a whole, if the dragged one is among
// them.
std::pair<int, int> ResizedTogether(int index, bool wholeSelected, int anchor, int corner) noexcept
{
    int first = std::min(anchor, corner), last = std::max(anchor, corner);
    bool together = wholeSelected && index >= first && index <= last;
    return together ? std::pair(first, last) : std::pair(index, index);
}

void SizeRows(Grid& grid, int row, int size)
{
    if (grid.AllowUserResizing == lorvResizeBothUniform) {
        grid.UniformRowHeight = size;
        for (int each = 0; each < grid.Rows; ++each)
            grid.RowTable[each].Height = UnsetLength;
        return;
    }
    bool whole = HasOption(grid, OptionAllowBigSelection) && grid.Col == grid.FixedCols &&
                 grid.ColSel == grid.Cols - 1;
    auto [first, last] = ResizedTogether(row, whole, grid.Row, grid.RowSel);
    for (int each = std::max(first, 0); each <= last && each < grid.Rows; ++each)
        grid.RowTable[each].Height = size;
}

void SizeCols(Grid& grid, int col, int size)
{
    bool whole = HasOption(grid, OptionAllowBigSelection) && grid.Row == grid.FixedRows &&
                 grid.RowSel == grid.Rows - 1;
    auto [first, last] = ResizedTogether(col, whole, grid.Col, grid.ColSel);
    for (int each = std::max(first, 0); each <= last && each < grid.Cols; ++each)
        grid.ColTable[each].Width = size;
}

void ApplyResize(Grid& grid, bool rows, int index, int size)
{
    if (!(rows ? IsRow(grid, index) : IsCol(grid, index)))
        return;
    if (rows) {
        SizeRows(grid, index, size);
        event::AfterUserResize(grid, index, -1);
    } else {
        SizeCols(grid, index, size);
        event::AfterUserResize(grid, -1, index);
        if (SpillsText(grid))
            MarkMergeStale(grid);
    }
    RecalculateLayout(grid);
    RepaintGrid(grid);
    SetZone(grid, MouseZone::None);
}

GestureEnd DragLine(Grid& grid, bool rows, POINT point, int& size)
{
    ResizeGesture gesture(grid, rows, point);
    GestureEnd end = RunGesture(grid, gesture);
    size = gesture.Size();
    return end;
}
} // namespace

bool RunResizeGesture(Grid& grid, POINT point)
{
    MouseZone zone = ZoneOf(grid);
    if (zone != MouseZone::ResizeRow && zone != MouseZone::ResizeCol)
        return false;
    KeepAlive alive(grid);
    MouseState& mouse = TheMouse();
    bool rows = zone == MouseZone::ResizeRow;
    int index = mouse.ZoneIndex, size = 0;
    mouse.DragLine = LineAtRest;
    GestureEnd end = DragLine(grid, rows, point, size);
    if (end == GestureEnd::Released && mouse.DragLine != LineAtRest) {
        ApplyResize(grid, rows, index, size);
        return true;
    }
    // A release without a move keeps the zone, which a double click looks at.
    if (end != GestureEnd::Released)
        SetZone(grid, MouseZone::None);
    RepaintGrid(grid);
    return true;
}
