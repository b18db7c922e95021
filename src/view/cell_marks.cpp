#include "view/cell_marks.h"

#include "core/upcalls.h"
#include "platform/gdi.h"
#include "view/cell_text.h"
#include "view/drawing_objects.h"
#include "view/picture.h"
#include "view/resources.h"
#include "view/theme.h"

#include <algorithm>

namespace
{
constexpr int DoubleBorder = 100; // a border of this width or more is two thin lines
constexpr int DoubleBorderStep = 2;
constexpr int SortMarkRoom = 16; // pixels

enum class Edge { Left, Top, Right, Bottom };
constexpr int EdgeCount = 4;

struct Border {
    int Width;
    OLE_COLOR Color;
};
// By Edge.
struct CellBorders {
    Border Edges[EdgeCount];
};

void TakeOver(Border& edge, int width, OLE_COLOR colour) noexcept
{
    if (width != 0)
        edge = {width, colour};
}

// The right and bottom of a merged range are those of its last cell, where it has any.
CellBorders BordersOf(const Grid& grid, const PaintedCell& cell, const CellFormat& own) noexcept
{
    CellBorders borders = {{{own.BorderLeft, own.BorderColor},
                            {own.BorderTop, own.BorderColor},
                            {own.BorderRight, own.BorderColor},
                            {own.BorderBottom, own.BorderColor}}};
    if (!MergesAtAll(grid))
        return borders;
    if (const CellFormat* last = FormatForPaint(grid, cell.Range.Row2, cell.Range.Col2)) {
        TakeOver(borders.Edges[static_cast<int>(Edge::Right)], last->BorderRight, last->BorderColor);
        TakeOver(borders.Edges[static_cast<int>(Edge::Bottom)], last->BorderBottom, last->BorderColor);
    }
    return borders;
}

RECT StripOf(const RECT& area, Edge edge, int width) noexcept
{
    switch (edge) {
    case Edge::Left:
        return {area.left, area.top, area.left + width, area.bottom};
    case Edge::Top:
        return {area.left, area.top, area.right, area.top + width};
    case Edge::Right:
        return {area.right - width, area.top, area.right, area.bottom};
    default:
        return {area.left, area.bottom - width, area.right, area.bottom};
    }
}

void MoveInward(RECT& strip, Edge edge) noexcept
{
    int step = edge == Edge::Left || edge == Edge::Top ? DoubleBorderStep : -DoubleBorderStep;
    bool across = edge == Edge::Left || edge == Edge::Right;
    OffsetRect(&strip, across ? step : 0, across ? 0 : step);
}

void FillWithin(HDC dc, const RECT& strip, const RECT& area) noexcept
{
    RECT shared;
    if (IntersectRect(&shared, &strip, &area))
        ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &shared, nullptr, 0, nullptr);
}

void FillEdge(HDC dc, const RECT& area, Edge edge, int width) noexcept
{
    bool doubled = width >= DoubleBorder;
    RECT strip = StripOf(area, edge, doubled ? 1 : width);
    FillWithin(dc, strip, area);
    if (!doubled)
        return;
    MoveInward(strip, edge);
    FillWithin(dc, strip, area);
}

// Characters before the first line end.
int FirstLineLength(const wchar_t* text, int length) noexcept
{
    return static_cast<int>(
        std::find_if(text, text + length, [](wchar_t c) { return !c || c == L'\r' || c == L'\n'; }) - text);
}

int WidthOf(HDC dc, const wchar_t* text, int length) noexcept
{
    SIZE size = {};
    GetTextExtentPoint32W(dc, text, length, &size);
    return size.cx;
}

// The letter r breaks words here as a blank does: the highlight of wrapped texts has always stood so.
bool IsBreak(wchar_t c) noexcept
{
    return c == L' ' || c == L'\n' || c == L'r';
}

// Width of the text's first line, or of the part of it that word wrap leaves there.
int ShownWidth(const Grid& grid, HDC dc, const wchar_t* text, int length, int room) noexcept
{
    int full = WidthOf(dc, text, length);
    if (!HasOption(grid, OptionWordWrap) || full <= room)
        return full;
    for (int end = length; end > 0; --end)
        if (IsBreak(text[end - 1]) && WidthOf(dc, text, end - 1) <= room)
            return WidthOf(dc, text, end - 1);
    return full;
}

// Whether the system's own font is one for a script that runs from right to left.
bool SystemReadsRightToLeft() noexcept
{
    static const bool rightToLeft = [] {
        ScreenDC screen;
        TEXTMETRICW metrics = {};
        GetTextMetricsW(screen.Get(), &metrics);
        return metrics.tmCharSet == HEBREW_CHARSET || metrics.tmCharSet == ARABIC_CHARSET;
    }();
    return rightToLeft;
}

bool ShowsSortMark(const Grid& grid, const PaintedCell& cell) noexcept
{
    return cell.Row == 0 && grid.FixedRows != 0 && cell.Col == grid.SortIndicatorCol &&
           (grid.ExplorerBar & 4) != 0;
}

int SortMarkX(const PaintedCell& cell, const DrawnText& drawn, int indent) noexcept
{
    if (IsLeftAligned(drawn.Alignment))
        return drawn.Area.left + drawn.Width + indent;
    int x = cell.Area.right - indent - SortMarkRoom;
    return IsRightAligned(drawn.Alignment) ? x - drawn.Width : x;
}

void DrawTriangle(HDC dc, int x, int y, bool ascending) noexcept
{
    const POINT up[] = {{x, y + 2}, {x + 5, y - 4}, {x + 10, y + 2}};
    const POINT down[] = {{x, y - 3}, {x + 5, y + 2}, {x + 10, y - 3}};
    SelectedObject brush(dc, GetSysColorBrush(COLOR_3DDKSHADOW));
    SelectedObject pen(dc, GetStockObject(NULL_PEN));
    Polygon(dc, ascending ? up : down, 3);
}

// The mark of the outline column's cell, which goes around its text.
RECT FocusArea(const Grid& grid, const PaintedCell& cell, const DrawnText& drawn, int indent) noexcept
{
    RECT area = cell.Area;
    int span = indent + TextMarginX + drawn.Width;
    if (!ShowsOutline(grid) || cell.Col != grid.OutlineCol || area.right - area.left <= span)
        return area;
    if (IsLeftAligned(drawn.Alignment)) {
        area.left = drawn.Area.left;
        area.right = area.left + span;
    } else if (IsRightAligned(drawn.Alignment)) {
        area.right = drawn.Area.right;
        area.left = area.right - span;
    }
    return area;
}

void DrawRaisedMark(HDC dc, RECT area, UINT edge) noexcept
{
    ++area.right, ++area.bottom;
    DrawEdge(dc, &area, edge, BF_RECT);
}
} // namespace

void DrawCellBorders(Grid& grid, HDC dc, const PaintedCell& cell)
{
    const CellFormat* format = FormatForPaint(grid, cell.Row, cell.Col);
    if (!format)
        return;
    CellBorders borders = BordersOf(grid, cell, *format);
    COLORREF previous = GetBkColor(dc);
    for (int edge = 0; edge < EdgeCount; ++edge)
        if (const Border& border = borders.Edges[edge]; border.Width != 0) {
            SetBkColor(dc, TranslatedColor(grid, border.Color));
            FillEdge(dc, cell.Area, static_cast<Edge>(edge), border.Width);
        }
    SetBkColor(dc, previous);
}

void InvertSearchedText(const Grid& grid, HDC dc, const wchar_t* text, const RECT& area, int alignment)
{
    int length = static_cast<int>(wcsnlen(text, MaxDrawnText));
    int prefix = WidthOf(dc, text, FirstLineLength(text, std::min<int>(grid.SearchLength, length)));
    int room = area.right - area.left;
    int full = ShownWidth(grid, dc, text, FirstLineLength(text, length), room);
    RECT span = area;
    if (IsCenterAligned(alignment))
        span.left += (room - full) / 2;
    else if (IsRightAligned(alignment))
        span.left = area.right - full;
    if (HasOption(grid, OptionRightToLeft) && SystemReadsRightToLeft())
        span.left += full - prefix;
    span.right = span.left + prefix;
    RECT shared;
    if (IntersectRect(&shared, &span, &area))
        InvertRect(dc, &shared);
}

void DrawSortMark(Grid& grid, HDC dc, const PaintedCell& cell, const DrawnText& drawn)
{
    if (!ShowsSortMark(grid, cell))
        return;
    const ColRecord& column = grid.ColTable[cell.Col];
    int sort = column.ColSort;
    if (sort < 1 || sort > 8 || cell.Area.right - drawn.Width - cell.Area.left < SortMarkRoom)
        return;
    bool ascending = sort % 2 != 0;
    int x = SortMarkX(cell, drawn, column.Indent + TextMarginX);
    int centre = (cell.Area.top + cell.Area.bottom) / 2;
    if (IPictureDisp* picture = ascending ? grid.SortAscendingPicture : grid.SortDescendingPicture)
        DrawPicture(grid, dc, picture, lorvPicAlignLeftCenter,
                    {x, cell.Area.top, cell.Area.right, cell.Area.bottom});
    else if (IsThemed(grid))
        DrawTriangle(dc, x, centre, ascending);
    else
        DrawMarkIcon(dc, x, centre - 5, SortMarkIcon(ascending));
}

void DrawFocusMark(const Grid& grid, HDC dc, const PaintedCell& cell, const DrawnText& drawn, int indent)
{
    RECT area = FocusArea(grid, cell, drawn, indent);
    switch (grid.FocusRect) {
    case lorvFocusLight:
        DrawFocusRect(dc, &area);
        break;
    case lorvFocusHeavy:
        DrawFocusRect(dc, &area);
        InflateRect(&area, -1, -1);
        DrawFocusRect(dc, &area);
        break;
    case lorvFocusSolid:
        FrameRect(dc, &area, grid.Drawing.Selection);
        InflateRect(&area, -1, -1);
        FrameRect(dc, &area, grid.Drawing.Selection);
        break;
    case lorvFocusRaised:
        DrawRaisedMark(dc, area, EDGE_RAISED);
        break;
    case lorvFocusInset:
        DrawRaisedMark(dc, area, EDGE_SUNKEN);
        break;
    default:
        break;
    }
}
