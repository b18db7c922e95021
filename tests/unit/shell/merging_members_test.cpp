#include "core/merge.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "platform/bstr.h"
#include "support/fakes.h"
#include "support/member_grid.h"
#include "support/pixels.h"

#include <utility>
#include <vector>

namespace
{
constexpr DISPID MergeCellsId = 62, MergeCompareId = 106, MergeCellsFixedId = 218, GroupCompareId = 219;

class MergingMembers : public testing::Test
{
protected:
    MemberGrid grid;
    PropertySink sink;
    Connection connection{grid.PropertySinks, &sink};

    MergingMembers() { grid.OptionWord &= ~OptionMergeStale; }

    bool TakeStale()
    {
        bool stale = HasOption(grid, OptionMergeStale);
        SetOption(grid, OptionMergeStale, false);
        return stale;
    }
    template<class T> T Read(HRESULT (STDMETHODCALLTYPE ILorvGrid::*get)(T*))
    {
        T value = {};
        EXPECT_EQ((grid.*get)(&value), S_OK);
        return value;
    }
};

TEST_F(MergingMembers, MergeCellsTakesOneModeForAllCellsOrTwoInOneNumber)
{
    const struct {
        int Put;
        HRESULT Code;
        int Fixed, Scrollable;
    } rows[] = {{3, S_OK, 3, 3},          {7, S_OK, 7, 7},          {8, LORV_E_VALUE, 7, 7},
                {99, LORV_E_VALUE, 7, 7}, {-1, LORV_E_VALUE, 7, 7}, {123, S_OK, 2, 3},
                {100, S_OK, 0, 0},        {199, S_OK, 9, 9}, // the digits are not checked
                {0, S_OK, 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Put);
        EXPECT_EQ(grid.put_MergeCells(static_cast<MergeSettings>(row.Put)), row.Code);
        EXPECT_EQ(grid.MergeCellsFixed, row.Fixed);
        EXPECT_EQ(grid.MergeCells, row.Scrollable);
        EXPECT_EQ(sink.Taken(), row.Code == S_OK ? std::vector<DISPID>{MergeCellsId} : std::vector<DISPID>{});
        EXPECT_EQ(TakeStale(), row.Code == S_OK);
    }
}

TEST_F(MergingMembers, MergeCellsFixedIsStoredAlone)
{
    EXPECT_EQ(grid.put_MergeCells(lorvMergeFree), S_OK);
    sink.Taken();
    TakeStale();
    EXPECT_EQ(grid.put_MergeCellsFixed(lorvMergeOutline), S_OK);
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCells), lorvMergeFree);
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCellsFixed), lorvMergeOutline);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{MergeCellsFixedId});
    EXPECT_TRUE(TakeStale());
    for (int bad : {-1, 8, 123})
        EXPECT_EQ(grid.put_MergeCellsFixed(static_cast<MergeSettings>(bad)), LORV_E_VALUE) << bad;
    EXPECT_FALSE(TakeStale());
}

TEST_F(MergingMembers, MergeCompareTakesItsValueAloneOrBothInOneNumber)
{
    const struct {
        int Put;
        HRESULT Code;
        int Group, Merge;
    } rows[] = {{2, S_OK, 0, 2},   {3, S_OK, 0, 3}, {4, LORV_E_VALUE, 0, 3}, {-1, LORV_E_VALUE, 0, 3},
                {121, S_OK, 2, 1}, {0, S_OK, 2, 0}, {187, S_OK, 8, 7}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Put);
        EXPECT_EQ(grid.put_MergeCompare(static_cast<MergeCompareSettings>(row.Put)), row.Code);
        EXPECT_EQ(grid.GroupCompare, row.Group);
        EXPECT_EQ(grid.MergeCompare, row.Merge);
        EXPECT_EQ(sink.Taken(),
                  row.Code == S_OK ? std::vector<DISPID>{MergeCompareId} : std::vector<DISPID>{});
        EXPECT_EQ(TakeStale(), row.Code == S_OK);
    }
}

TEST_F(MergingMembers, GroupCompareLeavesTheLinksAlone)
{
    EXPECT_EQ(grid.put_GroupCompare(lorvMCTrimNoCase), S_OK);
    EXPECT_EQ(Read(&ILorvGrid::get_GroupCompare), lorvMCTrimNoCase);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{GroupCompareId});
    EXPECT_FALSE(TakeStale());
    for (int bad : {-1, 4, 121})
        EXPECT_EQ(grid.put_GroupCompare(static_cast<MergeCompareSettings>(bad)), LORV_E_VALUE) << bad;
}

// One entry of a property stream holds both values.
TEST_F(MergingMembers, WhileSavingTwoValuesAreReadAsOneNumber)
{
    grid.MergeCells = 3, grid.MergeCellsFixed = 2;
    grid.MergeCompare = 1, grid.GroupCompare = 2;
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCells), 3);
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCompare), 1);
    grid.Saving = true;
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCells), 123);
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCompare), 121);
    grid.MergeCellsFixed = 3;
    grid.GroupCompare = 0;
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCells), 3) << "the modes are equal";
    EXPECT_EQ(Read(&ILorvGrid::get_MergeCompare), 1) << "nothing is grouped in a way of its own";
}

TEST_F(MergingMembers, PermissionsFollowTheRuleOfIndices)
{
    VARIANT_BOOL on = VARIANT_TRUE;
    EXPECT_EQ(grid.get_MergeRow(3, &on), S_OK);
    EXPECT_EQ(on, VARIANT_FALSE);
    EXPECT_EQ(grid.put_MergeRow(3, VARIANT_TRUE), S_OK);
    EXPECT_TRUE(TakeStale());
    EXPECT_EQ(grid.RowTable[3].MergeRow, 0xFF) << "the low byte";
    EXPECT_EQ(grid.put_MergeCol(2, 0x0104), S_OK);
    EXPECT_TRUE(TakeStale());
    EXPECT_EQ(grid.ColTable[2].MergeCol, 4);
    EXPECT_EQ(grid.get_MergeCol(2, &on), S_OK);
    EXPECT_EQ(on, VARIANT_TRUE) << "any byte that is not zero";
    EXPECT_EQ(grid.put_MergeCol(2, 0x0100), S_OK);
    EXPECT_EQ(grid.get_MergeCol(2, &on), S_OK);
    EXPECT_EQ(on, VARIANT_FALSE) << "the low byte is zero";

    EXPECT_EQ(grid.put_MergeRow(-1, VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.put_MergeCol(-9, VARIANT_TRUE), S_OK);
    for (int row = 0; row < grid.Rows; ++row)
        EXPECT_EQ(grid.RowTable[row].MergeRow, 0xFF);
    for (int col = 0; col < grid.Cols; ++col)
        EXPECT_EQ(grid.ColTable[col].MergeCol, 0xFF);
    TakeStale();
    EXPECT_EQ(grid.put_MergeRow(grid.Rows, VARIANT_TRUE), LORV_E_INDEX);
    EXPECT_EQ(grid.put_MergeCol(grid.Cols, VARIANT_TRUE), LORV_E_INDEX);
    EXPECT_FALSE(TakeStale());
    for (int bad : {-1, 50}) {
        EXPECT_EQ(grid.get_MergeRow(bad, &on), LORV_E_INDEX);
        EXPECT_EQ(grid.get_MergeCol(bad, &on), LORV_E_INDEX);
    }
    EXPECT_EQ(grid.get_MergeRow(0, nullptr), E_POINTER);
    EXPECT_EQ(grid.get_MergeCol(0, nullptr), E_POINTER);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{});
}

// In a window, with the top row far below the last one until a layout brings it back.
TEST_F(MergingMembers, RepaintWhatTheyChange)
{
    grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr,
                                  nullptr, nullptr);
    const struct {
        const char* Name;
        HRESULT (*Put)(MemberGrid&);
        bool Repaints, LaysOut;
    } members[] = {
        {"MergeCells", [](MemberGrid& g) { return g.put_MergeCells(lorvMergeFree); }, true, false},
        {"MergeCellsFixed", [](MemberGrid& g) { return g.put_MergeCellsFixed(lorvMergeFree); }, true, false},
        {"MergeCompare", [](MemberGrid& g) { return g.put_MergeCompare(lorvMCNoCase); }, true, false},
        {"GroupCompare", [](MemberGrid& g) { return g.put_GroupCompare(lorvMCNoCase); }, true, false},
        {"FormatString", [](MemberGrid& g) { return g.put_FormatString(Bstr(L"A|B").Get()); }, true, true},
        {"FormatString, empty", [](MemberGrid& g) { return g.put_FormatString(nullptr); }, true, true},
        {"ClipSeparators", [](MemberGrid& g) { return g.put_ClipSeparators(Bstr(L",;").Get()); }, false,
         false},
    };
    for (const auto& member : members) {
        SCOPED_TRACE(member.Name);
        grid.TopRow = 999;
        ValidateRect(grid.Window, nullptr);
        EXPECT_EQ(member.Put(grid), S_OK);
        EXPECT_EQ(GetUpdateRect(grid.Window, nullptr, FALSE) != FALSE, member.Repaints);
        EXPECT_EQ(grid.TopRow != 999, member.LaysOut);
    }
    DestroyWindow(std::exchange(grid.Window, nullptr));
}

class MergedRange : public MergingMembers
{
protected:
    LONG r1_ = -7, c1_ = -7, r2_ = -7, c2_ = -7;

    MergedRange()
    {
        for (int row : {3, 4, 5})
            SetCellText(grid, row, 2, L"same");
        grid.ColTable[2].MergeCol = 1;
    }
    HRESULT Ask(LONG row, LONG col) { return grid.GetMergedRange(row, col, &r1_, &c1_, &r2_, &c2_); }
    std::vector<LONG> RangeAt(LONG row, LONG col)
    {
        EXPECT_EQ(Ask(row, col), S_OK);
        return {r1_, c1_, r2_, c2_};
    }
};
using Corners = std::vector<LONG>;

TEST_F(MergedRange, IsTheCellItselfWithoutAMode)
{
    long before = MergeRebuilds();
    EXPECT_EQ(RangeAt(4, 2), (Corners{4, 2, 4, 2}));
    EXPECT_EQ(MergeRebuilds(), before);
}

TEST_F(MergedRange, AsksForFreshLinksOnce)
{
    grid.put_MergeCells(lorvMergeFree);
    long before = MergeRebuilds();
    EXPECT_EQ(RangeAt(4, 2), (Corners{3, 2, 5, 2}));
    EXPECT_EQ(RangeAt(3, 2), (Corners{3, 2, 5, 2}));
    EXPECT_EQ(RangeAt(6, 2), (Corners{6, 2, 6, 2}));
    EXPECT_EQ(MergeRebuilds(), before + 1);
}

TEST_F(MergedRange, TenThousandAssignmentsOfTextDoNoMergeWork)
{
    grid.put_Rows(1001);
    grid.put_MergeCells(lorvMergeFree);
    grid.put_MergeCol(-1, VARIANT_TRUE);
    RangeAt(4, 2);
    long before = MergeRebuilds();
    for (int row = 0; row < 1000; ++row)
        for (int col = 0; col < 10; ++col)
            ASSERT_EQ(grid.put_TextMatrix(row, col, Bstr(row % 2 ? L"a" : L"b").Get()), S_OK);
    EXPECT_EQ(MergeRebuilds(), before);
    EXPECT_TRUE(TakeStale());
}

TEST_F(MergedRange, ReportsTheOldLinksWhileRedrawIsOff)
{
    grid.put_MergeCells(lorvMergeFree);
    EXPECT_EQ(RangeAt(4, 2), (Corners{3, 2, 5, 2}));
    grid.Redraw = lorvRDNone;
    SetCellText(grid, 5, 2, L"other");
    EXPECT_EQ(RangeAt(4, 2), (Corners{3, 2, 5, 2}));
    grid.Redraw = lorvRDDirect;
    EXPECT_EQ(RangeAt(4, 2), (Corners{3, 2, 4, 2}));
}

TEST_F(MergedRange, RefusesCellsOutsideAndMissingResults)
{
    for (CellPos cell : {CellPos{-1, 0}, CellPos{0, -1}, CellPos{50, 0}, CellPos{0, 10}})
        EXPECT_EQ(Ask(cell.Row, cell.Col), LORV_E_INDEX) << cell.Row << "," << cell.Col;
    EXPECT_EQ(r1_, -7) << "nothing was written";
    EXPECT_EQ(grid.GetMergedRange(1, 1, nullptr, &c1_, &r2_, &c2_), E_POINTER);
    EXPECT_EQ(grid.GetMergedRange(1, 1, &r1_, &c1_, &r2_, nullptr), E_POINTER);
}

// The three places that rebuild: a paint, the range of a cell, a box in a merged range. Setters never do.
class MergedPainting : public PaintTest
{
};

TEST_F(MergedPainting, RebuildsWhatIsStale)
{
    grid.MergeCells = grid.MergeCellsFixed = lorvMergeFree;
    grid.ColTable[1].MergeCol = 1;
    SetCellText(grid, 1, 1, L"same");
    SetCellText(grid, 2, 1, L"same");
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    long before = MergeRebuilds();
    OnDraw(grid, {canvas.Get(), canvas.Get(), canvas.Area()});
    EXPECT_EQ(MergeRebuilds(), before + 1);
    OnDraw(grid, {canvas.Get(), canvas.Get(), canvas.Area()});
    EXPECT_EQ(MergeRebuilds(), before + 1);
}

TEST_F(MergedPainting, GivesEveryRowItsCellsWhereEmptyOnesJoin)
{
    grid.MergeCells = grid.MergeCellsFixed = lorvMergeFree;
    grid.MergeCompare = lorvMCIncludeNulls;
    SetOption(grid, OptionMergeStale, true);
    OnDraw(grid, {canvas.Get(), canvas.Get(), canvas.Area()});
    for (int row = 0; row < grid.Rows; ++row)
        EXPECT_NE(grid.RowTable[row].Cells, nullptr) << row;
}

// Clip strings

TEST(ClipMembers, AreNotReadByAFormDesigner)
{
    MemberGrid grid;
    Bstr text;
    grid.DesignModeCache = 1;
    EXPECT_EQ(grid.get_Clip(text.Put()), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_ClipSeparators(text.Put()), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.put_ClipSeparators(Bstr(L",;").Get()), S_OK);
    grid.DesignModeCache = 0;
    EXPECT_EQ(grid.get_ClipSeparators(text.Put()), S_OK);
    EXPECT_STREQ(text.Text(), L",;");
    EXPECT_EQ(grid.get_Clip(nullptr), E_POINTER);
    EXPECT_EQ(grid.get_ClipSeparators(nullptr), E_POINTER);
}

TEST(ClipMembers, AnEmptyClipIsANullText)
{
    MemberGrid grid;
    BSTR text = SysAllocString(L"before");
    SysFreeString(text);
    EXPECT_EQ(grid.get_Clip(&text), S_OK);
    EXPECT_EQ(text, nullptr);
}

TEST(ClipMembers, SeparatorsAreCheckedStoredAndNotified)
{
    MemberGrid grid;
    PropertySink sink;
    Connection connection{grid.PropertySinks, &sink};
    for (const wchar_t* bad : {L";", L",,", L",;|"})
        EXPECT_EQ(grid.put_ClipSeparators(Bstr(bad).Get()), LORV_E_VALUE);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{});
    EXPECT_EQ(grid.put_ClipSeparators(Bstr(L",;").Get()), S_OK);
    EXPECT_EQ(grid.put_ClipSeparators(nullptr), S_OK);
    EXPECT_EQ(sink.Taken(), (std::vector<DISPID>{182, 182}));
}
} // namespace
