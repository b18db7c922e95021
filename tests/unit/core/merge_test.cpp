#include "core/merge.h"

#include "core/cell_property.h"
#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/row_ops.h"
#include "core/sort.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "platform/com_ptr.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "platform/memory.h"
#include "support/fakes.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace
{
constexpr char HexDigits[] = "0123456789ABCDEF";

class Merging : public testing::Test
{
protected:
    Grid other; // for tests that bind
    Grid grid;

    // A grid of cells with one character each, `.` for an empty one, without fixed parts.
    void Fill(std::initializer_list<const char*> rows)
    {
        ResizeBoth(grid, 0, 0);
        ResizeBoth(grid, static_cast<int>(rows.size()), static_cast<int>(std::string(*rows.begin()).size()));
        SetFixedCounts(grid, 0, 0, 0, 0);
        int row = 0;
        for (const char* cells : rows) {
            for (int col = 0; cells[col]; ++col)
                if (cells[col] != '.')
                    Put(row, col, std::wstring(1, static_cast<wchar_t>(cells[col])).c_str());
            ++row;
        }
    }
    void Put(int row, int col, const wchar_t* text) { SetCellText(grid, row, col, text); }
    void SetMode(int mode) { SetModes(mode, mode); }
    void SetModes(int fixedMode, int scrollableMode)
    {
        grid.MergeCellsFixed = static_cast<int16_t>(fixedMode);
        grid.MergeCells = static_cast<int16_t>(scrollableMode);
        MarkMergeStale(grid);
    }
    void MergeAllRows() { MergeRows(0, grid.Rows - 1); }
    void MergeRows(int first, int last)
    {
        for (int row = first; row <= last; ++row)
            grid.RowTable[row].MergeRow = 1;
    }
    void MergeAllCols()
    {
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].MergeCol = 1;
    }
    CellFormat& Format(int row, int col) { return *EnsureCellFormat(grid, row, col); }
    void Link(int row, int col, int links)
    {
        EnsureRowCells(grid, row);
        grid.RowTable[row].Cells[col].State |= static_cast<uint8_t>(links);
    }
    void Check(int row, int col, int state) { SetCheckState(grid, row, col, state); }

    // The links of every cell as one digit, rows apart by a slash: 1 above, 2 below, 4 left, 8 right.
    std::string Links() const
    {
        std::string links;
        for (int row = 0; row < grid.Rows; ++row) {
            links += row ? "/" : "";
            for (int col = 0; col < grid.Cols; ++col)
                links += HexDigits[MergeLinksOf(grid, row, col)];
        }
        return links;
    }
    std::string Rebuilt()
    {
        MarkMergeStale(grid);
        RebuildMergeLinks(grid);
        EXPECT_FALSE(HasOption(grid, OptionMergeStale));
        return Links();
    }
    std::string RangeOf(int row, int col) const
    {
        CellRange range = MergedRangeOf(grid, row, col);
        char text[64];
        std::snprintf(text, sizeof(text), "%d,%d-%d,%d", range.Row1, range.Col1, range.Row2, range.Col2);
        return text;
    }
    // A visible outline whose levels are 0 and 1.
    void ShowOutline(int col)
    {
        grid.OutlineBar = lorvOutlineBarSimple;
        grid.OutlineCol = col;
        grid.OutlineLevelCount = 2;
        grid.OutlineLevels[0] = 0, grid.OutlineLevels[1] = 1;
    }
};

// --- equal neighbours

TEST_F(Merging, TheModeAloneMergesNothing)
{
    Fill({"aa", "aa"});
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "00/00");
}

TEST_F(Merging, PermissionsAloneMergeNothing)
{
    Fill({"aa", "aa"});
    MergeAllRows();
    MergeAllCols();
    MarkMergeStale(grid);
    RebuildMergeLinks(grid);
    EXPECT_EQ(Links(), "00/00");
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST_F(Merging, AColumnThatMayJoinsItsEqualNeighbours)
{
    Fill({"aa", "aa", "aa", "ba"});
    grid.ColTable[0].MergeCol = 1;
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "20/30/10/00");
}

TEST_F(Merging, ARowThatMayJoinsItsEqualNeighbours)
{
    Fill({"aaab", "aaab"});
    grid.RowTable[1].MergeRow = 1;
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "0000/8C40");
}

TEST_F(Merging, AnyPermissionThatIsNotZeroCounts)
{
    Fill({"aa", "aa"});
    grid.ColTable[0].MergeCol = 0xFF;
    grid.ColTable[1].MergeCol = 2;
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "22/11");
}

TEST_F(Merging, ACellInAVerticalMergeDoesNotJoinHorizontally)
{
    Fill({"aaa", "abb"});
    MergeAllRows();
    MergeAllCols();
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "284/184");
    Fill({"aa", "ba"}); // the second of the pair
    MergeAllRows();
    MergeAllCols();
    EXPECT_EQ(Rebuilt(), "02/01");
}

TEST_F(Merging, NothingJoinsAcrossAFixedOrFrozenBoundary)
{
    Fill({"aaaaaa", "aaaaaa", "aaaaaa", "aaaaaa", "aaaaaa", "aaaaaa"});
    SetFixedCounts(grid, 2, 2, 2, 2);
    SetMode(lorvMergeFree);
    MergeAllCols();
    EXPECT_EQ(Rebuilt(), "222222/111111/222222/111111/222222/111111");
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].MergeCol = 0;
    MergeAllRows();
    EXPECT_EQ(Rebuilt(), "848484/848484/848484/848484/848484/848484");
}

TEST_F(Merging, AHeadingDoesNotJoinTheFirstDataRow)
{
    Fill({"a", "a", "a"});
    SetFixedCounts(grid, 1, 0, 0, 0);
    MergeAllCols();
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "0/2/1");
}

TEST_F(Merging, BoxesMustBeEqual)
{
    Fill({"aa", "aa", "..", "..", ".."});
    MergeAllCols();
    SetMode(lorvMergeFree);
    Check(0, 0, lorvChecked);
    Check(1, 0, lorvUnchecked);
    Check(0, 1, lorvChecked);
    Check(1, 1, lorvChecked);
    Check(2, 0, lorvTSChecked);
    Check(3, 0, lorvTSChecked);
    Check(4, 0, lorvTSGrayed);
    EXPECT_EQ(Rebuilt(), "02/01/20/10/00") << "two empty cells join when both show the same box";
    EXPECT_EQ(CheckStateOf(grid, 0, 0), lorvChecked) << "links leave the box alone";
}

TEST_F(Merging, TextsCompareAsMergeCompareSays)
{
    struct {
        int Compare;
        const wchar_t *X, *Y;
        bool Joins;
    } const cases[] = {
        {lorvMCExact, L"a", L"a", true},
        {lorvMCExact, L"a", L"A", false},
        {lorvMCExact, L"a", L"a ", false},
        {lorvMCExact, L"", L"", false},
        {lorvMCExact, L"", L"a", false},
        {lorvMCNoCase, L"a", L"A", true},
        {lorvMCNoCase, L"a", L"a ", false},
        {lorvMCNoCase, L"", L"", false},
        {lorvMCTrimNoCase, L"Ab", L"aB  ", true},
        {lorvMCTrimNoCase, L" a", L"a", false},  // leading blanks count
        {lorvMCTrimNoCase, L"a\t", L"a", false}, // and so does all that is no blank
        {lorvMCTrimNoCase, L"a\x00A0", L"a", false},
        {lorvMCTrimNoCase, L"ab", L"a", false},
        {lorvMCTrimNoCase, L"  ", L"", true}, // one of them is not empty
        {lorvMCTrimNoCase, L"", L"", false},
        {lorvMCIncludeNulls, L"", L"", true},
        {lorvMCIncludeNulls, L"a", L"a", true},
        {lorvMCIncludeNulls, L"a", L"A", false},
        {lorvMCIncludeNulls, L"", L" ", false},
        {9, L"a", L"a", true}, // a digit of a compound value that names nothing
        {9, L"a", L"A", false},
        {9, L"", L"", false},
    };
    for (const auto& c : cases) {
        Fill({".", "."});
        Put(0, 0, c.X);
        Put(1, 0, c.Y);
        grid.MergeCompare = static_cast<int16_t>(c.Compare);
        EXPECT_EQ(CanMerge(grid, {0, 0}, {1, 0}), c.Joins) << c.Compare << " '" << c.X << "' '" << c.Y << "'";
        EXPECT_EQ(CanMerge(grid, {1, 0}, {0, 0}), c.Joins) << c.Compare << " '" << c.Y << "' '" << c.X << "'";
    }
}

TEST_F(Merging, GroupCompareTakesNoPart)
{
    Fill({"a", "A"});
    grid.GroupCompare = lorvMCNoCase;
    EXPECT_FALSE(CanMerge(grid, {0, 0}, {1, 0}));
}

TEST_F(Merging, SubtotalsStayApartInTheOutlineColumn)
{
    Fill({"aa", "aa", "aa", "aa"});
    grid.RowTable[1].Flags |= RowFlagSubtotal;
    MergeAllCols();
    SetMode(lorvMergeFree);
    ShowOutline(1);
    EXPECT_EQ(Rebuilt(), "20/30/32/11");
    grid.OutlineBar = lorvOutlineBarNone;
    EXPECT_EQ(Rebuilt(), "22/33/33/11");
    ShowOutline(1);
    grid.OutlineLevelCount = 0;
    EXPECT_EQ(Rebuilt(), "22/33/33/11");
}

TEST_F(Merging, ASubtotalMayJoinAcrossTheOutlineColumn)
{
    Fill({"aa"});
    grid.RowTable[0].Flags |= RowFlagSubtotal;
    ShowOutline(0);
    EXPECT_TRUE(CanMerge(grid, {0, 0}, {0, 1}));
}

// --- restricted modes

TEST_F(Merging, RestrictedRowsFollowTheColumnBefore)
{
    struct {
        int Mode;
        const char* Links;
    } const cases[] = {
        {lorvMergeFree, "2222/1333/0333/0111"},
        {lorvMergeRestrictRows, "2222/1111/0000/0000"},
        {lorvMergeRestrictColumns, "2222/1333/0333/0111"},
        {lorvMergeRestrictAll, "2222/1111/0000/0000"},
    };
    for (const auto& c : cases) {
        Fill({"xaaa", "xaaa", "yaaa", "zaaa"});
        MergeAllCols();
        SetMode(c.Mode);
        EXPECT_EQ(Rebuilt(), c.Links) << c.Mode;
    }
}

TEST_F(Merging, TheFirstDataColumnIsNotRestricted)
{
    Fill({"xaa", "yaa", "zab"});
    SetFixedCounts(grid, 0, 1, 0, 0);
    MergeAllCols();
    SetMode(lorvMergeRestrictRows);
    EXPECT_EQ(Rebuilt(), "022/031/010") << "the second data column joins only where the first one does";
    Put(1, 1, L"c");
    Put(2, 1, L"c");
    Put(2, 2, L"a");
    EXPECT_EQ(Rebuilt(), "000/022/011");
}

TEST_F(Merging, RestrictedColumnsFollowTheRowAbove)
{
    struct {
        int Mode;
        const char* Links;
    } const cases[] = {
        {lorvMergeFree, "8400/8CC4/8CC4"},
        {lorvMergeRestrictRows, "8400/8CC4/8CC4"},
        {lorvMergeRestrictColumns, "8400/8400/8400"},
        {lorvMergeRestrictAll, "8400/8400/8400"},
    };
    for (const auto& c : cases) {
        Fill({"xxyz", "aaaa", "bbbb"});
        MergeAllRows();
        SetMode(c.Mode);
        EXPECT_EQ(Rebuilt(), c.Links) << c.Mode;
    }
}

TEST_F(Merging, TheFirstDataRowIsNotRestricted)
{
    Fill({"xyz", "aaa", "bbc"});
    SetFixedCounts(grid, 1, 0, 0, 0);
    MergeAllRows();
    SetMode(lorvMergeRestrictColumns);
    EXPECT_EQ(Rebuilt(), "000/8C4/840");
    Put(1, 0, L"z");
    EXPECT_EQ(Rebuilt(), "000/084/000");
}

TEST_F(Merging, ARowWithoutCellsRestrictsNothingBelowIt)
{
    Fill({"xy", "..", "aa"});
    MergeAllRows();
    SetMode(lorvMergeRestrictColumns);
    EXPECT_EQ(Rebuilt(), "00/00/84");
    EnsureRowCells(grid, 1);
    EXPECT_EQ(Rebuilt(), "00/00/00");
}

TEST_F(Merging, ARowWithoutCellsIsNotRestrictedItself)
{
    Fill({"...", "..."});
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    MergeAllCols();
    SetMode(lorvMergeRestrictRows);
    EXPECT_EQ(Rebuilt(), "020/010");
    EXPECT_EQ(Rebuilt(), "000/000") << "now that they have cells";
}

TEST_F(Merging, FixedOnlyLeavesTheDataApart)
{
    Fill({"aaaa", "aaaa", "aaaa", "aaaa"});
    SetFixedCounts(grid, 2, 2, 0, 0);
    SetMode(lorvMergeFixedOnly);
    MergeAllCols();
    EXPECT_EQ(Rebuilt(), "2222/1111/2200/1100");
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].MergeCol = 0;
    MergeAllRows();
    EXPECT_EQ(Rebuilt(), "8484/8484/8400/8400");
}

TEST_F(Merging, FixedOnlyWithoutFixedCellsMergesNothing)
{
    Fill({"aa", "aa"});
    MergeAllRows();
    MergeAllCols();
    SetMode(lorvMergeFixedOnly);
    EXPECT_EQ(Rebuilt(), "00/00");
}

// --- both passes

// A region whose own mode is "never" is not left alone while the other region merges. Hosts rely on it.
TEST_F(Merging, NeverIsFreeWhileTheOtherRegionMerges)
{
    Fill({"aaa", "aaa", "aaa"});
    SetFixedCounts(grid, 1, 1, 0, 0);
    MergeAllCols();
    SetModes(lorvMergeNever, lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "000/222/111");
    SetModes(lorvMergeFree, lorvMergeNever);
    EXPECT_EQ(Rebuilt(), "000/222/111");
    SetModes(lorvMergeFixedOnly, lorvMergeNever);
    EXPECT_EQ(Rebuilt(), "000/222/111") << "the data merges, although the fixed cells alone are to";
}

TEST_F(Merging, EachRegionFollowsItsOwnMode)
{
    Fill({"xaa", "xaa", "yaa", "zaa"});
    MergeAllCols();
    SetFixedCounts(grid, 0, 2, 0, 0); // the restricted column is fixed, the last one is not
    SetModes(lorvMergeRestrictRows, lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "222/113/003/001");
    SetFixedCounts(grid, 0, 1, 0, 0);
    SetModes(lorvMergeFree, lorvMergeFixedOnly);
    EXPECT_EQ(Rebuilt(), "200/100/000/000");
    EXPECT_EQ(grid.MergeCellsFixed, lorvMergeFree);
    EXPECT_EQ(grid.MergeCells, lorvMergeFixedOnly);
}

// --- when, and what a rebuild leaves

TEST_F(Merging, WithRedrawOffTheOldLinksStayAndRemainStale)
{
    Fill({"a", "a"});
    MergeAllCols();
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "2/1");
    Put(1, 0, L"b");
    grid.Redraw = lorvRDNone;
    long rebuilds = MergeRebuilds();
    RebuildMergeLinks(grid);
    EXPECT_EQ(Links(), "2/1");
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    EXPECT_EQ(MergeRebuilds(), rebuilds);
    grid.Redraw = lorvRDBuffered;
    RebuildMergeLinks(grid);
    EXPECT_EQ(Links(), "0/0");
}

TEST_F(Merging, ARebuildStartsFromNoLinksAndKeepsBoxes)
{
    Fill({"ab", "cd"});
    Check(0, 0, lorvDisabled);
    Link(0, 0, MergeLinkMask);
    Link(1, 1, MergeLinkMask);
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "00/00");
    EXPECT_EQ(grid.RowTable[0].Cells[0].State, lorvDisabled << CheckStateShift);
}

TEST_F(Merging, RowsWithoutCellsStayWithoutThem)
{
    Fill({"a.", "..", ".."});
    MergeAllRows();
    MergeAllCols();
    for (int mode : {lorvMergeFree, lorvMergeRestrictAll, lorvMergeSpill, lorvMergeOutline}) {
        SetMode(mode);
        Rebuilt();
        EXPECT_EQ(grid.RowTable[1].Cells, nullptr) << mode;
        EXPECT_EQ(grid.RowTable[2].Cells, nullptr) << mode;
    }
}

TEST_F(Merging, IncludeNullsGivesEveryRowItsCells)
{
    Fill({"..", ".."});
    SetMode(lorvMergeFree);
    grid.MergeCompare = lorvMCIncludeNulls;
    EXPECT_EQ(Rebuilt(), "00/00");
    EXPECT_NE(grid.RowTable[0].Cells, nullptr);
    EXPECT_NE(grid.RowTable[1].Cells, nullptr);
    MergeAllCols();
    EXPECT_EQ(Rebuilt(), "22/11");
}

TEST_F(Merging, ATextSourceGivesEveryRowItsCells)
{
    FakeSource source;
    for (bool custom : {false, true}) {
        Fill({"..", ".."});
        SetMode(lorvMergeFree);
        Rebuilt();
        EXPECT_EQ(grid.RowTable[1].Cells, nullptr);
        grid.BoundKind = custom ? BoundNone : BoundToGrid;
        grid.BoundGrid = custom ? nullptr : &other;
        grid.LorvDataSource = custom ? &source : nullptr;
        Rebuilt();
        EXPECT_NE(grid.RowTable[0].Cells, nullptr) << custom;
        EXPECT_NE(grid.RowTable[1].Cells, nullptr) << custom;
        grid.BoundKind = BoundNone;
        grid.BoundGrid = nullptr;
        grid.LorvDataSource = nullptr;
    }
}

TEST_F(Merging, ABooleanColumnJoinsRowsThatHaveNoCellsYet)
{
    Fill({"..", "..", ".."});
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    MergeAllCols();
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "02/03/01");
    Put(1, 1, L"-1");
    EXPECT_EQ(Rebuilt(), "00/00/00");
}

TEST_F(Merging, ABoundGridMergesByTheOtherGridsTexts)
{
    ResizeBoth(other, 3, 2);
    for (int row = 0; row < 3; ++row)
        SetCellText(other, row, 0, L"same");
    Fill({"..", "..", ".."});
    grid.BoundKind = BoundToGrid;
    grid.BoundGrid = &other;
    MergeAllCols();
    SetMode(lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "20/30/10");
    EXPECT_EQ(MergeLinksOf(other, 0, 0), 0);
    grid.BoundKind = BoundNone;
    grid.BoundGrid = nullptr;
}

TEST_F(Merging, MemoryThatRunsOutLeavesRowsWithoutLinks)
{
    WithEachAllocationFailing([] {
        Grid grid;
        ResizeBoth(grid, 3, 2);
        if (grid.Rows != 3 || grid.Cols != 2)
            return;
        SetFixedCounts(grid, 0, 0, 0, 0);
        grid.MergeCompare = lorvMCIncludeNulls;
        grid.MergeCells = grid.MergeCellsFixed = lorvMergeFree;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].MergeCol = 1;
        MarkMergeStale(grid);
        RebuildMergeLinks(grid);
        for (int row = 0; row + 1 < grid.Rows; ++row) {
            bool below = MergeLinksOf(grid, row, 0) & LinkBelow;
            EXPECT_EQ(below, (MergeLinksOf(grid, row + 1, 0) & LinkAbove) != 0);
        }
    });
}

TEST_F(Merging, TenThousandTextsRebuildNothing)
{
    ResizeBoth(grid, 1000, 10);
    MergeAllRows();
    MergeAllCols();
    SetMode(lorvMergeFree);
    RebuildMergeLinks(grid);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    long rebuilds = MergeRebuilds();
    for (int row = 0; row < 1000; ++row)
        for (int col = 0; col < 10; ++col)
            Put(row, col, row % 3 ? L"a" : L"b");
    EXPECT_EQ(MergeRebuilds(), rebuilds);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    RebuildMergeLinks(grid);
    EXPECT_EQ(MergeRebuilds(), rebuilds + 1);
    EXPECT_EQ(RangeOf(1, 1), "1,1-2,1");
}

TEST_F(Merging, ReadersFollowTheLinksAsTheyAre)
{
    Fill({"a", "a"});
    MergeAllCols();
    SetMode(lorvMergeFree);
    long rebuilds = MergeRebuilds();
    EXPECT_EQ(RangeOf(0, 0), "0,0-0,0");
    CellRect(grid, 0, 0);
    RepaintCell(grid, 0, 0);
    EXPECT_EQ(MergeRebuilds(), rebuilds);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST_F(Merging, ABoxInAMergedCellAsksForTheLinks)
{
    Fill({"a", "a"});
    MergeAllCols();
    SetMode(lorvMergeFree);
    grid.Row = grid.RowSel = grid.Col = grid.ColSel = 0;
    long rebuilds = MergeRebuilds();
    EXPECT_EQ(SetCellPropertySelection(grid, CellSelector::CheckState, lorvChecked), S_OK);
    EXPECT_EQ(MergeRebuilds(), rebuilds + 1);
    EXPECT_EQ(CheckStateOf(grid, 1, 0), lorvChecked);
}

TEST_F(Merging, WhatCanChangeTheLinksMakesThemStale)
{
    struct {
        const char* Name;
        void (*Change)(Grid&);
    } const changes[] = {
        {"text", [](Grid& g) { SetCellText(g, 1, 1, L"new"); }},
        {"no text", [](Grid& g) { SetCellText(g, 1, 1, nullptr); }},
        {"box", [](Grid& g) { SetCheckState(g, 1, 1, lorvChecked); }},
        {"box of a boolean column", [](Grid& g) { SetCheckState(g, 1, 0, lorvChecked); }},
        {"more rows", [](Grid& g) { ResizeRows(g, 5); }},
        {"fewer rows", [](Grid& g) { ResizeRows(g, 3); }},
        {"more columns", [](Grid& g) { ResizeCols(g, 5); }},
        {"fewer columns", [](Grid& g) { ResizeCols(g, 3); }},
        {"fixed counts", [](Grid& g) { SetFixedCounts(g, 1, -1, -1, -1); }},
        {"row moved", [](Grid& g) { MoveRow(g, 0, 2); }},
        {"column moved", [](Grid& g) { MoveCol(g, 0, 2); }},
        {"row added", [](Grid& g) { AddItem(g, L"x", 1); }},
        {"row removed", [](Grid& g) { RemoveItem(g, 1); }},
        {"cleared", [](Grid& g) { ClearCells(g, lorvClearEverywhere, lorvClearEverything); }},
        {"sorted", [](Grid& g) { SortRange(g, lorvSortStringDescending, 0, 3, 1, 1); }},
        {"frozen", [](Grid& g) { SetFrozenRows(g, 1); }},
    };
    for (const auto& change : changes) {
        Fill({".a..", ".b..", ".c..", ".d.."});
        grid.ColTable[0].ColDataType = lorvDTBoolean;
        SetOption(grid, OptionMergeStale, false);
        change.Change(grid);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale)) << change.Name;
    }
}

TEST_F(Merging, TheSameTextMakesNothingStale)
{
    Fill({"a."});
    SetOption(grid, OptionMergeStale, false);
    Put(0, 0, L"a");
    Put(0, 1, L"");
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
}

// --- ranges

TEST_F(Merging, ARangeFollowsTheLinksOfItsOwnRowAndColumn)
{
    Fill({"...", "...", "..."});
    MergeAllRows();
    MergeAllCols();
    SetMode(lorvMergeFree);
    Link(1, 0, LinkRight);
    Link(1, 1, LinkLeft | LinkRight | LinkBelow);
    Link(1, 2, LinkLeft);
    Link(2, 1, LinkAbove);
    EXPECT_EQ(RangeOf(1, 0), "1,0-1,2");
    EXPECT_EQ(RangeOf(1, 1), "1,0-2,2");
    EXPECT_EQ(RangeOf(2, 1), "1,1-2,1");
    EXPECT_EQ(RangeOf(0, 0), "0,0-0,0");
    grid.ColTable[1].MergeCol = 0;
    EXPECT_EQ(RangeOf(1, 1), "1,0-1,2") << "the column does not merge";
    grid.RowTable[1].MergeRow = 0;
    EXPECT_EQ(RangeOf(1, 1), "1,1-1,1") << "the row does not merge";
    SetMode(lorvMergeNever);
    EXPECT_EQ(RangeOf(1, 0), "1,0-1,0");
}

TEST_F(Merging, ARangeEndsAtTheEdgeAndAtARowWithoutCells)
{
    Fill({"..", "..", "..", ".."});
    MergeAllRows();
    MergeAllCols();
    SetMode(lorvMergeFree);
    Link(1, 0, MergeLinkMask);
    EXPECT_EQ(RangeOf(1, 0), "0,0-2,1");
    Link(0, 0, MergeLinkMask);
    Link(2, 0, MergeLinkMask);
    Link(3, 0, MergeLinkMask);
    EXPECT_EQ(RangeOf(2, 0), "0,0-3,1");
    EXPECT_EQ(RangeOf(-1, 0), "-1,0--1,0");
    EXPECT_EQ(RangeOf(4, 2), "4,2-4,2");
}

TEST_F(Merging, RowsMergeByPermissionSpillOrSubtotal)
{
    struct {
        int Fixed, Scrollable;
        bool MergeRow, Subtotal, Merges;
    } const cases[] = {
        {lorvMergeFree, lorvMergeFree, false, true, false},
        {lorvMergeFree, lorvMergeFree, true, false, true},
        {lorvMergeSpill, lorvMergeNever, false, false, true},
        {lorvMergeNever, lorvMergeSpill, false, false, true},
        {lorvMergeOutline, lorvMergeNever, false, false, false},
        {lorvMergeOutline, lorvMergeNever, false, true, true},
        {lorvMergeNever, lorvMergeOutline, false, true, true},
    };
    Fill({"."});
    for (const auto& c : cases) {
        SetModes(c.Fixed, c.Scrollable);
        grid.RowTable[0].MergeRow = c.MergeRow;
        grid.RowTable[0].Flags = static_cast<uint8_t>(c.Subtotal ? int{RowFlagSubtotal} : 0);
        EXPECT_EQ(RowMerges(grid, 0), c.Merges) << c.Fixed << c.Scrollable << c.MergeRow << c.Subtotal;
    }
}

// --- spilling texts

class Spilling : public Merging
{
protected:
    static constexpr int Width = 20;
    static constexpr const wchar_t* Long = L"a text that is wider than its column";

    Spilling()
    {
        FillBlank(6);
        SetMode(lorvMergeSpill);
    }
    void FillBlank(int cols)
    {
        Fill({std::string(static_cast<size_t>(cols), '.').c_str()});
        for (int col = 0; col < cols; ++col)
            grid.ColTable[col].Width = Width;
    }
    int Measured(const wchar_t* text, HFONT font = nullptr)
    {
        ScreenDC screen;
        SelectedObject selected(screen.Get(), font ? font : GridFontHandle(grid));
        SIZE size = {};
        GetTextExtentPoint32W(screen.Get(), text, lstrlenW(text), &size);
        return size.cx;
    }
    // Whether the text in the first cell needs just that width, to the pixel.
    void ExpectNeeds(int width, const char* what)
    {
        grid.ColTable[0].Width = width;
        EXPECT_EQ(Rebuilt()[0], '0') << what;
        grid.ColTable[0].Width = width - 1;
        EXPECT_EQ(Rebuilt()[0], '8') << what;
    }
};

TEST_F(Spilling, ATextThatFitsStays)
{
    Put(0, 0, Long);
    ExpectNeeds(Measured(Long) + 8, "text and margins");
}

TEST_F(Spilling, ATextTakesTheColumnsThatItNeeds)
{
    Put(0, 0, Long);
    int needed = Measured(Long) + 8;
    grid.ColTable[0].Width = needed - 2 * Width;
    EXPECT_EQ(Rebuilt(), "8C4000");
    grid.ColTable[0].Width = needed - 2 * Width - 1;
    EXPECT_EQ(Rebuilt(), "8CC400");
    grid.ColTable[0].Width = 1;
    grid.ColTable[3].Width = 0;
    grid.ColTable[1].Width = needed - 1;
    EXPECT_EQ(Rebuilt(), "840000");
    EXPECT_EQ(RangeOf(0, 1), "0,0-0,1") << "without any permission of the row";
}

TEST_F(Spilling, ATextEndsAtTheLastColumn)
{
    Put(0, 4, Long);
    EXPECT_EQ(Rebuilt(), "000084");
    Put(0, 5, Long);
    EXPECT_EQ(Rebuilt(), "000000");
}

TEST_F(Spilling, ATextStopsAtTheNextText)
{
    Put(0, 0, Long);
    Put(0, 2, L"b");
    EXPECT_EQ(Rebuilt(), "840000");
    Put(0, 1, L"b");
    EXPECT_EQ(Rebuilt(), "000000");
}

// A box whose word is empty stands in no text's way, and yet needs the margins of a text for itself.
TEST_F(Spilling, AnEmptyTextStopsNothing)
{
    Put(0, 0, Long);
    SetColFormat(grid, 1, L"Yes;");
    Check(0, 1, lorvUnchecked);
    grid.ColTable[0].Width = Measured(Long) + 8 - Width;
    EXPECT_EQ(Rebuilt(), "840000");
    Check(0, 1, lorvChecked);
    EXPECT_EQ(Rebuilt()[0], '0');
    Put(0, 0, nullptr);
    Check(0, 1, lorvUnchecked);
    EXPECT_EQ(Rebuilt(), "000000");
    grid.ColTable[1].Width = 7;
    EXPECT_EQ(Rebuilt(), "084000");
}

TEST_F(Spilling, ATextStopsAtAPicture)
{
    Put(0, 0, Long);
    FakePicture picture;
    Format(0, 2).Picture = picture.Get();
    picture.AddRef();
    EXPECT_EQ(Rebuilt(), "840000");
    SetCellProperty(grid, 0, 2, CellSelector::Picture, static_cast<IPictureDisp*>(nullptr));
}

TEST_F(Spilling, ATextStopsAtTheLastFrozenColumn)
{
    Put(0, 0, Long);
    SetFixedCounts(grid, 0, 0, 0, 2);
    EXPECT_EQ(Rebuilt(), "840000");
    SetFixedCounts(grid, 0, 1, 0, 0);
    EXPECT_EQ(Rebuilt(), "000000");
}

// With frozen columns the last of them is the only boundary. Hosts rely on it.
TEST_F(Spilling, ATextLeavesTheFixedColumnsForTheFrozenOnes)
{
    Put(0, 0, Long);
    SetFixedCounts(grid, 0, 1, 0, 2);
    EXPECT_EQ(Rebuilt(), "8C4000");
}

TEST_F(Spilling, EveryTextSpillsForItself)
{
    Put(0, 0, Long);
    Put(0, 3, Long);
    EXPECT_EQ(Rebuilt(), "8C48C4");
}

TEST_F(Spilling, PermissionsChangeNothing)
{
    Put(0, 0, L"b");
    Put(0, 1, L"b");
    MergeAllRows();
    MergeAllCols();
    EXPECT_EQ(Rebuilt(), "000000");
}

TEST_F(Spilling, OnlyTheFirstLineCounts)
{
    Put(0, 0, L"ab\ra text that is wider than its column");
    ExpectNeeds(Measured(L"ab") + 8, "carriage return");
    Put(0, 0, L"ab\na text that is wider than its column");
    ExpectNeeds(Measured(L"ab") + 8, "line feed");
}

TEST_F(Spilling, TheShownTextIsMeasured)
{
    Put(0, 0, L"1");
    SetColFormat(grid, 0, L"0.000000");
    std::wstring shown = GetDisplayText(grid, 0, 0);
    EXPECT_GT(shown.size(), 6u);
    ExpectNeeds(Measured(shown.c_str()) + 8, "format");
}

TEST_F(Spilling, TheCellsFontIsMeasured)
{
    Put(0, 0, Long);
    ASSERT_EQ(SetCellProperty(grid, 0, 0, CellSelector::FontSize, 20.0f), S_OK);
    int larger = Measured(Long, Format(0, 0).Font);
    EXPECT_GT(larger, Measured(Long));
    ExpectNeeds(larger + 8, "font of the cell");
    FillBlank(6);
    Put(0, 0, L"ab"); // and the grid's font comes back
    ASSERT_EQ(SetCellProperty(grid, 0, 0, CellSelector::FontSize, 20.0f), S_OK);
    grid.ColTable[0].Width = 500;
    Put(0, 1, Long);
    grid.ColTable[1].Width = Measured(Long) + 8;
    EXPECT_EQ(Rebuilt(), "000000");
}

TEST_F(Spilling, TheIndentCountsTwice)
{
    Put(0, 0, Long);
    grid.ColTable[0].Indent = 7;
    ExpectNeeds(Measured(Long) + 8 + 14, "indent");
}

TEST_F(Spilling, TheTreeTakesRoomInTheOutlineColumn)
{
    Put(0, 0, Long);
    int plain = Measured(Long) + 8;
    ShowOutline(0);
    grid.RowTable[0].OutlineLevel = 1;
    ExpectNeeds(plain + 2 * DpiScale(13), "second level");
    grid.RowTable[0].OutlineLevel = 0;
    ExpectNeeds(plain + DpiScale(13), "first level");
    grid.RowTable[0].OutlineLevel = -1;
    ExpectNeeds(plain, "the grand total has no level");
    grid.RowTable[0].OutlineLevel = 1;
    grid.OutlineCol = 1;
    ExpectNeeds(plain, "another column");
    grid.OutlineCol = 0;
    grid.OutlineBar = lorvOutlineBarNone;
    ExpectNeeds(plain, "no bar");
    ShowOutline(0);
    SetFixedCounts(grid, 1, 0, 0, 0);
    ExpectNeeds(plain, "a fixed row");
}

ComPtr<IPictureDisp> WidePicture()
{
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 30, 8);
    ReleaseDC(nullptr, screen);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap;
    ComPtr<IPictureDisp> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.PutVoid());
    return picture;
}

TEST_F(Spilling, APictureBesideTheTextTakesRoom)
{
    ComPtr<IPictureDisp> picture = WidePicture();
    ASSERT_TRUE(picture);
    Put(0, 0, Long);
    ASSERT_EQ(SetCellProperty(grid, 0, 0, CellSelector::Picture, picture.Get()), S_OK);
    int plain = Measured(Long) + 8;
    struct {
        uint8_t Alignment;
        bool Counts;
    } const cases[] = {
        {Unset, true},
        {lorvPicAlignLeftTop, true},
        {lorvPicAlignLeftCenter, true},
        {lorvPicAlignLeftBottom, true},
        {lorvPicAlignCenterTop, false},
        {lorvPicAlignCenterCenter, false},
        {lorvPicAlignCenterBottom, false},
        {lorvPicAlignRightTop, true},
        {lorvPicAlignRightCenter, true},
        {lorvPicAlignRightBottom, true},
        {lorvPicAlignStretch, false},
        {lorvPicAlignTile, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Alignment);
        Format(0, 0).PictureAlignment = c.Alignment;
        SetOption(grid, OptionPicturesOver, false);
        ExpectNeeds(plain + (c.Counts ? 30 : 0), "picture beside the text");
        SetOption(grid, OptionPicturesOver, true);
        ExpectNeeds(plain, "picture over the text");
    }
}

TEST_F(Spilling, AHiddenColumnStartsNoSpillAndCountsForNothing)
{
    Put(0, 0, Long);
    grid.ColTable[0].ColFlags |= ColFlagHidden;
    EXPECT_EQ(Rebuilt(), "000000");
    grid.ColTable[0].ColFlags = 0;
    grid.ColTable[1].ColFlags |= ColFlagHidden;
    grid.ColTable[0].Width = Measured(Long) + 8 - Width;
    EXPECT_EQ(Rebuilt(), "8C4000") << "the hidden column is passed over, the next one is needed";
}

TEST_F(Spilling, EachRegionSpillsByItsOwnMode)
{
    SetFixedCounts(grid, 0, 1, 0, 2);
    Put(0, 0, Long);
    Put(0, 3, Long);
    SetModes(lorvMergeSpill, lorvMergeNever);
    EXPECT_EQ(Rebuilt(), "8C4000");
    SetModes(lorvMergeNever, lorvMergeSpill);
    EXPECT_EQ(Rebuilt(), "0008C4");
}

// --- subtotals that take their row

class MergedSubtotalRows : public Merging
{
protected:
    void FillSubtotal(const char* cells)
    {
        Fill({cells, cells});
        grid.RowTable[0].Flags |= RowFlagSubtotal;
        SetMode(lorvMergeOutline);
    }
};

TEST_F(MergedSubtotalRows, EachTextTakesTheEmptyCellsAtItsRight)
{
    FillSubtotal(".a..b.");
    EXPECT_EQ(Rebuilt(), "08C484/000000");
    EXPECT_EQ(RangeOf(0, 3), "0,1-0,3");
    EXPECT_EQ(RangeOf(1, 1), "1,1-1,1");
}

TEST_F(MergedSubtotalRows, EachRegionTakesThemByItsOwnMode)
{
    FillSubtotal("xa..");
    SetFixedCounts(grid, 0, 1, 0, 0);
    SetModes(lorvMergeOutline, lorvMergeFree);
    EXPECT_EQ(Rebuilt(), "0000/0000");
    SetFixedCounts(grid, 1, 0, 0, 0);
    EXPECT_EQ(Rebuilt(), "08C4/0000") << "a subtotal among the fixed rows";
    SetModes(lorvMergeFree, lorvMergeOutline);
    EXPECT_EQ(Rebuilt(), "0000/0000");
}

TEST_F(MergedSubtotalRows, FixedColumnsDoNotTakePart)
{
    FillSubtotal("a..b..");
    SetFixedCounts(grid, 0, 2, 0, 0);
    EXPECT_EQ(Rebuilt(), "0008C4/000000");
}

TEST_F(MergedSubtotalRows, AHiddenColumnTakesNothing)
{
    FillSubtotal("a..");
    grid.ColTable[0].ColFlags |= ColFlagHidden;
    EXPECT_EQ(Rebuilt(), "000/000");
}

// The step over the last frozen column sets no link, but the walk goes on behind it. Hosts rely on it.
TEST_F(MergedSubtotalRows, TheFrozenBoundaryIsLeftOutAndTheWalkGoesOn)
{
    FillSubtotal("a.....");
    SetFixedCounts(grid, 0, 0, 0, 2);
    EXPECT_EQ(Rebuilt(), "848CC4/000000");
    EXPECT_EQ(RangeOf(0, 0), "0,0-0,1");
    EXPECT_EQ(RangeOf(0, 5), "0,2-0,5");
}

TEST_F(MergedSubtotalRows, ATextCountsByItsPointer)
{
    FillSubtotal("a..");
    grid.RowTable[0].Cells[1].Text = DuplicateText(L"");
    EXPECT_EQ(Rebuilt(), "084/000") << "an empty text is one as well";
}

TEST_F(MergedSubtotalRows, TheLastColumnTakesNothing)
{
    FillSubtotal("..a");
    EXPECT_EQ(Rebuilt(), "000/000");
}

// --- rectangles

// 8 rows of 20 by 8 columns of 50 pixels, one of each fixed.
class MergedRectangles : public Merging
{
protected:
    RECT client = {};
    int right = 0; // of the client area

    MergedRectangles()
    {
        Fill(
            {"........", "........", "........", "........", "........", "........", "........", "........"});
        SetFixedCounts(grid, 1, 1, 0, 0);
        for (int row = 0; row < grid.Rows; ++row)
            grid.RowTable[row].Height = 20;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = 50;
        grid.Extent = {HimetricOf(400), HimetricOf(300)};
        right = HimetricToPixelsX(grid.Extent.cx);
        client = {0, 0, right, HimetricToPixelsY(grid.Extent.cy)};
        MergeAllRows();
        MergeAllCols();
        SetMode(lorvMergeFree);
        grid.TopRow = grid.LeftCol = 1;
    }
    static LONG HimetricOf(int pixels) { return MulDiv(pixels, 2540, LogPixelsX()); }

    void LinkRows(int first, int last, int col)
    {
        for (int row = first; row < last; ++row)
            Link(row, col, LinkBelow), Link(row + 1, col, LinkAbove);
    }
    void LinkCols(int row, int first, int last)
    {
        for (int col = first; col < last; ++col)
            Link(row, col, LinkRight), Link(row, col + 1, LinkLeft);
    }
    RECT Own(int row, int col)
    {
        RECT own = {ColX(grid, col), RowY(grid, row), 0, 0};
        own.right = own.left + 50, own.bottom = own.top + 20;
        return own;
    }
    std::string Merged(int row, int col) { return Merged(row, col, Own(row, col), client); }
    std::string Merged(int row, int col, RECT area, const RECT& bounds)
    {
        if (!MergedPaintRect(grid, row, col, area, bounds))
            return "none";
        char text[80];
        std::snprintf(text, sizeof(text), "%ld,%ld-%ld,%ld", area.left, area.top, area.right, area.bottom);
        return text;
    }
    static std::string Text(int left, int top, int right, int bottom)
    {
        char text[80];
        std::snprintf(text, sizeof(text), "%d,%d-%d,%d", left, top, right, bottom);
        return text;
    }
};

TEST_F(MergedRectangles, AreOnlyForMergedCells)
{
    LinkRows(2, 4, 2);
    EXPECT_EQ(Merged(5, 2), "none");
    EXPECT_EQ(Merged(2, 3), "none");
    EXPECT_EQ(Merged(-1, 2, {1, 2, 3, 4}, client), "none");
    EXPECT_EQ(Merged(2, 8, {1, 2, 3, 4}, client), "none");
    SetMode(lorvMergeNever);
    EXPECT_EQ(Merged(3, 2), "none");
}

TEST_F(MergedRectangles, CoverTheRangeFromAnyOfItsCells)
{
    LinkRows(2, 4, 2);
    for (int row = 2; row <= 4; ++row)
        EXPECT_EQ(Merged(row, 2), "100,40-150,100") << row;
    LinkCols(5, 2, 4);
    for (int col = 2; col <= 4; ++col)
        EXPECT_EQ(Merged(5, col), "100,100-250,120") << col;
}

TEST_F(MergedRectangles, AreCutAtTheScrollPosition)
{
    LinkRows(2, 4, 2);
    grid.TopRow = 3;
    EXPECT_EQ(Merged(3, 2), "100,20-150,60");
    EXPECT_EQ(Merged(4, 2), "100,20-150,60");
    grid.TopRow = 5;
    EXPECT_EQ(Merged(4, 2), "100,-40-150,20") << "a range that is wholly scrolled away is not cut";
    grid.TopRow = 1;
    LinkCols(5, 2, 4);
    grid.LeftCol = 3;
    EXPECT_EQ(Merged(5, 3), "50,100-150,120");
    EXPECT_EQ(Merged(5, 4), "50,100-150,120");
    grid.LeftCol = 5;
    EXPECT_EQ(Merged(5, 4), "-100,100-50,120");
}

TEST_F(MergedRectangles, OfACellThatIsScrolledAwayGrowTowardsTheRest)
{
    LinkRows(2, 4, 2);
    grid.TopRow = 3;
    EXPECT_EQ(Merged(2, 2), "100,0-150,60");
    grid.TopRow = 1;
    LinkCols(5, 2, 4);
    grid.LeftCol = 3;
    EXPECT_EQ(Merged(5, 2), "0,100-150,120");
}

TEST_F(MergedRectangles, GrowTheOtherWayFromRightToLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    LinkCols(5, 2, 4);
    for (int col = 2; col <= 4; ++col)
        EXPECT_EQ(Merged(5, col), Text(right - 250, 100, right - 100, 120)) << col;
    grid.LeftCol = 3;
    EXPECT_EQ(Merged(5, 4), Text(right - 150, 100, right - 50, 120));
    EXPECT_EQ(Merged(5, 3), Text(right - 150, 100, right - 50, 120));
}

TEST_F(MergedRectangles, FollowTheClientAreaThatIsPaintedFromRightToLeft)
{
    SetOption(grid, OptionRightToLeft, true);
    LinkCols(5, 2, 4);
    RECT page = client;
    page.right += 100;
    RECT own = Own(5, 3);
    OffsetRect(&own, 100, 0);
    EXPECT_EQ(Merged(5, 3, own, page), Text(right - 150, 100, right, 120));
}

TEST_F(MergedRectangles, EndOnePixelPastTheClientArea)
{
    LinkRows(2, 4, 2);
    LinkCols(5, 2, 4);
    RECT small = {0, 0, 130, 50};
    EXPECT_EQ(Merged(3, 2, Own(3, 2), small), "100,40-131,51");
    EXPECT_EQ(Merged(5, 2, Own(5, 2), {0, 0, 250, 120}), "100,100-250,120");
    EXPECT_EQ(Merged(5, 2, Own(5, 2), {0, 0, 249, 119}), "100,100-250,120");
    EXPECT_EQ(Merged(5, 2, Own(5, 2), {0, 0, 200, 110}), "100,100-201,111");
}

TEST_F(MergedRectangles, CountHiddenRowsAndColumnsForNothing)
{
    LinkRows(2, 4, 2);
    grid.RowTable[3].Flags |= RowFlagHidden;
    EXPECT_EQ(Merged(2, 2), "100,40-150,80");
    LinkCols(5, 2, 4);
    grid.ColTable[4].ColFlags |= ColFlagHidden;
    EXPECT_EQ(Merged(5, 2), "100,80-200,100");
}

// --- the general case beside a plain model of it

// Computes the links of a small grid step by step from copies of what the grid holds.
class Model
{
public:
    explicit Model(Grid& grid) : grid_(grid)
    {
        for (int row = 0; row < grid.Rows; ++row) {
            hasCells_.push_back(grid.RowTable[row].Cells != nullptr || grid.MergeCompare == 3);
            texts_.emplace_back();
            for (int col = 0; col < grid.Cols; ++col) {
                const wchar_t* text = GetCellText(grid, row, col);
                texts_.back().push_back(text ? text : L"");
            }
        }
        links_.assign(grid.Rows, std::vector<int>(grid.Cols, 0));
        for (bool fixed : {true, false}) {
            int mode = fixed ? grid.MergeCellsFixed : grid.MergeCells;
            for (int col = 0; col < grid.Cols; ++col)
                if (grid.ColTable[col].MergeCol)
                    Down(col, mode, fixed);
            for (int row = 0; row < grid.Rows; ++row)
                if (grid.RowTable[row].MergeRow)
                    Across(row, mode, fixed);
        }
    }

    std::string Links() const
    {
        std::string links;
        for (size_t row = 0; row < links_.size(); ++row) {
            links += row ? "/" : "";
            for (int link : links_[row])
                links += HexDigits[link];
        }
        return links;
    }

private:
    bool IsFixed(int row, int col) const { return row < grid_.FixedRows || col < grid_.FixedCols; }
    bool IsBoolean(int row, int col) const
    {
        return grid_.ColTable[col].ColDataType == lorvDTBoolean && row >= grid_.FixedRows;
    }
    bool IsTotal(int row) const { return grid_.RowTable[row].Flags & RowFlagSubtotal; }
    int Box(int row, int col) const
    {
        int stored = grid_.RowTable[row].Cells ? grid_.RowTable[row].Cells[col].State >> 4 : 0;
        if (!IsBoolean(row, col) || (texts_[row][col].empty() && IsTotal(row)))
            return stored;
        return texts_[row][col] == L"1" ? 1 : 2; // the only one of the model's texts that reads as true
    }
    static std::wstring Lowered(std::wstring text)
    {
        for (wchar_t& c : text)
            c = c == L'A' ? L'a' : c;
        return text;
    }
    static std::wstring Trimmed(std::wstring text)
    {
        while (!text.empty() && text.back() == L' ')
            text.pop_back();
        return text;
    }
    bool SameTexts(const std::wstring& x, const std::wstring& y, int box) const
    {
        if (grid_.MergeCompare != 3 && x.empty() && y.empty())
            return box != 0;
        if (grid_.MergeCompare == 1)
            return Lowered(x) == Lowered(y);
        if (grid_.MergeCompare == 2)
            return Trimmed(Lowered(x)) == Trimmed(Lowered(y));
        return x == y;
    }
    bool Joins(int r1, int c1, int r2, int c2) const
    {
        auto part = [](int index, int fixed, int frozen) {
            return index < fixed ? 0 : index < fixed + frozen ? 1 : 2;
        };
        if (part(r1, grid_.FixedRows, grid_.FrozenRows) != part(r2, grid_.FixedRows, grid_.FrozenRows) ||
            part(c1, grid_.FixedCols, grid_.FrozenCols) != part(c2, grid_.FixedCols, grid_.FrozenCols))
            return false;
        if (Box(r1, c1) != Box(r2, c2))
            return false;
        bool outline = grid_.OutlineBar != 0 && grid_.OutlineLevelCount != 0;
        if (outline && c1 == grid_.OutlineCol && c2 == c1 && (IsTotal(r1) || IsTotal(r2)))
            return false;
        return SameTexts(texts_[r1][c1], texts_[r2][c2], Box(r1, c1));
    }
    void Down(int col, int mode, bool fixed)
    {
        for (int row = 0; row + 1 < grid_.Rows; ++row) {
            if (IsFixed(row, col) != fixed)
                continue;
            if (!hasCells_[row] && grid_.ColTable[col].ColDataType != lorvDTBoolean)
                continue;
            if (mode == 5 && col >= grid_.FixedCols && row >= grid_.FixedRows - 1)
                break;
            if ((mode == 2 || mode == 4) && hasCells_[row] && col != 0 && col != grid_.FixedCols &&
                !(links_[row][col - 1] & 2))
                continue;
            if (!Joins(row, col, row + 1, col))
                continue;
            hasCells_[row] = hasCells_[row + 1] = true;
            links_[row][col] |= 2, links_[row + 1][col] |= 1;
        }
    }
    void Across(int row, int mode, bool fixed)
    {
        if (!hasCells_[row])
            return;
        for (int col = 0; col + 1 < grid_.Cols; ++col) {
            if (IsFixed(row, col) != fixed || (links_[row][col] & 3) || (links_[row][col + 1] & 3))
                continue;
            if (mode == 5 && row >= grid_.FixedRows && col >= grid_.FixedCols - 1)
                break;
            if ((mode == 3 || mode == 4) && row != 0 && row != grid_.FixedRows && hasCells_[row - 1] &&
                !(links_[row - 1][col] & 8))
                continue;
            if (Joins(row, col, row, col + 1))
                links_[row][col] |= 8, links_[row][col + 1] |= 4;
        }
    }

    Grid& grid_;
    std::vector<bool> hasCells_;
    std::vector<std::vector<std::wstring>> texts_;
    std::vector<std::vector<int>> links_;
};

TEST_F(Merging, RandomGridsLinkAsTheModelSays)
{
    std::mt19937 random(20);
    auto upTo = [&](int last) { return static_cast<int>(random() % static_cast<unsigned>(last + 1)); };
    const wchar_t* const texts[] = {L"a", L"a", L"a", L"A", L"a ", L"1", L""};
    int linked = 0;
    for (int round = 0; round < 400; ++round) {
        ResizeBoth(grid, 0, 0);
        ResizeBoth(grid, 1 + upTo(6), 1 + upTo(6));
        int fixedRows = std::min(upTo(2), grid.Rows), fixedCols = std::min(upTo(2), grid.Cols);
        SetFixedCounts(grid, fixedRows, fixedCols, std::min(upTo(2), grid.Rows - fixedRows),
                       std::min(upTo(2), grid.Cols - fixedCols));
        for (int col = 0; col < grid.Cols; ++col) {
            grid.ColTable[col].MergeCol = upTo(3) != 0;
            grid.ColTable[col].ColDataType = upTo(5) ? lorvDTEmpty : lorvDTBoolean;
        }
        for (int row = 0; row < grid.Rows; ++row) {
            grid.RowTable[row].MergeRow = upTo(3) != 0;
            grid.RowTable[row].Flags = static_cast<uint8_t>(upTo(4) ? 0 : int{RowFlagSubtotal});
            for (int col = 0; upTo(4) != 0 && col < grid.Cols; ++col)
                Put(row, col, texts[upTo(6)]);
            for (int col = 0; grid.RowTable[row].Cells && col < grid.Cols; ++col)
                if (upTo(5) == 0)
                    grid.RowTable[row].Cells[col].State = lorvChecked << CheckStateShift;
        }
        ShowOutline(upTo(grid.Cols - 1));
        for (int variant = 0; variant < 8; ++variant) {
            grid.OutlineBar = static_cast<int16_t>(upTo(1));
            grid.MergeCompare = static_cast<int16_t>(upTo(3));
            SetModes(upTo(5), 1 + upTo(4));
            std::string expected = Model(grid).Links();
            std::string links = Rebuilt();
            ASSERT_EQ(links, expected) << "round " << round << " variant " << variant << " modes "
                                       << grid.MergeCellsFixed << grid.MergeCells;
            linked += links.find_first_not_of("0/") != std::string::npos;
        }
    }
    EXPECT_GT(linked, 800) << "the rounds are to have something to link";
}

} // namespace
