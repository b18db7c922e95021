// Edits under a mask, by a user's keys.

#include "support/edit_grid.h"

#include "edit/mask.h"
#include "platform/bstr.h"

namespace
{
class MaskedEdit : public EditTest
{
protected:
    void Open(const wchar_t* mask, const wchar_t* text = L"", int key = EditSelectAll)
    {
        grid.put_EditMask(Bstr(mask).Get());
        live.Put(1, 1, text);
        live.Open(key);
    }
};
const std::string opening = "BeforeEdit(1,1) StartEdit(1,1) SetupEditStyle ChangeEdit SetupEditWindow";
} // namespace

TEST_F(MaskedEdit, FiresItsEventsInOrder)
{
    Open(L"00");
    EXPECT_EQ(live.Fired(), opening);
    EXPECT_EQ(live.Shown(), L"__");
    live.Select(0, 0);
    live.Press('1');
    live.Type(L"1");
    live.Release('1');
    EXPECT_EQ(live.Fired(), "KeyDownEdit(49) KeyPressEdit(49) ChangeEdit KeyUpEdit(49)");
    live.Type(L"2");
    live.Fired();
    live.Press(VK_RETURN);
    EXPECT_EQ(live.Fired(), "KeyDownEdit(13) KeyPressEdit(13) ChangeEdit ValidateEdit(1,1) CellChanged(1,1) "
                            "AfterEdit(1,1)");
    EXPECT_EQ(live.Text(1, 1), L"12");
}

TEST_F(MaskedEdit, ShapesWhatIsTyped)
{
    Open(L"(###) ###-####", L"", '5');
    live.Type(L"551234567");
    EXPECT_EQ(live.Shown(), L"(555) 123-4567");
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Text(1, 1), L"(555) 123-4567");
}

TEST_F(MaskedEdit, RefusesWhatDoesNotFit)
{
    Open(L"LL");
    live.Select(0, 0);
    live.Type(L"a1");
    EXPECT_EQ(live.Shown(), L"a_");
    EXPECT_EQ(live.Selected(), "1-1");
}

TEST_F(MaskedEdit, OvertypesInPlace)
{
    Open(L"00-00", L"12-34");
    live.Select(0, 0);
    live.Type(L"987");
    EXPECT_EQ(live.Shown(), L"98-74");
    EXPECT_EQ(live.Selected(), "4-4");
}

TEST_F(MaskedEdit, TheCaretJumpsOverLiteralsAndBackspaceDoesNot)
{
    Open(L"00-00");
    live.Select(0, 0);
    live.Type(L"12");
    EXPECT_EQ(live.Selected(), "3-3");
    live.Type(L"\b");
    EXPECT_EQ(live.Selected(), "2-2");
    EXPECT_EQ(live.Shown(), L"12-__");
    live.Type(L"\b");
    EXPECT_EQ(live.Selected(), "1-1");
}

TEST_F(MaskedEdit, StoresOptionalPositionsAsBlanks)
{
    Open(L"99");
    live.Select(0, 0);
    live.Type(L"1");
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Text(1, 1), L"1 ");
}

TEST_F(MaskedEdit, AnIncompleteMaskArrivesCancelled)
{
    Open(L"00", L"1");
    live.Fired();
    EXPECT_FALSE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "ChangeEdit ValidateEdit(1,1)!");
    live.Pump();
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(live.Shown(), L"1_");
}

TEST_F(MaskedEdit, AHandlerMayAcceptAnIncompleteMask)
{
    Open(L"00", L"1");
    live.On(ValidateEditId, [](DISPPARAMS& parameters) { *parameters.rgvarg[0].pboolVal = VARIANT_FALSE; });
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Text(1, 1), L"1_");
}

TEST_F(MaskedEdit, TheGridsMaskComesBeforeTheColumns)
{
    grid.put_ColEditMask(1, Bstr(L"00").Get());
    Open(L"LLL");
    EXPECT_EQ(live.Shown(), L"___");
    CommitEdit(grid, true);
    Open(L"");
    EXPECT_EQ(live.Shown(), L"__");
}

TEST_F(MaskedEdit, AMaskTakesThePlaceOfTheLimit)
{
    grid.EditMaxLength = 2;
    Open(L"&&&&");
    live.Select(0, 0);
    live.Type(L"abcd");
    EXPECT_EQ(live.Shown(), L"abcd");
}

TEST_F(MaskedEdit, AnEditWithoutAMaskForgetsTheLastOne)
{
    Open(L"00", L"1");
    CommitEdit(grid, true);
    Open(L"", L"x");
    EXPECT_FALSE(IsMaskActive());
    EXPECT_EQ(live.Shown(), L"x");
}

TEST_F(MaskedEdit, TextOfAProgramTakesTheShape)
{
    Open(L"00/00");
    live.Fired();
    grid.put_EditText(Bstr(L"1234").Get());
    EXPECT_EQ(live.Fired(), "ChangeEdit");
    EXPECT_EQ(live.Shown().size(), 5u);
    EXPECT_EQ(live.Shown().substr(0, 2), L"12");
}

TEST_F(MaskedEdit, AHandlerThatSetsTheTextIsNotToldOfIt)
{
    Open(L"LL");
    live.Fired();
    live.On(ChangeEditId, [this](DISPPARAMS&) { grid.put_EditText(Bstr(L"ab").Get()); });
    live.Select(0, 0);
    live.Type(L"x");
    EXPECT_EQ(live.Shown(), L"ab");
    EXPECT_EQ(live.Fired(), "KeyPressEdit(120) ChangeEdit");
}

TEST_F(MaskedEdit, SurvivesHandlersThatTakeTheMaskAway)
{
    for (DISPID id : {SetupEditStyleId, ChangeEditId, KeyPressEditId, ValidateEditId}) {
        live.On(id, [this](DISPPARAMS&) { grid.put_EditMask(nullptr); });
        Open(L"CC-00", L"a");
        live.Type(L"b");
        live.Press(VK_RETURN);
        live.act = nullptr;
        CommitEdit(grid, true);
        live.Pump();
        CommitEdit(grid, true);
        EXPECT_EQ(grid.EditMask, nullptr) << id;
    }
}

TEST_F(MaskedEdit, TwoGridsEditInTurn)
{
    LiveGrid second(frame_);
    Open(L"00");
    EXPECT_EQ(live.Shown(), L"__");
    live.Select(0, 0);
    live.Type(L"12");
    second.grid.put_EditMask(Bstr(L"LLL").Get());
    SetFocus(second.grid.Window);
    EXPECT_EQ(live.Text(1, 1), L"12");
    second.Open();
    EXPECT_EQ(second.Shown(), L"___");
    second.Select(0, 0);
    second.Type(L"abc");
    SetFocus(grid.Window);
    EXPECT_EQ(second.Text(1, 1), L"abc");
}
