// Sheets and windows at the ends of their ranges: nothing overflows and nothing takes for ever.

#include "core/row_col.h"
#include "support/grid_window.h"
#include "view/hit_test.h"
#include "view/metrics.h"
#include "view/scroll.h"
#include "view/selection.h"
#include "view/sheet_axis.h"

#include <climits>

namespace
{
class LargeSheet : public GridInWindow
{
protected:
    void Size(int width, int height)
    {
        SetWindowPos(grid.Window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW);
        RecalculateLayout(grid);
        Settle();
    }
    // Every way to scroll, on both axes.
    void ScrollAround()
    {
        for (int code : {0, 1, 2, 3, 4, 5, 6, 7, ScrollDirect})
            for (int position : {0, 1, grid.Rows - 1, INT_MAX, INT_MIN}) {
                ScrollVertical(grid, code, position, true);
                ScrollHorizontal(grid, code, position, true);
                EXPECT_GE(grid.TopRow, FrozenEndRow(grid));
                EXPECT_LE(grid.TopRow, grid.MaxTopRow);
                EXPECT_LE(grid.LeftCol, grid.MaxLeftCol);
            }
    }
};

TEST_F(LargeSheet, WindowWithoutSizeScrolls)
{
    Size(0, 0);
    EXPECT_EQ(ClientRectOf(grid).bottom, 0);
    EXPECT_EQ(grid.MaxTopRow, 30);
    EXPECT_EQ(grid.MaxLeftCol, 4);
    ScrollAround();
    grid.TopRow = 1;
    EXPECT_EQ(NextPageTop(grid, 1), 2);
    EXPECT_EQ(PrevPageTop(grid, 9), 8);
    EXPECT_EQ(TopForRow(grid, 10), 10);
    EXPECT_EQ(BottomRowOf(grid), 1);
    EXPECT_FALSE(IsCellVisible(grid, 1, 1));
    EXPECT_EQ(MoveCursor(grid, 20, 3, CursorShow), S_OK);
    EXPECT_EQ(grid.TopRow, 20);
}

TEST_F(LargeSheet, WindowOf30000PixelsShowsEverything)
{
    grid.TopRow = 12;
    Size(30000, 30000);
    ASSERT_EQ(ClientRectOf(grid).right, 30000);
    EXPECT_EQ(grid.MaxTopRow, 1);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(Bar(SB_VERT).nMax, 0);
    EXPECT_EQ(Bar(SB_HORZ).nMax, 0);
    EXPECT_EQ(BottomRowOf(grid), 30);
    EXPECT_EQ(RightColOf(grid), 4);
    EXPECT_FALSE(HitTest(grid, {29999, 29999}, true, true).OnCell);
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(CellRect(grid, 1, 4).right, 30000);
    SetOption(grid, OptionRightToLeft, true);
    EXPECT_EQ(ColX(grid, 0), 30000 - 50);
    ScrollAround();
}

TEST_F(LargeSheet, MillionColumnsScroll)
{
    constexpr int count = 1000000;
    Resize(3, count);
    EXPECT_EQ(grid.MaxLeftCol, count - 5);
    EXPECT_EQ(Bar(SB_HORZ).nMax, count * ColWidth);
    EXPECT_EQ(MoveCursor(grid, 1, count - 1, CursorShow), S_OK);
    EXPECT_EQ(grid.LeftCol, count - 5);
    EXPECT_EQ(ColX(grid, count - 1), 250);
    EXPECT_EQ(ColX(grid, 1), 50 - (count - 6) * ColWidth);
    EXPECT_EQ(HitTest(grid, {260, 30}, true, true).Cell.Col, count - 1);
    EXPECT_EQ(RightColOf(grid), count - 1);
    ScrollHorizontal(grid, SB_PAGELEFT, 0, false);
    EXPECT_EQ(grid.LeftCol, count - 9);
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(CellRect(grid, 1, 5).right - CellRect(grid, 1, 5).left, ColWidth);
}

TEST_F(LargeSheet, RowsAtTheCeilingOfHeights)
{
    constexpr int count = 100000; // 3,200,000,000 pixels
    Resize(count, 2);
    for (int row = 0; row < count; ++row)
        grid.RowTable[row].Height = MaxPixels;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, count - 1);
    EXPECT_EQ(Bar(SB_VERT).nMax, INT_MAX);
    EXPECT_GT(RowY(grid, count - 1), 1000000000) << "far below, not above";
    EXPECT_LT(CellRect(grid, count - 1, 1).top, CellRect(grid, count - 1, 1).bottom);
    EXPECT_EQ(TopForRow(grid, count - 1), count - 1);
    EXPECT_EQ(MoveCursor(grid, count - 1, 1, CursorShow), S_OK);
    EXPECT_EQ(grid.TopRow, count - 1);
    EXPECT_LT(RowY(grid, 1), -1000000000);
    ScrollVertical(grid, SB_LINEUP, 0, false);
    EXPECT_EQ(grid.TopRow, count - 2);
    ScrollAround();
}

TEST_F(LargeSheet, FrozenRowsMayBeLongerThanAnyWindow)
{
    constexpr int count = 100000;
    Resize(count, 2);
    for (int row = 0; row < count; ++row)
        grid.RowTable[row].Height = MaxPixels;
    grid.FrozenRows = count - 10;
    grid.TopRow = FrozenEndRow(grid);
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, count - 1);
    EXPECT_EQ(TopForRow(grid, count - 1), count - 1);
    EXPECT_EQ(NextPageTop(grid, count - 5), count - 4);
    EXPECT_EQ(PrevPageTop(grid, count - 5), count - 6);
    ScrollAround();
    EXPECT_FALSE(IsCellVisible(grid, count - 1, -1));
}

TEST_F(LargeSheet, LimitsMayBeLongerThanAnySheet)
{
    grid.RowHeightMinPixels = INT_MAX / 15;
    grid.ColWidthMinPixels = INT_MAX / 15;
    RecalculateLayout(grid);
    EXPECT_GT(RowY(grid, 30), 1000000000);
    RECT cell = CellRect(grid, 30, 4);
    EXPECT_LT(cell.top, cell.bottom);
    EXPECT_LT(cell.left, cell.right);
    ScrollAround();
}

TEST_F(LargeSheet, FirstRowFarBehindTheSheetIsMeasuredAtOnce)
{
    grid.DefaultRowHeight = 17;
    grid.TopRow = 41;
    EXPECT_EQ(RowY(grid, 30), 20 - 11 * 17) << "rows that are not there are as high as the default";
    EXPECT_EQ(RowY(grid, 28), 20 - 11 * 17 - 2 * 20);
    EXPECT_EQ(RowY(grid, 33), 20 - 8 * 17);
    grid.TopRow = INT_MAX;
    EXPECT_LT(RowY(grid, 30), -1000000000);
    EXPECT_EQ(RowY(grid, 0), 0);
    SetFixedCounts(grid, 2, -1, -1, -1);
    EXPECT_EQ(grid.TopRow, 31);
}
} // namespace
