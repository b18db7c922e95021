#include "view/metrics.h"

#include "core/format_string.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "support/grid_window.h"
#include "view/sheet_axis.h"

namespace
{
class Metrics : public GridInWindow
{
protected:
    // Merging is on, and the cell has the links; nothing makes them anew.
    void MergeCell(int row, int col, int links)
    {
        grid.MergeCells = lorvMergeFree;
        grid.RowTable[row].MergeRow = 1;
        grid.ColTable[col].MergeCol = 1;
        SetCellText(grid, row, col, L"x");
        grid.RowTable[row].Cells[col].State |= static_cast<uint8_t>(links);
        SetOption(grid, OptionMergeStale, false);
    }
};

// Heights and widths

TEST_F(Metrics, HeightOfARow)
{
    struct {
        int Stored, Uniform, Minimum, Maximum;
        bool Hidden;
        int Height;
    } const cases[] = {
        {-1, 0, 0, 0, false, 17},   {-1, 25, 0, 0, false, 25}, {-1, -3, 0, 0, false, 17},
        {30, 25, 0, 0, false, 30},  {30, 0, 40, 0, false, 40}, {30, 0, 0, 20, false, 20},
        {30, 0, 50, 20, false, 20}, {-1, 0, 40, 0, false, 40}, {0, 0, 0, 0, false, 0},
        {0, 0, 12, 0, false, 12},   {30, 0, 50, 0, true, 0},
    };
    grid.DefaultRowHeight = 17;
    for (const auto& c : cases) {
        grid.RowTable[3].Height = c.Stored;
        grid.UniformRowHeight = c.Uniform;
        grid.RowHeightMinPixels = c.Minimum, grid.RowHeightMaxPixels = c.Maximum;
        grid.RowTable[3].Flags = c.Hidden ? RowFlagHidden : 0;
        EXPECT_EQ(EffectiveRowHeight(grid, 3), c.Height) << c.Stored << ' ' << c.Minimum << ' ' << c.Maximum;
    }
    grid.RowHeightMinPixels = 99;
    EXPECT_EQ(EffectiveRowHeight(grid, -1), 17) << "rows outside know no limits";
    EXPECT_EQ(EffectiveRowHeight(grid, 31), 17);
}

TEST_F(Metrics, WidthOfAColumn)
{
    struct {
        int Stored, Minimum, Maximum;
        bool Hidden;
        int Width;
    } const cases[] = {
        {-1, 0, 0, false, 68},   {30, 0, 0, false, 30}, {30, 40, 0, false, 40}, {30, 0, 20, false, 20},
        {30, 50, 20, false, 20}, {0, 12, 0, false, 12}, {30, 50, 0, true, 0},
    };
    grid.DefaultRowHeight = 17;
    for (const auto& c : cases) {
        grid.ColTable[2].Width = c.Stored;
        grid.ColWidthMinPixels = c.Minimum, grid.ColWidthMaxPixels = c.Maximum;
        grid.ColTable[2].ColFlags = c.Hidden ? ColFlagHidden : 0;
        EXPECT_EQ(EffectiveColWidth(grid, 2), c.Width) << c.Stored << ' ' << c.Minimum << ' ' << c.Maximum;
    }
    grid.ColWidthMinPixels = 99;
    EXPECT_EQ(EffectiveColWidth(grid, -1), 68);
    EXPECT_EQ(EffectiveColWidth(grid, 5), 68);
}

// Positions

TEST_F(Metrics, RowsThatAreScrolledAwayCountUnevenly)
{
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Height = 10 + row;
    grid.TopRow = 5;
    EXPECT_EQ(RowY(grid, 0), 0);
    EXPECT_EQ(RowY(grid, 5), 10);
    EXPECT_EQ(RowY(grid, 7), 10 + 15 + 16);
    EXPECT_EQ(RowY(grid, 3), 10 - 15 - 14) << "from the first scrolled row on, without the row's own height";
    EXPECT_EQ(RowY(grid, 31), RowY(grid, 30) + 40);
    EXPECT_EQ(RowY(grid, 50), RowY(grid, 31)) << "rows end the sum";
}

TEST_F(Metrics, ColumnsThatAreScrolledAwayCountUnevenly)
{
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].Width = 10 + col;
    grid.LeftCol = 3;
    EXPECT_EQ(ColX(grid, 0), 0);
    EXPECT_EQ(ColX(grid, 4), 10 + 13);
    EXPECT_EQ(ColX(grid, 1), 10 - 13 - 12);
}

TEST_F(Metrics, FrozenRowsKeepTheirPlace)
{
    grid.FrozenRows = 2;
    grid.TopRow = 9;
    EXPECT_EQ(RowY(grid, 2), 40);
    EXPECT_EQ(RowY(grid, 9), 60);
}

TEST_F(Metrics, ColumnsAreMirroredWhenTheyRunFromTheRight)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    EXPECT_EQ(ColX(grid, 0), right - 50);
    EXPECT_EQ(ColX(grid, 2), right - 150);
    HideCol(2);
    EXPECT_EQ(ColX(grid, 2), right - 100) << "a hidden column has no width to mirror";
    EXPECT_EQ(RowY(grid, 2), 40);
}

TEST_F(Metrics, LastVisibleColumnIsStretched)
{
    int right = ClientRectOf(grid).right;
    EXPECT_EQ(CellRect(grid, 2, 4).right, 250);
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(CellRect(grid, 2, 4).right, right);
    EXPECT_EQ(CellRect(grid, 2, 3).right, 200) << "a later column has a width";
    HideCol(4);
    EXPECT_EQ(CellRect(grid, 2, 3).right, right);
    SetOption(grid, OptionRightToLeft, true);
    EXPECT_EQ(CellRect(grid, 2, 3).left, 0);
    EXPECT_EQ(grid.ColTable[3].Width, 50) << "stored widths stay";
}

TEST_F(Metrics, ExtentStandsInForTheClientArea)
{
    HWND window = std::exchange(grid.Window, nullptr);
    grid.Extent = {2540, 1270};
    RECT client = ClientRectOf(grid);
    grid.Window = window;
    EXPECT_EQ(client.right, HimetricToPixelsX(2540));
    EXPECT_EQ(client.bottom, HimetricToPixelsY(1270));
}

TEST_F(Metrics, SumsDoNotOverflow)
{
    Resize(100000, 2);
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Height = MaxPixels;
    EXPECT_EQ(SumLengths(grid, RowAxis, 0, grid.Rows), 0x7FFFFFFF);
}

// Default height

TEST_F(Metrics, DefaultHeightIsThatOfTheFontAndFourMore)
{
    SetOption(grid, OptionMergeStale, false);
    grid.DefaultRowHeight = 1;
    grid.MergeCells = lorvMergeSpill;
    RecalcDefaultRowHeight(grid);
    ScreenDC screen;
    SelectedObject font(screen.Get(), GridFontHandle(grid));
    SIZE size = {};
    GetTextExtentPoint32W(screen.Get(), L"Hj", 2, &size);
    EXPECT_EQ(grid.DefaultRowHeight, size.cy + 4);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    SetOption(grid, OptionMergeStale, false);
    RecalcDefaultRowHeight(grid);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale)) << "the height is the same";
}

TEST_F(Metrics, ColumnIsStretchedOnlyWhenAllLaterOnesHaveNoWidth)
{
    Resize(31, 21);
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(CellRect(grid, 2, 5).right, 300) << "the last one in view, with others behind it";
    EXPECT_EQ(CellRect(grid, 2, 4).right, 250);
    for (int col = 5; col < grid.Cols; ++col)
        grid.ColTable[col].Width = 0;
    EXPECT_EQ(CellRect(grid, 2, 4).right, ClientRectOf(grid).right);
}

TEST_F(Metrics, CellIsAsLargeAsItsMergedRange)
{
    MergeCell(2, 3, LinkRight);
    MergeCell(2, 4, LinkLeft);
    const RECT both = {150, 40, 250, 60};
    for (int col : {3, 4}) {
        RECT cell = CellRect(grid, 2, col);
        EXPECT_TRUE(EqualRect(&cell, &both)) << col;
        cell = CellPixelRect(grid, 2, col);
        EXPECT_EQ(cell.right - cell.left, 50) << col;
    }
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(CellRect(grid, 2, 3).right, ClientRectOf(grid).right) << "the range ends in the last column";
}

TEST_F(Metrics, DesignersSeeTheFormatAgainInANewFont)
{
    SetFormatString(grid, L"|a heading");
    int before = grid.ColTable[1].Width;
    for (int designing : {0, 1}) {
        grid.DesignModeCache = designing;
        SetCellText(grid, 3, 1, L"text");
        EXPECT_EQ(GridFont(grid)->put_Size(CY{.int64 = 400000}), S_OK);
        RecalcDefaultRowHeight(grid);
        EXPECT_EQ(grid.ColTable[1].Width > before, designing == 1);
        EXPECT_STREQ(GetCellText(grid, 0, 1), L"a heading");
        const wchar_t* text = GetCellText(grid, 3, 1);
        EXPECT_EQ(text && *text, designing == 0) << "a program's own texts are not a designer's";
    }
    SetFormatString(grid, L"");
    SetCellText(grid, 3, 1, L"text");
    RecalcDefaultRowHeight(grid);
    EXPECT_STREQ(GetCellText(grid, 3, 1), L"text") << "without a format nothing is made anew";
    grid.DesignModeCache = 0;
}
} // namespace
