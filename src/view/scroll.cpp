#include "view/scroll.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "view/metrics.h"
#include "view/scroll_bar.h"

#include <algorithm>
#include <climits>
#include <utility>

namespace
{
constexpr int NoTarget = -1;

int LineUp(const Grid& grid, const SheetAxis& axis)
{
    int first = grid.*axis.First;
    int shown = PreviousShown(grid, axis, first);
    int target = PreviousShown(grid, axis, shown - 1);
    return target >= 0 ? target : std::max(PreviousShown(grid, axis, first - 1), 0);
}

int LineDown(const Grid& grid, const SheetAxis& axis)
{
    int last = grid.*axis.Count - 2;
    int shown = NextShown(grid, axis, grid.*axis.First, last);
    return NextShown(grid, axis, shown + 1, last);
}

int PageUp(const Grid& grid, const SheetAxis& axis)
{
    int first = grid.*axis.First;
    int target = axis.Bar == SB_VERT ? PrevPageTop(grid, first) : PrevPageLeft(grid, first);
    return target == first ? LineUp(grid, axis) : target;
}

int PageDown(const Grid& grid, const SheetAxis& axis)
{
    int first = grid.*axis.First;
    if (axis.Bar == SB_VERT)
        return NextPageTop(grid, first);
    int target = NextPageLeft(grid, first);
    return target == first ? LineDown(grid, axis) : target;
}

// The entry under the thumb. At the end of the bar it is the next one, so that the bar's end always reaches
// the last first entry.
int UnderThumb(const Grid& grid, const SheetAxis& axis, const SCROLLINFO& info)
{
    int position = info.nTrackPos;
    if (IsMirrored(grid, axis))
        position = MirroredPosition(info, position);
    int index = 0;
    for (int64_t sum = 0; index < grid.*axis.Count; ++index)
        if ((sum += axis.LengthOf(grid, index)) > position)
            break;
    return int64_t{position} + info.nPage >= info.nMax ? index + 1 : index;
}

int Shown(const Grid& grid, const SheetAxis& axis, int index)
{
    return NextShown(grid, axis, std::max(index, 0), grid.*axis.Count - 1);
}

int MirroredCode(int code) noexcept
{
    constexpr int codes[] = {SB_LINERIGHT, SB_LINELEFT, SB_PAGERIGHT, SB_PAGELEFT};
    return code >= 0 && code < 4 ? codes[code] : code;
}

int TargetOf(const Grid& grid, const SheetAxis& axis, int code, int position, const SCROLLINFO& info)
{
    switch (code) {
    case SB_LINEUP:
        return LineUp(grid, axis);
    case SB_LINEDOWN:
        return LineDown(grid, axis);
    case SB_PAGEUP:
        return PageUp(grid, axis);
    case SB_PAGEDOWN:
        return PageDown(grid, axis);
    case SB_THUMBTRACK:
        if (!HasOption(grid, OptionScrollTrack))
            return NoTarget;
        [[fallthrough]];
    case SB_THUMBPOSITION:
        return Shown(grid, axis, UnderThumb(grid, axis, info));
    case SB_TOP:
        return FrozenEnd(grid, axis);
    case SB_BOTTOM:
        return grid.*axis.Count - 1;
    case ScrollDirect:
        return Shown(grid, axis, position);
    default:
        return NoTarget;
    }
}

int Clamped(const Grid& grid, const SheetAxis& axis, int target) noexcept
{
    target = std::min({target, grid.*axis.Count - 1, grid.*axis.MaxFirst});
    return std::max(target, FrozenEnd(grid, axis));
}

bool AskBeforeScroll(Grid& grid, const SheetAxis& axis, int target)
{
    bool vertical = axis.Bar == SB_VERT;
    return !event::BeforeScroll(grid, grid.TopRow, grid.LeftCol, vertical ? target : grid.TopRow,
                                vertical ? grid.LeftCol : target);
}

// Where the thumb goes after a move from `old`. A move by one entry needs no sum over the table.
int NewPosition(const Grid& grid, const SheetAxis& axis, int old, const ScrollBarState& bar)
{
    int first = grid.*axis.First;
    bool atStart = first == FrozenEnd(grid, axis), atEnd = first == grid.*axis.MaxFirst;
    if (IsMirrored(grid, axis)) {
        if (atEnd)
            return bar.Info.nMin;
        return atStart ? bar.Info.nMax : MirroredPosition(bar.Info, SumLengths(grid, axis, 0, first));
    }
    if (bar.Exists && atEnd)
        return bar.Info.nMax;
    if (bar.Exists && atStart)
        return bar.Info.nMin;
    if (first == old + 1)
        return static_cast<int>(
            std::min<int64_t>(int64_t{bar.Info.nPos} + axis.LengthOf(grid, old), INT_MAX));
    if (first == old - 1)
        return bar.Info.nPos - axis.LengthOf(grid, first);
    return SumLengths(grid, axis, 0, first);
}

RECT ScrolledArea(const Grid& grid, const SheetAxis& axis)
{
    RECT area = ClientRectOf(grid);
    if (IsMirrored(grid, axis))
        area.right -= FrozenLength(grid, axis);
    else
        area.*axis.Near += FrozenLength(grid, axis);
    return area;
}

// The bits on the screen can be moved only where no cell looks different in another place.
bool CanMoveBits(const Grid& grid) noexcept
{
    return grid.Redraw != lorvRDNone && !MergesAtAll(grid) && !grid.WallPaper;
}

void MoveSheet(Grid& grid, const SheetAxis& axis, int old)
{
    int first = grid.*axis.First;
    int distance = first > old ? -SumLengths(grid, axis, old, first) : SumLengths(grid, axis, first, old);
    if (IsMirrored(grid, axis))
        distance = -distance;
    RECT area = ScrolledArea(grid, axis);
    bool vertical = axis.Bar == SB_VERT;
    // Moving shows the scroll at once, before the paint; where little stays in view it is not worth the copy.
    LONG length = area.*axis.Far - area.*axis.Near;
    if (CanMoveBits(grid) && std::abs(distance) <= length / 2)
        ScrollWindow(grid.Window, vertical ? 0 : distance, vertical ? distance : 0, &area, &area);
    InvalidateRect(grid.Window, &area, FALSE);
}

void ScrollTo(Grid& grid, const SheetAxis& axis, int target, const ScrollBarState& bar)
{
    int old = std::exchange(grid.*axis.First, target);
    int position = NewPosition(grid, axis, old, bar);
    MoveSheet(grid, axis, old);
    if (bar.Exists)
        PutScrollPosition(grid, axis, position);
    PlaceEditorWindow(grid);
}

void Scroll(Grid& grid, const SheetAxis& axis, int code, int position, bool force)
{
    if (!grid.Window || (!force && !(grid.ScrollBars & axis.Offered)))
        return;
    KeepAlive alive(grid);
    ScrollBarState bar = ReadScrollBar(grid, axis);
    if (position < 0)
        position &= 0xFFFF;
    if (IsMirrored(grid, axis))
        code = MirroredCode(code);
    int target = TargetOf(grid, axis, code, position, bar.Info);
    if (target < 0 || grid.*axis.Count == FrozenEnd(grid, axis))
        return;
    target = Clamped(grid, axis, target);
    int first = grid.*axis.First, top = grid.TopRow, left = grid.LeftCol;
    if (target == first)
        return;
    if (!AskBeforeScroll(grid, axis, target) || !grid.Window)
        return;
    target = Clamped(grid, axis, target); // the handler may have taken entries away
    if (target != grid.*axis.First)
        ScrollTo(grid, axis, target, bar);
    if (grid.*axis.First != first)
        event::AfterScroll(grid, top, left, grid.TopRow, grid.LeftCol);
}
} // namespace

void ScrollVertical(Grid& grid, int code, int position, bool force)
{
    Scroll(grid, RowAxis, code, position, force);
}

void ScrollHorizontal(Grid& grid, int code, int position, bool force)
{
    Scroll(grid, ColAxis, code, position, force);
}

void ScrollToCell(Grid& grid, int row, int col, bool force)
{
    KeepAlive alive(grid);
    if (int top = TopForRow(grid, row); top != grid.TopRow)
        ScrollVertical(grid, ScrollDirect, top, force);
    if (int left = LeftForCol(grid, col); left != grid.LeftCol)
        ScrollHorizontal(grid, ScrollDirect, left, force);
}
