#include "view/metrics.h"

#include "platform/dpi.h"
#include "platform/gdi.h"
#include "support/grid_window.h"
#include "support/pixels.h"
#include "view/auto_size.h"
#include "view/hit_test.h"
#include "view/sheet_axis.h"

namespace
{
using Metrics = GridInWindow;

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

// AutoSize

class Sizing : public GridInWindow
{
protected:
    Sizing() { RecalcDefaultRowHeight(grid); }
    SIZE Measure(const wchar_t* text)
    {
        ScreenDC screen;
        SelectedObject font(screen.Get(), GridFontHandle(grid));
        SIZE size = {};
        GetTextExtentPoint32W(screen.Get(), text, static_cast<int>(wcslen(text)), &size);
        return size;
    }
    int TextWidth(const wchar_t* text) { return Measure(text).cx + 8 + Digit(); }
    int Digit() { return Measure(L"0").cx; }
    int LineHeight() { return Measure(L"Hj").cy; }
    void SizeColumns(int first, int last, bool equal = false, int extra = 0)
    {
        AutoSizeRange(grid, first, last, equal, extra, lorvAutoSizeColWidth);
    }
    void SizeAllRows(bool equal = false, int extra = 0)
    {
        AutoSizeRange(grid, 1, 4, equal, extra, lorvAutoSizeRowHeight);
    }
    int ColWidthOf(int col) const { return grid.ColTable[col].Width; }
    int HeightOf(int row) const { return grid.RowTable[row].Height; }
};

TEST_F(Sizing, ColumnTakesItsWidestText)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    SetCellText(grid, 4, 2, L"short");
    SizeColumns(1, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"a rather long text"));
    EXPECT_EQ(ColWidthOf(1), 8 + Digit()) << "room for a digit at least";
    EXPECT_EQ(ColWidthOf(3), 50);
}

TEST_F(Sizing, ExtraSpaceAndIndentAreAdded)
{
    SetCellText(grid, 3, 2, L"text");
    grid.ColTable[2].Indent = 9;
    SizeColumns(2, 2, false, 30);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"text") + 9 + 30);
}

TEST_F(Sizing, EqualColumnsGetTheWidestOfAll)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    grid.ColTable[3].Width = 0;
    SizeColumns(1, 4, true);
    EXPECT_EQ(ColWidthOf(1), TextWidth(L"a rather long text"));
    EXPECT_EQ(ColWidthOf(4), ColWidthOf(1));
    EXPECT_EQ(ColWidthOf(3), 0) << "a column without width stays so";
}

TEST_F(Sizing, HiddenColumnsAreSizedAsWell)
{
    HideCol(2);
    SizeColumns(2, 2, false, 5);
    EXPECT_GE(ColWidthOf(2), 5 + Digit());
    EXPECT_NE(ColWidthOf(2), 50);
}

TEST_F(Sizing, HiddenRowsCountOnlyInAnOutline)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    HideRow(3);
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), 8 + Digit());
    grid.OutlineBar = lorvOutlineBarSimple;
    grid.OutlineLevelCount = 1;
    AutoSizeRange(grid, 2, 2, false, 0, lorvAutoSizeColWidth);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"a rather long text"));
}

TEST_F(Sizing, BooleanColumnHasRoomForItsBox)
{
    grid.ColTable[2].ColDataType = lorvDTBoolean;
    SizeColumns(2, 2);
    EXPECT_GE(ColWidthOf(2), 2 * DpiScale(10));
}

TEST_F(Sizing, WordWrapDoesNotMatterForWidths)
{
    SetCellText(grid, 3, 2, L"one two three");
    SetOption(grid, OptionWordWrap, true);
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"one two three"));
}

TEST_F(Sizing, WidthsEndAtTheScreen)
{
    SetCellText(grid, 3, 2, std::wstring(4000, L'W').c_str());
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), GetSystemMetrics(SM_CXSCREEN));
}

TEST_F(Sizing, LimitsApplyAtUseOnly)
{
    grid.ColWidthMaxPixels = 3;
    SetCellText(grid, 3, 2, L"text");
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"text"));
    EXPECT_EQ(EffectiveColWidth(grid, 2), 3);
}

TEST_F(Sizing, BackwardRangeSizesNothing)
{
    SizeColumns(3, 1);
    EXPECT_EQ(ColWidthOf(2), 50);
    SizeColumns(-1, 2);
    SizeColumns(2, 5);
    EXPECT_EQ(ColWidthOf(2), 50);
}

TEST_F(Sizing, PropertyDecidesWhatIsSized)
{
    SetCellText(grid, 3, 2, L"text");
    grid.AutoSizeMode = lorvAutoSizeRowHeight;
    AutoSizeRange(grid, 2, 2, false, 0, AutoSizeByProperty);
    EXPECT_EQ(ColWidthOf(2), 50);
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
}

TEST_F(Sizing, RowTakesItsTallestCell)
{
    SetCellText(grid, 3, 2, L"one");
    SetCellText(grid, 3, 3, L"one\ntwo");
    SetOption(grid, OptionWordWrap, true); // a single line ignores line ends
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), 2 * LineHeight() + 4);
    EXPECT_EQ(HeightOf(4), RowHeight) << "nothing in it";
}

TEST_F(Sizing, RowsGetTheExtraSpaceToo)
{
    SetCellText(grid, 3, 2, L"one");
    SizeAllRows(false, 11);
    EXPECT_EQ(HeightOf(3), LineHeight() + 4 + 11);
}

TEST_F(Sizing, EqualRowsGetTheTallestOfAll)
{
    SetCellText(grid, 3, 2, L"one");
    grid.RowTable[5].Height = 0;
    SizeAllRows(true);
    EXPECT_EQ(HeightOf(1), LineHeight() + 4);
    EXPECT_EQ(HeightOf(30), LineHeight() + 4);
    EXPECT_EQ(HeightOf(5), 0);
}

TEST_F(Sizing, HiddenColumnsSayNothingAboutHeights)
{
    SetCellText(grid, 3, 2, L"one");
    HideCol(2);
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), RowHeight);
}

TEST_F(Sizing, PictureCountsWithoutMargin)
{
    auto picture = MakePicture(10, 57, RGB(1, 2, 3));
    CellFormat* format = EnsureCellFormat(grid, 3, 2);
    format->Picture = picture.Get();
    picture->AddRef();
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), 57);
}

TEST_F(Sizing, MergedCellCountsAsABlankLine)
{
    SetOption(grid, OptionWordWrap, true);
    SetCellText(grid, 3, 2, L"one\ntwo\nthree");
    grid.MergeCells = lorvMergeFree;
    SetOption(grid, OptionMergeStale, false);
    grid.RowTable[3].Cells[2].State |= LinkRight;
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
}

// Hit test

TEST_F(Metrics, PointOnALineBelongsToTheUpperRow)
{
    struct {
        int X, Y;
        bool Strict;
        CellPos Cell;
        bool On;
    } const cases[] = {
        {10, 10, true, {0, 0}, true},    {60, 30, true, {1, 1}, true},    {60, 40, true, {1, 1}, true},
        {60, 41, true, {2, 1}, true},    {50, 20, true, {0, 0}, true},    {280, 30, true, {1, -1}, false},
        {280, 30, false, {1, 4}, false}, {60, 900, true, {-1, 1}, false}, {60, 900, false, {30, 1}, false},
    };
    for (const auto& c : cases) {
        CellHit hit = HitTest(grid, {c.X, c.Y}, c.Strict, false);
        EXPECT_EQ(hit.Cell.Row, c.Cell.Row) << c.X << ',' << c.Y;
        EXPECT_EQ(hit.Cell.Col, c.Cell.Col) << c.X << ',' << c.Y;
        EXPECT_EQ(hit.OnCell, c.On) << c.X << ',' << c.Y;
    }
}

TEST_F(Metrics, PointAboveTheScrolledPartLeadsBack)
{
    grid.TopRow = 9;
    EXPECT_EQ(HitTest(grid, {60, 10}, false, false).Cell.Row, 8);
    EXPECT_EQ(HitTest(grid, {60, 10}, true, false).Cell.Row, 0);
    EXPECT_EQ(HitTest(grid, {60, -500}, false, false).Cell.Row, 0);
}

TEST_F(Metrics, StretchedColumnIsHitToTheEdge)
{
    SetOption(grid, OptionExtendLastCol, true);
    CellHit hit = HitTest(grid, {280, 30}, true, false);
    EXPECT_EQ(hit.Cell.Col, 4);
    EXPECT_TRUE(hit.OnCell);
}

TEST_F(Metrics, HitIsMirroredWithTheColumns)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    EXPECT_EQ(HitTest(grid, {right - 10, 30}, true, false).Cell.Col, 0);
    EXPECT_EQ(HitTest(grid, {right - 60, 30}, true, false).Cell.Col, 1);
}
} // namespace
