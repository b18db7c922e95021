#include "view/hit_test.h"

#include "core/merge.h"
#include "support/grid_window.h"
#include "view/metrics.h"

namespace
{
class Hits : public GridInWindow
{
protected:
    // Rows 2 to 4 of column 1, and columns 2 to 4 of row 6.
    void MergeTwoRanges()
    {
        for (int row = 2; row <= 4; ++row)
            SetCellText(grid, row, 1, L"down");
        for (int col = 2; col <= 4; ++col)
            SetCellText(grid, 6, col, L"across");
        grid.ColTable[1].MergeCol = 1;
        grid.RowTable[6].MergeRow = 1;
        grid.MergeCells = lorvMergeFree;
        MarkMergeStale(grid);
        RebuildMergeLinks(grid);
    }
    std::string At(int x, int y, bool strict, bool resolveMerge) const
    {
        CellHit hit = HitTest(grid, {x, y}, strict, resolveMerge);
        return std::to_string(hit.Cell.Row) + "," + std::to_string(hit.Cell.Col) + (hit.OnCell ? "" : " off");
    }
};

TEST_F(Hits, PointOnALineBelongsToTheUpperRow)
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

TEST_F(Hits, PointAboveTheScrolledPartLeadsBack)
{
    grid.TopRow = 9;
    EXPECT_EQ(HitTest(grid, {60, 10}, false, false).Cell.Row, 8);
    EXPECT_EQ(HitTest(grid, {60, 10}, true, false).Cell.Row, 0);
    EXPECT_EQ(HitTest(grid, {60, -500}, false, false).Cell.Row, 0);
}

TEST_F(Hits, StretchedColumnIsHitToTheEdge)
{
    SetOption(grid, OptionExtendLastCol, true);
    CellHit hit = HitTest(grid, {280, 30}, true, false);
    EXPECT_EQ(hit.Cell.Col, 4);
    EXPECT_TRUE(hit.OnCell);
}

TEST_F(Hits, HitIsMirroredWithTheColumns)
{
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    EXPECT_EQ(HitTest(grid, {right - 10, 30}, true, false).Cell.Col, 0);
    EXPECT_EQ(HitTest(grid, {right - 60, 30}, true, false).Cell.Col, 1);
}

TEST_F(Hits, MergedRangeIsHitAtItsFirstCell)
{
    MergeTwoRanges();
    EXPECT_EQ(At(60, 90, true, false), "4,1");
    EXPECT_EQ(At(60, 90, true, true), "2,1");
    EXPECT_EQ(At(220, 130, true, false), "6,4");
    EXPECT_EQ(At(220, 130, true, true), "6,2");
    EXPECT_EQ(At(60, 130, true, true), "6,1") << "not part of the range beside it";
    EXPECT_EQ(At(60, 90, false, true), "2,1");
}

TEST_F(Hits, MergedRangeIsHitAtItsFirstCellWithASize)
{
    MergeTwoRanges();
    HideRow(2);
    grid.ColTable[2].Width = 0;
    EXPECT_EQ(At(60, 70, true, true), "3,1");
    EXPECT_EQ(At(170, 110, true, true), "6,3");
}

TEST_F(Hits, MergedRangeIsHitAtItsFirstCellThoughThatIsScrolledAway)
{
    MergeTwoRanges();
    grid.TopRow = 4;
    EXPECT_EQ(At(60, 30, true, false), "4,1");
    EXPECT_EQ(At(60, 30, true, true), "2,1");
}

TEST_F(Hits, NothingIsResolvedBesideTheCells)
{
    MergeTwoRanges();
    EXPECT_EQ(At(280, 130, true, true), "6,-1 off");
    EXPECT_EQ(At(280, 130, false, true), "6,4 off") << "the nearest column, though it is merged";
}

TEST_F(Hits, StretchedColumnIsNoCellBelowTheRows)
{
    Resize(4, 5);
    SetOption(grid, OptionExtendLastCol, true);
    EXPECT_EQ(At(280, 100, true, false), "-1,4 off");
    EXPECT_EQ(At(280, 100, false, false), "3,4 off");
}

TEST_F(Hits, FrozenPartIsHitWhereItStands)
{
    grid.FrozenRows = 2, grid.TopRow = 9;
    grid.FrozenCols = 1, grid.LeftCol = 3;
    EXPECT_EQ(At(60, 50, true, false), "2,1");
    EXPECT_EQ(At(60, 60, true, false), "2,1") << "the first pixel behind it belongs to it";
    EXPECT_EQ(At(110, 61, true, false), "9,3");
    EXPECT_EQ(At(110, 50, false, false), "8,3") << "what is scrolled away begins under the frozen rows";
    EXPECT_EQ(At(60, 70, false, false), "9,2");
}

TEST_F(Hits, RowsWithoutHeightAreNotHit)
{
    HideRow(2);
    grid.ColTable[2].Width = 0;
    EXPECT_EQ(At(60, 41, true, false), "3,1");
    EXPECT_EQ(At(101, 30, true, false), "1,3");
}

TEST_F(Hits, EmptySheetIsHitNowhere)
{
    Resize(0, 0);
    EXPECT_EQ(At(10, 10, true, true), "-1,-1 off");
    EXPECT_EQ(At(10, 10, false, true), "-1,-1 off");
}
} // namespace
