#include "view/entry_move.h"

#include "core/events.h"
#include "core/row_ops.h"
#include "core/upcalls.h"
#include "view/gap_mark.h"
#include "view/metrics.h"
#include "view/resources.h"
#include "view/scroll.h"
#include "view/scroll_bar.h"

#include <algorithm>

namespace
{
constexpr DWORD ScrollPause = 250; // milliseconds between two lines
constexpr int NoScroll = -1;

int WidthOf(const RECT& area) noexcept
{
    return area.right - area.left;
}
int HeightOf(const RECT& area) noexcept
{
    return area.bottom - area.top;
}
} // namespace

EntryMove::EntryMove(Grid& grid, const SheetAxis& axis, const RECT& header, POINT start)
    : grid_(grid), axis_(axis), window_(grid.Window), header_(header), start_(start), point_(start)
{
    ClientDC screen(window_);
    copy_ = CreateCompatibleDC(screen.Get());
    bitmap_ = Bitmap(
        CreateCompatibleBitmap(screen.Get(), std::max(WidthOf(header), 1), std::max(HeightOf(header), 1)));
    if (!copy_ || !bitmap_)
        return;
    previous_ = SelectObject(copy_, bitmap_.Get());
    BitBlt(copy_, 0, 0, WidthOf(header), HeightOf(header), screen.Get(), header.left, header.top, SRCCOPY);
}

EntryMove::~EntryMove()
{
    if (previous_)
        SelectObject(copy_, previous_);
    if (copy_)
        DeleteDC(copy_);
}

void EntryMove::MoveTo(POINT point)
{
    point_ = point;
    SetCursor(GridCursorOf(GridCursor::Move));
    InvalidateRect(window_, &shown_, FALSE);
    UpdateWindow(window_);
    if (grid_.Window != window_) // painting fires events
        return;
    {
        ClientDC screen(window_);
        if (axis_.Bar == SB_VERT)
            DrawRowGapMark(grid_, screen.Get(), point.y, true);
        else
            DrawColumnGapMark(grid_, screen.Get(), point.x, true);
    }
    if (grid_.Window == window_)
        DrawCopy();
}

void EntryMove::DrawCopy()
{
    shown_ = header_;
    if (axis_.Bar == SB_VERT)
        OffsetRect(&shown_, 0, point_.y - start_.y);
    else
        OffsetRect(&shown_, point_.x - start_.x, 0);
    ClientDC screen(window_);
    if (previous_)
        BitBlt(screen.Get(), shown_.left, shown_.top, WidthOf(shown_), HeightOf(shown_), copy_, 0, 0,
               SRCCOPY);
}

int EntryMove::ScrollCode() const
{
    RECT area = ClientRectOf(grid_);
    int frozen = FrozenLength(grid_, axis_);
    if (IsMirrored(grid_, axis_))
        area.right -= frozen;
    else
        area.*axis_.Near += frozen;
    LONG at = axis_.Bar == SB_VERT ? point_.y : point_.x;
    if (at < area.*axis_.Near)
        return SB_LINEUP;
    return at > area.*axis_.Far ? SB_LINEDOWN : NoScroll;
}

void EntryMove::ScrollOn()
{
    int code = grid_.Window ? ScrollCode() : NoScroll;
    if (code == NoScroll)
        return;
    int before = grid_.*axis_.First;
    (axis_.Bar == SB_VERT ? ScrollVertical : ScrollHorizontal)(grid_, code, 0, true);
    if (grid_.Window != window_ || grid_.*axis_.First == before)
        return;
    UpdateWindow(window_);
    Sleep(ScrollPause);
}

int EntryMove::Gap() const
{
    return axis_.Bar == SB_VERT ? RowGapAt(grid_, point_.y) : ColumnGapAt(grid_, point_.x);
}

void EntryMove::Erase()
{
    DrawColumnGapMark(grid_, nullptr, 0, false);
    if (grid_.Window)
        InvalidateRect(grid_.Window, &shown_, FALSE);
}

namespace
{
LONG InsideScrollable(const Grid& grid, const SheetAxis& axis, LONG position) noexcept
{
    return std::max<LONG>(std::min<LONG>(position, grid.*axis.Count - 1), grid.*axis.Fixed);
}

void ShowAfterMove(Grid& grid)
{
    RecalculateLayout(grid);
    ScrollToCell(grid, grid.Row, grid.Col, false);
}
} // namespace

// The gap is told as it is. It moves as the position: a column that is dragged to the right ends up behind
// the one that it was dropped before.
void DropColumn(Grid& grid, int col, int gap)
{
    KeepAlive alive(grid);
    LONG position = gap;
    event::BeforeMoveColumn(grid, col, position);
    if (!IsCol(grid, col))
        return;
    position = InsideScrollable(grid, ColAxis, position);
    if (position != col && FAILED(MoveCol(grid, col, position)))
        position = col;
    ShowAfterMove(grid);
    event::AfterMoveColumn(grid, col, position);
    RepaintGrid(grid);
}

int DropRow(Grid& grid, int row, int gap)
{
    KeepAlive alive(grid);
    LONG position = gap;
    event::BeforeMoveRow(grid, row, position);
    if (!IsRow(grid, row))
        return row;
    position = InsideScrollable(grid, RowAxis, position);
    if (position != row && FAILED(MoveRow(grid, row, position)))
        position = row;
    ShowAfterMove(grid);
    LONG told = position;
    event::AfterMoveRow(grid, row, told);
    RepaintGrid(grid);
    return position;
}
