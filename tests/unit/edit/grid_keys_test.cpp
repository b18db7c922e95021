// Keys at the grid's own window that start an edit, or belong to one that runs.

#include "support/edit_grid.h"

namespace
{
constexpr DISPID KeyDownId = -602, KeyPressId = -603, KeyUpId = -604;

class GridKeys : public EditTest
{
protected:
    int Count(DISPID id) const { return live.events.Count(id); }
    std::string Send(UINT message, WPARAM wParam)
    {
        live.Fired();
        SendMessageW(grid.Window, message, wParam, 1);
        return live.Fired();
    }
    std::string AltDown()
    {
        HeldKeys alt{VK_MENU};
        return Send(WM_SYSKEYDOWN, VK_DOWN);
    }
    bool Types(int character)
    {
        Send(WM_CHAR, static_cast<WPARAM>(character));
        live.Pump();
        bool open = live.IsOpen();
        CommitEdit(grid, true);
        SetFocus(grid.Window);
        return open;
    }
};
} // namespace

// An editor that is open

TEST_F(GridKeys, KeysBelongToTheOpenEditor)
{
    live.Open();
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F1), "KeyDownEdit(112)");
    EXPECT_EQ(Send(WM_KEYUP, VK_F1), "KeyUpEdit(112)");
    EXPECT_EQ(Count(KeyDownId), 0);
    EXPECT_EQ(Count(KeyUpId), 0);
}

TEST_F(GridKeys, CharactersArePostedToTheOpenEditor)
{
    live.Open();
    EXPECT_EQ(Send(WM_CHAR, 'x'), "");
    live.Pump();
    EXPECT_EQ(live.Fired().substr(0, 17), "KeyPressEdit(120)");
    EXPECT_EQ(Count(KeyPressId), 0);
}

TEST_F(GridKeys, AMarkedKeyIsPostedOnce)
{
    live.Open();
    grid.EditFlags |= EditFlagPostNextKey;
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F1), "");
    live.Pump();
    EXPECT_EQ(live.Fired(), "KeyDownEdit(112)");
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F1), "KeyDownEdit(112)");
}

TEST_F(GridKeys, KeysOfADropDownAreItsOwnToo)
{
    EXPECT_EQ(grid.put_ColComboList(1, Bstr(L"One|Two").Get()), S_OK);
    live.Open();
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F1), "KeyDownEdit(112)");
    CommitEdit(grid, true);
    EXPECT_EQ(grid.put_ColComboList(1, Bstr(L"|One|Two").Get()), S_OK);
    live.Open();
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F1), "KeyDownEdit(112)");
}

// Keys that open one

TEST_F(GridKeys, F2IsNoKeyWhenItEdits)
{
    Send(WM_KEYDOWN, VK_F2);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(Count(KeyDownId), 0);
}

TEST_F(GridKeys, F2IsAKeyWhenItDoesNot)
{
    live.Refuse(BeforeEditId);
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F2), "BeforeEdit(1,1)");
    EXPECT_EQ(Count(KeyDownId), 1);
    live.act = nullptr;
    live.GoTo(0, 1);
    Send(WM_KEYDOWN, VK_F2);
    EXPECT_EQ(Count(KeyDownId), 2);
    grid.Editable = lorvEDNone;
    live.GoTo(1, 1);
    Send(WM_KEYDOWN, VK_F2);
    EXPECT_EQ(Count(KeyDownId), 3);
    EXPECT_FALSE(live.IsOpen());
}

TEST_F(GridKeys, CharactersOpenAnEditorButControlCharactersDoNot)
{
    for (int character : {32, 33, 97, 0x7F, 0xE9, 0x4E00, 0xAC00, VK_RETURN})
        EXPECT_TRUE(Types(character)) << character;
    for (int character : {1, 3, 8, 9, 10, 22, 24, 27, 31})
        EXPECT_FALSE(Types(character)) << character;
}

TEST_F(GridKeys, NothingOpensWhereNothingCanBeEdited)
{
    live.GoTo(0, 1);
    EXPECT_FALSE(Types('a'));
    live.GoTo(1, 0);
    EXPECT_FALSE(Types('a'));
    live.GoTo(-1, 1);
    EXPECT_FALSE(Types('a'));
    live.GoTo(1, 1);
    grid.Editable = lorvEDNone;
    EXPECT_FALSE(Types('a'));
    EXPECT_EQ(Count(KeyPressId), 4);
}

TEST_F(GridKeys, AHandlerOfKeyPressHasTheLastWord)
{
    live.On(KeyPressId, [](DISPPARAMS& parameters) { *parameters.rgvarg[0].piVal = 0; });
    EXPECT_FALSE(Types('a'));
    live.On(KeyPressId, [](DISPPARAMS& parameters) { *parameters.rgvarg[0].piVal = 'z'; });
    Send(WM_CHAR, 27);
    live.Pump();
    EXPECT_EQ(live.Shown(), L"z");
}

TEST_F(GridKeys, TheEnterThatEndsASearchEditsNothing)
{
    grid.AutoSearch = lorvSearchFromTop;
    Send(WM_CHAR, 'q');
    ASSERT_TRUE(grid.IsSearching);
    EXPECT_EQ(Send(WM_CHAR, VK_RETURN), "EndAutoSearch");
    EXPECT_FALSE(live.IsOpen());
    Send(WM_CHAR, VK_RETURN);
    EXPECT_TRUE(live.IsOpen()); // the next one does
}

// Alt+Down

TEST_F(GridKeys, AltDownOpensTheColumnsListAtOnce)
{
    EXPECT_EQ(grid.put_ColComboList(1, Bstr(L"One|Two").Get()), S_OK);
    EXPECT_EQ(AltDown().substr(0, 33), "BeforeEdit(1,1) StartEdit(1,1) Se");
    EXPECT_EQ(grid.ActiveEditor, EditorCombo);
    EXPECT_EQ(Count(KeyDownId), 1);
}

TEST_F(GridKeys, AltDownAsksForAList)
{
    EXPECT_EQ(AltDown(), "BeforeEdit(1,1)");
    EXPECT_FALSE(live.IsOpen());
    live.On(BeforeEditId, [this](DISPPARAMS&) { grid.put_ComboList(Bstr(L"One|Two").Get()); });
    EXPECT_EQ(AltDown().substr(0, 46), "BeforeEdit(1,1) BeforeEdit(1,1) StartEdit(1,1)");
    EXPECT_EQ(grid.ActiveEditor, EditorCombo);
}

// What the handler says about cancelling counts when the edit itself asks.
TEST_F(GridKeys, AltDownDoesNotHeedTheFirstCancel)
{
    int asked = 0;
    live.On(BeforeEditId, [&](DISPPARAMS& parameters) {
        grid.put_ComboList(Bstr(L"One|Two").Get());
        if (++asked == 1)
            *parameters.rgvarg[0].pboolVal = VARIANT_TRUE;
    });
    AltDown();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(grid.ActiveEditor, EditorCombo);
}

// Focus

TEST_F(GridKeys, TheGridsFocusEndsAnEditOnlyOnItsWayOut)
{
    live.Open();
    SendMessageW(grid.Window, WM_KILLFOCUS, reinterpret_cast<WPARAM>(live.Box()), 0);
    EXPECT_TRUE(live.IsOpen());
    SendMessageW(grid.Window, WM_KILLFOCUS, reinterpret_cast<WPARAM>(other_), 0);
    EXPECT_FALSE(live.IsOpen());
}

TEST_F(GridKeys, TheOpenEditorGetsTheFocusThatTheGridGets)
{
    live.Open();
    SetFocus(grid.Window);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(GetFocus(), live.Box());
    CommitEdit(grid, true);
    SetFocus(grid.Window);
    EXPECT_EQ(GetFocus(), grid.Window);
}
