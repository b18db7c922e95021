// Keys in the text editor: which of them stay with the text, and which lead to another cell.

#include "support/edit_grid.h"

namespace
{
class EditKeys : public EditTest
{
protected:
    // Opens an editor on the middle cell with a text and a selection in it.
    void OpenOn(const wchar_t* text, int start, int end)
    {
        CommitEdit(grid, true);
        live.GoTo(5, 2);
        live.Put(5, 2, text);
        live.Open();
        live.Select(start, end);
        live.Fired();
    }
};
} // namespace

TEST_F(EditKeys, LeaveOrStay)
{
    constexpr const wchar_t* word = L"word";
    constexpr const wchar_t* lines = L"one\r\ntwo\r\nsix";
    struct Case {
        int Key;
        const wchar_t* Text;
        int Start, End;
        const char* Cursor; // empty: the key stays
        bool RightToLeft = false;
    };
    const Case cases[] = {
        {VK_TAB, word, 2, 2, "5,3"},
        {VK_TAB, word, 0, 4, "5,3"},
        {VK_NEXT, word, 2, 2, "13,2"},
        {VK_PRIOR, word, 2, 2, "1,2"},
        {VK_END, word, 4, 4, "5,4"},
        {VK_END, word, 3, 3, ""},
        {VK_END, word, 0, 4, ""},
        {VK_HOME, word, 0, 0, "5,1"},
        {VK_HOME, word, 1, 1, ""},
        {VK_HOME, word, 0, 4, ""},
        {VK_LEFT, word, 0, 0, "5,1"},
        {VK_LEFT, word, 1, 1, ""},
        {VK_LEFT, word, 0, 4, ""},
        {VK_LEFT, L"", 0, 0, "5,1"},
        {VK_RIGHT, word, 4, 4, "5,3"},
        {VK_RIGHT, word, 3, 3, ""},
        {VK_RIGHT, word, 0, 4, ""},
        {VK_LEFT, word, 4, 4, "5,3", true},
        {VK_LEFT, word, 0, 0, "", true},
        {VK_RIGHT, word, 0, 0, "5,1", true},
        {VK_RIGHT, word, 4, 4, "", true},
        {VK_UP, word, 2, 2, "4,2"},
        {VK_UP, word, 0, 4, "4,2"},
        {VK_DOWN, word, 2, 2, "6,2"},
        {VK_UP, lines, 1, 1, "4,2"},
        {VK_UP, lines, 6, 6, ""},
        {VK_UP, lines, 0, 6, ""},
        {VK_DOWN, lines, 1, 1, ""},
        {VK_DOWN, lines, 11, 11, "6,2"},
        {VK_DOWN, lines, 6, 12, ""},
        {VK_F5, word, 2, 2, ""},
        {VK_INSERT, word, 4, 4, ""},
        {VK_DELETE, word, 4, 4, ""},
        {VK_BACK, word, 0, 0, ""},
        {'A', word, 4, 4, ""},
    };
    for (const Case& c : cases) {
        SetOption(grid, OptionRightToLeft, c.RightToLeft);
        OpenOn(c.Text, c.Start, c.End);
        live.Press(c.Key);
        std::string where = "key " + std::to_string(c.Key) + " at " + std::to_string(c.Start);
        EXPECT_EQ(live.IsOpen(), *c.Cursor == 0) << where;
        EXPECT_EQ(live.Cursor(), *c.Cursor ? c.Cursor : "5,2") << where;
        std::string asked = "KeyDownEdit(" + std::to_string(c.Key) + ")";
        EXPECT_EQ(live.Fired(), *c.Cursor ? asked + " ValidateEdit(5,2) AfterEdit(5,2)" : asked) << where;
    }
}

TEST_F(EditKeys, TheCaretMovesByTheKeysThatStay)
{
    OpenOn(L"word", 1, 1);
    live.Press(VK_LEFT);
    EXPECT_EQ(live.Selected(), "0-0");
    EXPECT_TRUE(live.IsOpen());
    live.Press(VK_LEFT);
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(GetFocus(), grid.Window);
}

TEST_F(EditKeys, EnterEndsTheEditWhereItIs)
{
    OpenOn(L"word", 4, 4);
    live.Type(L"s");
    live.Fired();
    live.Press(VK_RETURN);
    EXPECT_EQ(live.Fired(),
              "KeyDownEdit(13) KeyPressEdit(13) ValidateEdit(5,2) CellChanged(5,2) AfterEdit(5,2)");
    EXPECT_EQ(live.Cursor(), "5,2");
    EXPECT_EQ(live.Text(5, 2), L"words");
    EXPECT_EQ(GetFocus(), grid.Window);
}

TEST_F(EditKeys, EscapeKeepsTheOldTextAndTellsAfterEdit)
{
    OpenOn(L"word", 4, 4);
    live.Type(L"s");
    live.Fired();
    live.Press(VK_ESCAPE);
    EXPECT_EQ(live.Fired(), "KeyDownEdit(27) KeyPressEdit(27) AfterEdit(5,2)");
    EXPECT_EQ(live.Text(5, 2), L"word");
    EXPECT_EQ(live.Cursor(), "5,2");
    EXPECT_EQ(GetFocus(), grid.Window);
}

TEST_F(EditKeys, AHandlerOfKeyPressEditCanKeepEnterAndEscape)
{
    for (int key : {VK_RETURN, VK_ESCAPE}) {
        OpenOn(L"word", 4, 4);
        live.On(KeyPressEditId,
                [](DISPPARAMS& parameters) { *EventSink::Argument(parameters, 2).piVal = 0; });
        live.Press(key);
        EXPECT_TRUE(live.IsOpen()) << key;
        live.act = nullptr;
    }
}

TEST_F(EditKeys, AHandlerOfKeyDownEditCanTakeAKeyOrGiveAnother)
{
    short given = 0;
    live.On(KeyDownEditId,
            [&](DISPPARAMS& parameters) { *EventSink::Argument(parameters, 2).piVal = given; });
    OpenOn(L"word", 4, 4);
    live.Press(VK_TAB);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(live.Cursor(), "5,2");
    given = VK_DOWN;
    live.Press(VK_TAB);
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(live.Cursor(), "6,2");
}

TEST_F(EditKeys, KeysTellTheModifiers)
{
    OpenOn(L"word", 2, 2);
    short shift = -1;
    live.On(KeyDownEditId, [&](DISPPARAMS& parameters) { shift = EventSink::Argument(parameters, 3).iVal; });
    HeldKeys held({VK_SHIFT, VK_CONTROL});
    live.Press(VK_F5);
    EXPECT_EQ(shift, 3);
}

TEST_F(EditKeys, ShiftOrCtrlWithEnterBreaksTheLine)
{
    for (bool wraps : {false, true})
        for (int held : {VK_SHIFT, VK_CONTROL}) {
            SetOption(grid, OptionWordWrap, wraps);
            OpenOn(L"ab", 1, 1);
            {
                HeldKeys keys({held});
                live.Press(VK_RETURN);
                live.Type(held == VK_CONTROL ? L"\n" : L"\r"); // what the key types
            }
            EXPECT_TRUE(live.IsOpen());
            EXPECT_EQ(live.Shown(), L"a\r\nb");
        }
}

TEST_F(EditKeys, ALineFeedThatIsNoKeyGoesIn)
{
    OpenOn(L"ab", 1, 1);
    live.Type(L"\n");
    EXPECT_EQ(live.Shown(), L"a\r\nb");
}

TEST_F(EditKeys, CharactersComeTwiceAndSomeAreSwallowed)
{
    const struct {
        wchar_t Char;
        const wchar_t* Shown;
    } cases[] = {{L'x', L"abx"}, {9, L"ab"}, {13, L"ab"}, {27, L"ab"}, {127, L"ab"}, {8, L"a"}};
    for (const auto& c : cases) {
        OpenOn(L"ab", 2, 2);
        const wchar_t text[] = {c.Char, 0};
        live.Type(text);
        EXPECT_EQ(live.Shown(), c.Shown) << static_cast<int>(c.Char);
        EXPECT_EQ(live.Fired().substr(0, 13), "KeyPressEdit(");
        EXPECT_EQ(grid.LastKeyWasBackspace, c.Char == 8);
    }
}

TEST_F(EditKeys, AHandlerOfKeyPressEditGivesTheCharacter)
{
    short given = 'Z';
    live.On(KeyPressEditId,
            [&](DISPPARAMS& parameters) { *EventSink::Argument(parameters, 2).piVal = given; });
    OpenOn(L"ab", 2, 2);
    live.Type(L"x");
    EXPECT_EQ(live.Shown(), L"abZ");
    given = 0;
    live.Type(L"x");
    EXPECT_EQ(live.Shown(), L"abZ");
    given = static_cast<short>(0x9EC4);
    live.Type(L"x");
    EXPECT_EQ(live.Shown(), L"abZ\x9EC4");
}

TEST_F(EditKeys, KeysWithAltGoOnUnlessAHandlerTakesThem)
{
    constexpr LPARAM altHeld = 0x20000001;
    live.Open();
    for (bool taken : {false, true}) {
        live.On(KeyDownEditId, [&](DISPPARAMS& parameters) {
            if (taken)
                *EventSink::Argument(parameters, 2).piVal = 0;
        });
        live.Fired();
        SendMessageW(live.Box(), WM_SYSKEYDOWN, VK_F4, altHeld);
        EXPECT_EQ(live.Fired(), "KeyDownEdit(115)");
        MSG close = {};
        bool closes = PeekMessageW(&close, frame_, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE) != 0;
        EXPECT_EQ(closes, !taken);
    }
}

TEST_F(EditKeys, KeyUpIsTold)
{
    OpenOn(L"ab", 2, 2);
    SendMessageW(live.Box(), WM_SYSKEYUP, VK_F6, 1);
    SendMessageW(live.Box(), WM_KEYUP, VK_F7, 1);
    EXPECT_EQ(live.Fired(), "KeyUpEdit(117) KeyUpEdit(118)");
}

TEST_F(EditKeys, WantsEveryKeyOfItsDialog)
{
    live.Open();
    EXPECT_EQ(SendMessageW(live.Box(), WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
}

TEST_F(EditKeys, AHostReplacesTheMenuOfTheBox)
{
    live.Open();
    live.Fired();
    short button = 0;
    live.On(BeforeMouseDownId, [&](DISPPARAMS& parameters) {
        button = EventSink::Argument(parameters, 0).iVal;
        *parameters.rgvarg[0].pboolVal = VARIANT_TRUE;
    });
    SendMessageW(live.Box(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(live.Box()), MAKELPARAM(60, 30));
    EXPECT_EQ(live.Fired(), "BeforeMouseDown");
    EXPECT_EQ(button, 2);
}

TEST_F(EditKeys, TheFocusOfAnotherWindowEndsTheEdit)
{
    OpenOn(L"ab", 2, 2);
    live.Type(L"x");
    live.Fired();
    SetFocus(other_);
    live.Pump();
    EXPECT_EQ(live.Fired(), "ValidateEdit(5,2) CellChanged(5,2) AfterEdit(5,2)");
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(GetFocus(), other_);
    SetFocus(grid.Window);
    EXPECT_FALSE(live.IsOpen());
}

TEST_F(EditKeys, TheEditWaitsWhileAnotherApplicationHasTheFocus)
{
    OpenOn(L"ab", 2, 2);
    SendMessageW(live.Box(), WM_KILLFOCUS, 0, 0);
    EXPECT_TRUE(live.IsOpen());
    SendMessageW(live.Box(), WM_KILLFOCUS, reinterpret_cast<WPARAM>(grid.Window), 0);
    EXPECT_TRUE(live.IsOpen());
    SendMessageW(live.Box(), WM_KILLFOCUS, reinterpret_cast<WPARAM>(live.Box()), 0);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(live.Fired(), "");
}

TEST_F(EditKeys, TheGridHandsItsFocusToTheEditor)
{
    live.Open();
    SetFocus(grid.Window);
    live.Pump();
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(GetFocus(), live.Box());
}

TEST_F(EditKeys, ABurstOfChangesIsOneChange)
{
    OpenOn(L"", 0, 0);
    for (wchar_t c : {L'a', L'b', L'c'})
        PostMessageW(live.Box(), WM_CHAR, c, 1);
    live.Pump();
    EXPECT_EQ(live.Fired(), "KeyPressEdit(97) KeyPressEdit(98) KeyPressEdit(99) ChangeEdit");
}

TEST_F(EditKeys, AChangeComesOneMessageAfterItsKey)
{
    OpenOn(L"", 0, 0);
    SendMessageW(live.Box(), WM_CHAR, L'a', 1);
    EXPECT_EQ(live.Fired(), "KeyPressEdit(97)");
    live.Pump();
    EXPECT_EQ(live.Fired(), "ChangeEdit");
}

TEST_F(EditKeys, AChangeMadeByTheHandlerOfAChangeIsNone)
{
    OpenOn(L"", 0, 0);
    live.On(ChangeEditId, [this](DISPPARAMS&) { grid.put_EditText(Bstr(L"given").Get()); });
    live.Type(L"a");
    EXPECT_EQ(live.Fired(), "KeyPressEdit(97) ChangeEdit");
    EXPECT_EQ(live.Shown(), L"given");
}

TEST_F(EditKeys, KeysOfTheGridOpenTheEditor)
{
    live.Press(VK_F2);
    EXPECT_EQ(live.Fired(), "BeforeEdit(1,1) StartEdit(1,1) SetupEditStyle SetupEditWindow");
    CommitEdit(grid, true);
    SetFocus(grid.Window);
    SendMessageW(grid.Window, WM_CHAR, L'q', 1);
    live.Pump();
    EXPECT_EQ(live.Shown(), L"q");
    CommitEdit(grid, true);
    SetFocus(grid.Window);
    live.Put(1, 1, L"word");
    SendMessageW(grid.Window, WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(live.Selected(), "4-4");
}

TEST_F(EditKeys, AnInputMethodOpensTheEditor)
{
    grid.Editable = lorvEDNone;
    SendMessageW(grid.Window, WM_IME_STARTCOMPOSITION, 0, 0);
    EXPECT_FALSE(live.IsOpen());
    grid.Editable = lorvEDKbd;
    SendMessageW(grid.Window, WM_IME_STARTCOMPOSITION, 0, 0);
    EXPECT_TRUE(live.IsOpen());
}

TEST_F(EditKeys, TwoGridsEditInTurn)
{
    LiveGrid second(frame_);
    MoveWindow(second.grid.Window, 350, 0, 300, 200, FALSE);
    live.Open();
    live.Type(L"a");
    live.Fired();
    second.Open(); // its focus ends the edit of the first
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(live.Text(1, 1), L"a");
    EXPECT_TRUE(second.IsOpen());
    second.Type(L"b");
    live.Open();
    live.Type(L"c");
    live.Press(VK_RETURN);
    EXPECT_FALSE(second.IsOpen());
    EXPECT_EQ(second.Text(1, 1), L"b");
    EXPECT_EQ(live.Text(1, 1), L"c");
}
