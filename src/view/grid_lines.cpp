#include "view/grid_lines.h"

#include "core/merge.h"
#include "view/theme.h"

#include <algorithm>
#include <iterator>

namespace
{
// Corners of the pixels inside a rectangle, and the points just past them: a line ends before its last point.
enum class Point : uint8_t { LeftTop, LeftBottom, RightBottom, AboveLeft, AboveRight, PastTop, PastBottom };

struct EdgePath {
    uint8_t Count;
    Point Points[3];
};
constexpr EdgePath EdgePaths[] = {
    {2, {Point::LeftBottom, Point::AboveLeft, {}}},
    {2, {Point::LeftTop, Point::PastTop, {}}},
    {2, {Point::RightBottom, Point::AboveRight, {}}},
    {2, {Point::LeftBottom, Point::PastBottom, {}}},
    {3, {Point::LeftBottom, Point::LeftTop, Point::PastTop}},
    {3, {Point::LeftBottom, Point::RightBottom, Point::AboveRight}},
};

POINT PointOf(const RECT& rectangle, Point point) noexcept
{
    LONG right = rectangle.right - 1, bottom = rectangle.bottom - 1;
    switch (point) {
    case Point::LeftTop:
        return {rectangle.left, rectangle.top};
    case Point::LeftBottom:
        return {rectangle.left, bottom};
    case Point::RightBottom:
        return {right, bottom};
    case Point::AboveLeft:
        return {rectangle.left, rectangle.top - 1};
    case Point::AboveRight:
        return {right, rectangle.top - 1};
    case Point::PastTop:
        return {right + 1, rectangle.top};
    default:
        return {right + 1, bottom};
    }
}

enum class LinePen : uint8_t { Selected, Dark, Shadow, Hilite };

struct Stroke {
    LinePen Pen;
    EdgeShape Shape;
    bool Inner = false; // one pixel in from the right and bottom
};
struct LineStyle {
    uint8_t Count;
    Stroke Strokes[3];
};
// By GridStyleSettings. The sheet and data grid styles never come here as they are.
constexpr LineStyle LineStyles[] = {
    {0, {}},
    {1, {{LinePen::Selected, EdgeShape::BottomRight}}},
    {2, {{LinePen::Hilite, EdgeShape::LeftTop}, {LinePen::Shadow, EdgeShape::BottomRight}}},
    {2, {{LinePen::Shadow, EdgeShape::LeftTop}, {LinePen::Hilite, EdgeShape::BottomRight}}},
    {1, {{LinePen::Selected, EdgeShape::Bottom}}},
    {2, {{LinePen::Shadow, EdgeShape::Bottom}, {LinePen::Hilite, EdgeShape::Top}}},
    {2, {{LinePen::Shadow, EdgeShape::Top}, {LinePen::Hilite, EdgeShape::Bottom}}},
    {2, {{LinePen::Shadow, EdgeShape::Top}, {LinePen::Hilite, EdgeShape::Bottom}}},
    {1, {{LinePen::Selected, EdgeShape::Right}}},
    {2, {{LinePen::Shadow, EdgeShape::Right}, {LinePen::Hilite, EdgeShape::Left}}},
    {2, {{LinePen::Shadow, EdgeShape::Left}, {LinePen::Hilite, EdgeShape::Right}}},
    {2, {{LinePen::Shadow, EdgeShape::Left}, {LinePen::Hilite, EdgeShape::Right}}},
    {3,
     {{LinePen::Dark, EdgeShape::BottomRight},
      {LinePen::Hilite, EdgeShape::LeftTop, true},
      {LinePen::Shadow, EdgeShape::BottomRight, true}}},
};

void SelectLinePen(const Grid& grid, HDC dc, LinePen pen) noexcept
{
    const HPEN pens[] = {nullptr, grid.Drawing.DarkPen, grid.Drawing.ShadowPen, grid.Drawing.HilitePen};
    if (HPEN chosen = pens[static_cast<int>(pen)])
        SelectObject(dc, chosen);
}

// Keeps a wide pen from bleeding over the neighbours of the cell.
void ClipToCell(HDC dc, const RECT& cell) noexcept
{
    ExcludeClipRect(dc, -MaxPixels, -MaxPixels, cell.left, MaxPixels);
    ExcludeClipRect(dc, -MaxPixels, -MaxPixels, MaxPixels, cell.top);
    ExcludeClipRect(dc, cell.right, -MaxPixels, MaxPixels, MaxPixels);
    ExcludeClipRect(dc, -MaxPixels, cell.bottom, MaxPixels, MaxPixels);
}

void DrawFlatLine(const Grid& grid, HDC dc, const RECT& cell, EdgeShape shape) noexcept
{
    if (grid.GridLineWidth <= 1)
        return DrawEdgeLines(dc, cell, shape);
    int saved = SaveDC(dc);
    ClipToCell(dc, cell);
    DrawEdgeLines(dc, cell, shape);
    RestoreDC(dc, saved);
}

// The skipping styles leave every other row or column without lines.
bool IsSkipped(const Grid& grid, int style, int row, int col) noexcept
{
    return (style == lorvGridSkipHorz && ((row - grid.FixedRows) & 1)) ||
           (style == lorvGridSkipVert && ((col - grid.FixedCols) & 1));
}

// The raised styles close the first scrolled column or row with a corner.
bool OpensWithCorner(const Grid& grid, int style, int row, int col) noexcept
{
    return ((style == lorvGridRaisedHorz || style == lorvGridSkipHorz) && col == grid.LeftCol) ||
           ((style == lorvGridRaisedVert || style == lorvGridSkipVert) && row == grid.TopRow);
}

void DrawStyledLines(const Grid& grid, HDC dc, int style, int row, int col, const RECT& cell) noexcept
{
    if (style == lorvGridExcel) {
        RECT edge = cell;
        DrawEdge(dc, &edge, EDGE_RAISED, BF_RECT);
        return;
    }
    if (style < 0 || style >= static_cast<int>(std::size(LineStyles)) || IsSkipped(grid, style, row, col))
        return;
    const LineStyle& lines = LineStyles[style];
    for (int i = 0; i < lines.Count; ++i) {
        const Stroke& stroke = lines.Strokes[i];
        RECT edge = {cell.left, cell.top, cell.right - stroke.Inner, cell.bottom - stroke.Inner};
        SelectLinePen(grid, dc, stroke.Pen);
        if (stroke.Pen == LinePen::Selected)
            DrawFlatLine(grid, dc, edge, stroke.Shape);
        else
            DrawEdgeLines(dc, edge,
                          i == 0 && OpensWithCorner(grid, style, row, col) ? EdgeShape::LeftTop
                                                                           : stroke.Shape);
    }
}

bool IsBetween(int index, int one, int other) noexcept
{
    return index >= std::min(one, other) && index <= std::max(one, other);
}

bool IsHeaderOfSelection(const Grid& grid, int row, int col) noexcept
{
    return (row < grid.FixedRows && IsBetween(col, grid.Col, grid.ColSel)) ||
           (col < grid.FixedCols && IsBetween(row, grid.Row, grid.RowSel));
}

// In the outline column the tree runs through the fixed cells, so only their sides are drawn.
int VerticalOnly(int style) noexcept
{
    switch (style) {
    case lorvGridFlat:
    case lorvGridFlatHorz:
        return lorvGridFlatVert;
    case lorvGridInset:
    case lorvGridInsetHorz:
    case lorvGridSkipHorz:
    case lorvGridSkipVert:
        return lorvGridInsetVert;
    case lorvGridRaised:
    case lorvGridRaisedHorz:
        return lorvGridRaisedVert;
    default:
        return style;
    }
}

int StyleOf(const Grid& grid, int row, int col, bool fixed) noexcept
{
    int style = fixed ? grid.GridLinesFixed : grid.GridLines;
    if (fixed && grid.OutlineBar != 0 && col == grid.OutlineCol && row >= grid.FixedRows)
        style = VerticalOnly(style);
    if (fixed && style == lorvGridExcel &&
        !((grid.PaintMode & PaintHasFocus) && IsHeaderOfSelection(grid, row, col)))
        style = lorvGridInset;
    return style == lorvGridDataGrid ? static_cast<int>(lorvGridInset) : style;
}

// The boundary shows even at zero, whenever the user may freeze.
void DrawFrozenLines(const Grid& grid, HDC dc, int row, int col, const RECT& cell) noexcept
{
    int freezing = grid.AllowUserFreezing;
    bool cols = grid.FrozenCols != 0 || freezing == lorvFreezeColumns || freezing == lorvFreezeBoth;
    bool rows = grid.FrozenRows != 0 || freezing == lorvFreezeRows || freezing == lorvFreezeBoth;
    if (!cols && !rows)
        return;
    CellRange range = MergedRangeOf(grid, row, col);
    SelectObject(dc, grid.Drawing.SheetPen);
    if (cols && range.Col2 == FrozenEndCol(grid) - 1)
        DrawEdgeLines(dc, cell, HasOption(grid, OptionRightToLeft) ? EdgeShape::Left : EdgeShape::Right);
    if (rows && range.Row2 == FrozenEndRow(grid) - 1)
        DrawEdgeLines(dc, cell, EdgeShape::Bottom);
}

void DrawSheetBorder(const Grid& grid, HDC dc, const RECT& sheet) noexcept
{
    SelectObject(dc, grid.Drawing.SheetPen);
    DrawEdgeLines(dc, sheet, EdgeShape::BottomRight);
    if (HasOption(grid, OptionRightToLeft))
        DrawEdgeLines(dc, sheet, EdgeShape::Left);
}
} // namespace

void DrawEdgeLines(HDC dc, const RECT& rectangle, EdgeShape shape) noexcept
{
    const EdgePath& path = EdgePaths[static_cast<int>(shape)];
    POINT start = PointOf(rectangle, path.Points[0]);
    MoveToEx(dc, start.x, start.y, nullptr);
    for (int i = 1; i < path.Count; ++i) {
        POINT next = PointOf(rectangle, path.Points[i]);
        LineTo(dc, next.x, next.y);
    }
}

void PaintCellLines(Grid& grid, HDC dc, int row, int col, const RECT& rectangle)
{
    if (row < 0 && col < 0) {
        DrawSheetBorder(grid, dc, rectangle);
    } else {
        bool fixed = IsFixedCell(grid, row, col);
        // A header that is drawn as a button brings its own edges.
        if (!fixed || (grid.Appearance == lorvXPThemes && !IsThemed(grid))) {
            if (fixed)
                SelectObject(dc, grid.Drawing.GridPenFixed);
            DrawStyledLines(grid, dc, StyleOf(grid, row, col, fixed), row, col, rectangle);
        }
        DrawFrozenLines(grid, dc, row, col, rectangle);
    }
    SelectObject(dc, grid.Drawing.GridPen);
}
