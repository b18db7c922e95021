#include "view/grid_lines.h"

#include "support/pixels.h"

#include <ostream>

namespace
{
// What stands at the middle of each edge of a cell.
enum EdgeInk { Nothing, GridInk, Hilite, Shadow, Dark };

COLORREF InkOf(EdgeInk ink, COLORREF nothing, COLORREF line)
{
    switch (ink) {
    case GridInk:
        return line;
    case Hilite:
        return GetSysColor(COLOR_BTNHIGHLIGHT);
    case Shadow:
        return GetSysColor(COLOR_BTNSHADOW);
    case Dark:
        return GetSysColor(COLOR_3DDKSHADOW);
    default:
        return nothing;
    }
}

struct ShapeCase {
    EdgeShape Shape;
    bool Left, Top, Right, Bottom;
};
void PrintTo(const ShapeCase& c, std::ostream* out)
{
    *out << "shape " << static_cast<int>(c.Shape);
}

class EdgeLines : public testing::TestWithParam<ShapeCase>
{
};
TEST_P(EdgeLines, CoverExactlyTheirEdges)
{
    const ShapeCase& shape = GetParam();
    Canvas canvas(40, 30);
    constexpr COLORREF ink = RGB(1, 2, 3);
    HPEN pen = CreatePen(PS_SOLID, 1, ink);
    HGDIOBJ previous = SelectObject(canvas.Get(), pen);
    RECT area = {10, 8, 25, 20};
    DrawEdgeLines(canvas.Get(), area, shape.Shape);
    SelectObject(canvas.Get(), previous);
    DeleteObject(pen);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) {
            bool inside = x >= 10 && x < 25 && y >= 8 && y < 20;
            bool drawn = inside && ((shape.Left && x == 10) || (shape.Top && y == 8) ||
                                    (shape.Right && x == 24) || (shape.Bottom && y == 19));
            EXPECT_EQ(canvas.At(x, y), drawn ? ink : Untouched) << x << ", " << y;
        }
}
INSTANTIATE_TEST_SUITE_P(Shapes, EdgeLines,
                         testing::Values(ShapeCase{EdgeShape::Left, true, false, false, false},
                                         ShapeCase{EdgeShape::Top, false, true, false, false},
                                         ShapeCase{EdgeShape::Right, false, false, true, false},
                                         ShapeCase{EdgeShape::Bottom, false, false, false, true},
                                         ShapeCase{EdgeShape::LeftTop, true, true, false, false},
                                         ShapeCase{EdgeShape::BottomRight, false, false, true, true}));

struct StyleCase {
    int Style;
    int Row, Col;
    EdgeInk Left, Top, Right, Bottom;
};
void PrintTo(const StyleCase& c, std::ostream* out)
{
    *out << "style " << c.Style << " at " << c.Row << ", " << c.Col;
}

// Cell 1, 1 is the first scrolled one; rows and columns at an odd distance from it are skipped by the
// skipping styles.
const StyleCase styleCases[] = {
    {lorvGridNone, 2, 2, Nothing, Nothing, Nothing, Nothing},
    {lorvGridFlat, 2, 2, Nothing, Nothing, GridInk, GridInk},
    {lorvGridInset, 2, 2, Hilite, Hilite, Shadow, Shadow},
    {lorvGridRaised, 2, 2, Shadow, Shadow, Hilite, Hilite},
    {lorvGridFlatHorz, 2, 2, Nothing, Nothing, Nothing, GridInk},
    {lorvGridInsetHorz, 2, 2, Nothing, Hilite, Nothing, Shadow},
    {lorvGridRaisedHorz, 2, 2, Nothing, Shadow, Nothing, Hilite},
    {lorvGridRaisedHorz, 2, 1, Shadow, Shadow, Nothing, Hilite},
    {lorvGridSkipHorz, 2, 2, Nothing, Nothing, Nothing, Nothing},
    {lorvGridSkipHorz, 3, 2, Nothing, Shadow, Nothing, Hilite},
    {lorvGridSkipHorz, 3, 1, Shadow, Shadow, Nothing, Hilite},
    {lorvGridFlatVert, 2, 2, Nothing, Nothing, GridInk, Nothing},
    {lorvGridInsetVert, 2, 2, Hilite, Nothing, Shadow, Nothing},
    {lorvGridRaisedVert, 2, 2, Shadow, Nothing, Hilite, Nothing},
    {lorvGridRaisedVert, 1, 2, Shadow, Shadow, Hilite, Nothing},
    {lorvGridSkipVert, 2, 2, Nothing, Nothing, Nothing, Nothing},
    {lorvGridSkipVert, 2, 3, Shadow, Nothing, Hilite, Nothing},
    {lorvGridExplorer, 2, 2, Hilite, Hilite, Dark, Dark},
    {lorvGridDataGrid, 2, 2, Hilite, Hilite, Shadow, Shadow},
};

class GridLines : public PaintTest
{
protected:
    void ExpectEdges(int row, int col, const StyleCase& expected, COLORREF line, COLORREF nothing)
    {
        RECT cell = CellAt(row, col);
        int x = cell.left + ColWidth / 2, y = cell.top + RowHeight / 2;
        EXPECT_EQ(canvas.At(cell.left, y), InkOf(expected.Left, nothing, line)) << "left";
        EXPECT_EQ(canvas.At(x, cell.top), InkOf(expected.Top, nothing, line)) << "top";
        EXPECT_EQ(canvas.At(cell.right - 1, y), InkOf(expected.Right, nothing, line)) << "right";
        EXPECT_EQ(canvas.At(x, cell.bottom - 1), InkOf(expected.Bottom, nothing, line)) << "bottom";
    }
    // The right edge of a raised sheet edge, which no other style has outermost but the explorer's.
    COLORREF RightEdge(int row, int col) const
    {
        return canvas.At((col + 1) * ColWidth - 1, row * RowHeight + RowHeight / 2);
    }
};
class GridLineStyles : public GridLines, public testing::WithParamInterface<StyleCase>
{
};
TEST_P(GridLineStyles, OfScrollableCellsHaveTheirEdges)
{
    const StyleCase& c = GetParam();
    grid.GridLines = static_cast<int16_t>(c.Style);
    Paint();
    ExpectEdges(c.Row, c.Col, c, Line, Back);
}
INSTANTIATE_TEST_SUITE_P(Styles, GridLineStyles, testing::ValuesIn(styleCases));

TEST_F(GridLines, OfFixedCellsUseTheirOwnSettingAndColour)
{
    grid.GridLines = lorvGridNone;
    grid.GridLinesFixed = lorvGridFlat;
    Paint();
    ExpectEdges(0, 2, {0, 0, 0, Nothing, Nothing, GridInk, GridInk}, LineFixed, Fixed);
    ExpectEdges(2, 0, {0, 0, 0, Nothing, Nothing, GridInk, GridInk}, LineFixed, Fixed);
    ExpectEdges(2, 2, {0, 0, 0, Nothing, Nothing, Nothing, Nothing}, LineFixed, Back);
}

TEST_F(GridLines, ExplorerStyleHasItsShadowInsideTheDarkLine)
{
    grid.GridLines = lorvGridExplorer;
    Paint();
    EXPECT_EQ(canvas.At(148, 50), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(canvas.At(125, 58), GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(GridLines, SheetStyleIsARaisedEdge)
{
    grid.GridLines = lorvGridExcel;
    Paint();
    EXPECT_EQ(RightEdge(2, 2), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(canvas.At(148, 50), GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(GridLines, SheetStyleRaisesOnlyTheHeadersOfTheFocusedSelection)
{
    grid.GridLinesFixed = lorvGridExcel;
    Select(2, 2, 3, 2);
    grid.PaintMode |= PaintHasFocus;
    Paint();
    EXPECT_EQ(RightEdge(0, 2), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(RightEdge(3, 0), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(RightEdge(0, 1), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(RightEdge(4, 0), GetSysColor(COLOR_BTNSHADOW));
    grid.PaintMode &= ~uint32_t{PaintHasFocus};
    Paint();
    EXPECT_EQ(RightEdge(0, 2), GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(GridLines, WidePensStayInsideTheCell)
{
    grid.GridLineWidth = 5;
    Paint(); // makes the pens
    canvas.Fill(Untouched);
    SelectObject(canvas.Get(), grid.Drawing.GridPen);
    RECT cell = CellAt(2, 2);
    PaintCellLines(grid, canvas.Get(), 2, 2, cell);
    EXPECT_EQ(canvas.At(cell.right - 3, 50), Line);
    int drawn = canvas.Count(canvas.Area(), Line);
    EXPECT_EQ(drawn, canvas.Count(cell, Line));
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched) + drawn, 300 * 200);
    SelectObject(canvas.Get(), GetStockObject(BLACK_PEN));
}

struct VerticalCase {
    int Style;
    EdgeInk Left, Top, Right, Bottom;
};
TEST_F(GridLines, InTheOutlineColumnFixedCellsHaveOnlySides)
{
    const VerticalCase cases[] = {
        {lorvGridFlat, Nothing, Nothing, GridInk, Nothing},
        {lorvGridFlatHorz, Nothing, Nothing, GridInk, Nothing},
        {lorvGridInset, Hilite, Nothing, Shadow, Nothing},
        {lorvGridInsetHorz, Hilite, Nothing, Shadow, Nothing},
        {lorvGridSkipHorz, Hilite, Nothing, Shadow, Nothing},
        {lorvGridSkipVert, Hilite, Nothing, Shadow, Nothing},
        {lorvGridRaised, Shadow, Nothing, Hilite, Nothing},
        {lorvGridRaisedHorz, Shadow, Nothing, Hilite, Nothing},
    };
    grid.OutlineBar = lorvOutlineBarSimple;
    grid.OutlineCol = 0;
    for (const VerticalCase& c : cases) {
        SCOPED_TRACE(c.Style);
        grid.GridLinesFixed = static_cast<int16_t>(c.Style);
        Paint();
        ExpectEdges(3, 0, {0, 0, 0, c.Left, c.Top, c.Right, c.Bottom}, LineFixed, Fixed);
    }
    grid.GridLinesFixed = lorvGridFlat;
    Paint();
    EXPECT_EQ(canvas.At(25, 19), LineFixed) << "the header keeps its bottom line";
}

TEST_F(GridLines, FrozenBoundaryIsDrawnWithTheSheetPen)
{
    grid.FrozenCols = grid.FrozenRows = 1;
    grid.TopRow = grid.LeftCol = 2;
    Paint();
    EXPECT_EQ(RightEdge(3, 1), Border);
    EXPECT_EQ(canvas.At(175, 39), Border);
    EXPECT_EQ(RightEdge(3, 0), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(RightEdge(3, 2), Line);
}

TEST_F(GridLines, FrozenBoundaryShowsAtZeroWhileTheUserMayFreeze)
{
    struct {
        int Freezing;
        bool Cols, Rows;
    } const cases[] = {{lorvFreezeNone, false, false},
                       {lorvFreezeColumns, true, false},
                       {lorvFreezeRows, false, true},
                       {lorvFreezeBoth, true, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Freezing);
        grid.AllowUserFreezing = c.Freezing;
        Paint();
        EXPECT_EQ(RightEdge(3, 0) == Border, c.Cols);
        EXPECT_EQ(canvas.At(75, 19) == Border, c.Rows);
    }
}

TEST_F(GridLines, FrozenBoundaryIsDrawnOnButtonsToo)
{
    grid.AllowUserFreezing = lorvFreezeBoth;
    grid.Appearance = lorvFlat;
    Paint();
    EXPECT_EQ(RightEdge(3, 0), Border);
    EXPECT_EQ(canvas.At(75, 19), Border);
}

TEST_F(GridLines, FrozenBoundaryIsAtTheLeftFromRightToLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    grid.AllowUserFreezing = lorvFreezeColumns;
    Paint();
    EXPECT_EQ(canvas.At(250, 70), Border);
    EXPECT_NE(canvas.At(299, 70), Border);
}

TEST_F(GridLines, SheetBorderClosesASheetSmallerThanTheWindow)
{
    Paint();
    EXPECT_EQ(canvas.At(200, 60), Border);
    EXPECT_EQ(canvas.At(100, 120), Border);
    EXPECT_EQ(canvas.At(200, 120), Border);
    EXPECT_EQ(canvas.At(201, 60), Bkg);
    EXPECT_EQ(canvas.At(100, 121), Bkg);
}

TEST_F(GridLines, SheetBorderClosesTheLeftSideFromRightToLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    Paint();
    EXPECT_EQ(canvas.At(99, 60), Border);
    EXPECT_EQ(canvas.At(98, 60), Bkg);
    EXPECT_EQ(canvas.At(200, 120), Border);
}

TEST_F(GridLines, SheetBorderGoesWithTheGridLines)
{
    grid.GridLines = grid.GridLinesFixed = lorvGridNone;
    Paint();
    EXPECT_EQ(canvas.Count(canvas.Area(), Border), 0);
    EXPECT_EQ(canvas.At(200, 60), Bkg);
    grid.GridLinesFixed = lorvGridFlat;
    Paint();
    EXPECT_EQ(canvas.At(200, 60), Border);
}

TEST_F(GridLines, SheetBorderIsDrawnWhenTheSheetFillsOnlyOneDirection)
{
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Height = 50;
    Paint();
    EXPECT_EQ(canvas.At(200, 60), Border);
    EXPECT_EQ(canvas.At(250, 60), Bkg);
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].Width = 100;
    Paint();
    EXPECT_EQ(canvas.Count(canvas.Area(), Border), 0);
    EXPECT_EQ(canvas.Count(canvas.Area(), Bkg), 0);
}
} // namespace
