// A sort that comes while a cell is edited.

#include "support/edit_grid.h"

namespace
{
class SortWhileEditing : public EditTest
{
protected:
    // The editor is open on the first of three rows, with another text typed in.
    void SetUp() override
    {
        const wchar_t* texts[] = {L"c", L"b", L"a"};
        for (int row = 1; row <= 3; ++row)
            live.Put(row, 1, texts[row - 1]);
        live.GoTo(1, 1);
        live.Open();
        live.Type(L"bb");
        live.Fired();
    }
    std::wstring Order()
    {
        std::wstring order;
        for (int row = 1; row <= 3; ++row)
            order += live.Text(row, 1) + L" ";
        return order;
    }
};

TEST_F(SortWhileEditing, EndsTheEditAndSortsWhatWasTyped)
{
    grid.RowSel = 3;
    EXPECT_EQ(grid.put_Sort(lorvSortStringAscending), S_OK);
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(Order(), L"a b bb ");
}

TEST_F(SortWhileEditing, DoesNothingWhenTheEditIsRefused)
{
    live.Refuse(ValidateEditId);
    grid.SortIndicatorCol = 3;
    EXPECT_EQ(grid.put_Sort(lorvSortStringAscending), S_OK);
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1)");
    EXPECT_EQ(Order(), L"c b a ");
    EXPECT_EQ(grid.SortIndicatorCol, 3);
}

TEST_F(SortWhileEditing, OfNoneLeavesTheEditOpen)
{
    EXPECT_EQ(grid.put_Sort(lorvSortNone), S_OK);
    EXPECT_EQ(live.Fired(), "");
    EXPECT_TRUE(live.IsOpen());
}

TEST_F(SortWhileEditing, OfNoKnownOrderLeavesTheEditOpen)
{
    EXPECT_EQ(grid.put_Sort(static_cast<SortSettings>(11)), LORV_E_VALUE);
    EXPECT_EQ(live.Fired(), "");
    EXPECT_TRUE(live.IsOpen());
}

// A sort of named cells asks nobody.
TEST_F(SortWhileEditing, OfNamedCellsLeavesTheEditOpen)
{
    EXPECT_EQ(
        grid.put_Cell(lorvcpSort, Value(1), Value(1), Value(3), Value(1), Value(lorvSortStringAscending)),
        S_OK);
    EXPECT_EQ(live.Fired(), "");
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(Order(), L"a b c ");
}
} // namespace
