// Members that rearrange the grid end a running edit first, and do nothing when it cannot be ended.

#include "support/edit_grid.h"

namespace
{
struct Case {
    const char* Name;
    HRESULT (*Call)(MemberGrid&);
};

HRESULT DragRow(MemberGrid& grid, LONG row)
{
    LONG position = -5;
    HRESULT result = grid.DragRow(row, &position);
    EXPECT_EQ(position, row) << "the row stays where it is";
    return result;
}

#define CALL(call) [](MemberGrid& g) -> HRESULT { return call; }
const Case cases[] = {
    {"Clear", CALL(g.Clear(missing, missing))},
    {"Clear, text of the selection", CALL(g.Clear(Value(lorvClearSelection), Value(lorvClearText)))},
    {"Clear, an unknown place", CALL(g.Clear(Value(9), missing))},
    {"RowPosition", CALL(g.put_RowPosition(3, 1))},
    {"RowPosition, outside", CALL(g.put_RowPosition(3, 99))},
    {"ColPosition", CALL(g.put_ColPosition(3, 1))},
    {"ColPosition, outside", CALL(g.put_ColPosition(3, 99))},
    {"DragRow", CALL(DragRow(g, 3))},
};
#undef CALL

class RefusedEditMembers : public EditTest
{
};
} // namespace

TEST_F(RefusedEditMembers, SucceedAndDoNothing)
{
    live.Put(3, 3, L"here");
    grid.RowTable[3].Status = lorvrsDeleted;
    for (const Case& member : cases) {
        SCOPED_TRACE(member.Name);
        live.Put(1, 1, L"old");
        live.Refuse(ValidateEditId);
        live.Open();
        live.Type(L"x");
        live.Fired();
        SetOption(grid, OptionMergeStale, false);
        EXPECT_EQ(member.Call(grid), S_OK);
        EXPECT_EQ(live.Fired(), "ValidateEdit(1,1)") << "asked once";
        EXPECT_EQ(live.Text(3, 3), L"here");
        EXPECT_EQ(live.Text(1, 1), L"old");
        EXPECT_EQ(grid.RowTable[3].Status, lorvrsDeleted);
        EXPECT_FALSE(HasOption(grid, OptionMergeStale));
        live.act = nullptr;
        LiveGrid::Pump();
        EXPECT_EQ(grid.FinishEditing(VARIANT_TRUE), S_OK);
    }
}

TEST_F(RefusedEditMembers, EndTheEditFirstWhenItCanBeEnded)
{
    live.Open();
    live.Type(L"x");
    EXPECT_EQ(grid.put_RowPosition(1, 3), S_OK);
    EXPECT_EQ(live.Text(3, 1), L"x") << "the text went where the edit began, and then with its row";
    EXPECT_FALSE(live.IsOpen());
}
