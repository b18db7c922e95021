// Keys, focus and the life of the window as a host sees them: whole sequences of events.

#include "support/hosted_grid.h"

#include <objbase.h>

namespace
{
class KeyboardOfHost : public HostedGrid
{
protected:
    void SetUp() override
    {
        HostedGrid::SetUp();
        other_ = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 400, 10, 50, 20,
                                 parent_, nullptr, nullptr, nullptr);
        events_.Take();
    }

    // A key as it comes from the queue, with the character that it types.
    std::string Type(int key, std::initializer_list<int> held = {})
    {
        HeldKeys keys(held);
        LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16 | 1;
        PostMessageW(window_, WM_KEYDOWN, key, scan);
        Pump();
        PostMessageW(window_, WM_KEYUP, key, scan | 0xC0000000);
        Pump();
        return events_.Take();
    }
    // A key under a dialog's message loop; whether the dialog left it to the grid.
    std::string TypeInDialog(int key)
    {
        HeldKeys none{};
        MSG message = {window_, WM_KEYDOWN, static_cast<WPARAM>(key), 1, 0, {}};
        if (!IsDialogMessageW(parent_, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        return events_.Take();
    }

    HWND other_ = nullptr;
};

// Answers the first argument, a key by reference.
EventTexts::Handler AnswerKey(short key)
{
    return [=](DISPPARAMS& parameters) { *parameters.rgvarg[parameters.cArgs - 1].piVal = key; };
}
constexpr DISPID KeyDownId = -602;
} // namespace

TEST_F(KeyboardOfHost, AKeyGoesDownTypesAndComesUp)
{
    EXPECT_EQ("KeyDown(65,0) KeyPress(97) KeyUp(65,0)", Type('A'));
    EXPECT_EQ("KeyDown(112,0) KeyUp(112,0)", Type(VK_F1));
}

TEST_F(KeyboardOfHost, AnArrowMovesTheCurrentCell)
{
    EXPECT_EQ(
        "KeyDown(40,0) LeaveCell BeforeRowColChange(1,1,2,1) BeforeSelChange(1,1,2,1) EnterCell RowColChange "
        "AfterRowColChange(1,1,2,1) SelChange AfterSelChange(1,1,2,1) KeyUp(40,0)",
        Type(VK_DOWN));
    EXPECT_EQ("2,1 to 2,1 at 1,1", Position());
}

TEST_F(KeyboardOfHost, APageScrollsOnTheWay)
{
    Press(VK_NEXT);
    EXPECT_EQ(
        "KeyDown(34,0) LeaveCell BeforeRowColChange(9,1,17,1) BeforeSelChange(9,1,17,1) "
        "BeforeScroll(1,1,10,1) AfterScroll(1,1,10,1) EnterCell RowColChange AfterRowColChange(9,1,17,1) "
        "SelChange AfterSelChange(9,1,17,1)",
        Press(VK_NEXT));
}

TEST_F(KeyboardOfHost, ShiftExtends)
{
    EXPECT_EQ("KeyDown(39,1) BeforeSelChange(1,1,1,2) SelChange AfterSelChange(1,1,1,2)",
              Press(VK_RIGHT, {VK_SHIFT}));
    EXPECT_EQ("1,1 to 1,2 at 1,1", Position());
}

TEST_F(KeyboardOfHost, AZeroedKeyNeitherMovesNorTypes)
{
    events_.On[KeyDownId] = AnswerKey(0);
    EXPECT_EQ("KeyDown(65,0) KeyUp(65,0)", Type('A'));
    EXPECT_EQ("KeyDown(40,0) KeyUp(40,0)", Type(VK_DOWN));
    EXPECT_EQ("1,1 to 1,1 at 1,1", Position());
}

TEST_F(KeyboardOfHost, ARefusedMoveLeavesTheCellAndScrolls)
{
    events_.On[6] = Cancel;
    EXPECT_EQ(
        "KeyDown(40,2) LeaveCell BeforeRowColChange(1,1,30,1) BeforeScroll(1,1,22,1) AfterScroll(1,1,22,1)",
        Press(VK_DOWN, {VK_CONTROL}));
    EXPECT_EQ("1,1 to 1,1 at 22,1", Position());
}

TEST_F(KeyboardOfHost, AListBoxReportsABurstOnce)
{
    grid_->put_SelectionMode(lorvSelectionListBox);
    for (int i = 0; i < 3; ++i)
        Press(VK_DOWN);
    Pump();
    EXPECT_EQ("EnterCell RowColChange AfterRowColChange(1,1,4,1) SelChange AfterSelChange(1,1,4,1)",
              events_.Take());
}

// Alt+Down

TEST_F(KeyboardOfHost, AltDownWithoutEditingIsAKey)
{
    HeldKeys alt{VK_MENU};
    Send(WM_SYSKEYDOWN, VK_DOWN);
    EXPECT_EQ("KeyDown(40,4)", events_.Take());
}

TEST_F(KeyboardOfHost, AltDownAsksForAListOnce)
{
    grid_->put_Editable(lorvEDKbd);
    HeldKeys alt{VK_MENU};
    Send(WM_SYSKEYDOWN, VK_DOWN);
    EXPECT_EQ("KeyDown(40,4) BeforeEdit(1,1)", events_.Take());
    Send(WM_SYSKEYDOWN, VK_UP);
    EXPECT_EQ("KeyDown(38,4)", events_.Take());
    events_.On[KeyDownId] = AnswerKey(0);
    Send(WM_SYSKEYDOWN, VK_DOWN);
    EXPECT_EQ("KeyDown(40,4)", events_.Take());
}

TEST_F(KeyboardOfHost, AltDownOnAFixedCellIsAKey)
{
    grid_->put_Editable(lorvEDKbd);
    grid_->put_Row(0);
    events_.Take();
    Send(WM_SYSKEYDOWN, VK_DOWN);
    EXPECT_EQ("KeyDown(40,0)", events_.Take());
}

// Under a dialog's message loop

TEST_F(KeyboardOfHost, TabIsTheDialogsUnlessCellsHaveIt)
{
    SetFocus(window_);
    events_.Take();
    EXPECT_EQ(std::string::npos, TypeInDialog(VK_TAB).find("KeyDown"));
    EXPECT_EQ(other_, GetFocus());
    grid_->put_TabBehavior(lorvTabCells);
    SetFocus(window_);
    events_.Take();
    EXPECT_EQ(
        "KeyDown(9,0) LeaveCell BeforeRowColChange(1,1,1,2) BeforeSelChange(1,1,1,2) EnterCell RowColChange "
        "AfterRowColChange(1,1,1,2) SelChange AfterSelChange(1,1,1,2)",
        TypeInDialog(VK_TAB));
    EXPECT_EQ(window_, GetFocus());
}

TEST_F(KeyboardOfHost, EnterIsTheDialogsUnlessItEdits)
{
    SetFocus(window_);
    events_.Take();
    EXPECT_EQ("", TypeInDialog(VK_RETURN));
    grid_->put_Editable(lorvEDKbd);
    EXPECT_EQ("KeyDown(13,0)", TypeInDialog(VK_RETURN));
}

TEST_F(KeyboardOfHost, ArrowsAreNeverTheDialogs)
{
    SetFocus(window_);
    Press(VK_RIGHT);
    TypeInDialog(VK_LEFT);
    EXPECT_EQ("1,1 to 1,1 at 1,1", Position());
    EXPECT_EQ(window_, GetFocus());
}

// Focus

TEST_F(KeyboardOfHost, TheFocusActivatesInTheHost)
{
    site_.Calls.clear();
    SetFocus(window_);
    EXPECT_EQ((std::vector<std::string>{"OnUIActivate", "ShowObject", "GotFocus"}), site_.Calls);
    EXPECT_EQ("SetFocus", events_.Take());
    site_.Calls.clear();
    SetFocus(other_);
    EXPECT_EQ(std::vector<std::string>{"LostFocus"}, site_.Calls);
    EXPECT_EQ("KillFocus", events_.Take());
}

TEST_F(KeyboardOfHost, TheHostHearsOfTheFocusBeforeTheEvent)
{
    site_.Calls.clear();
    std::vector<size_t> callsBefore;
    events_.On[83] = events_.On[84] = [&](DISPPARAMS&) { callsBefore.push_back(site_.Calls.size()); };
    SetFocus(window_);
    SetFocus(other_);
    EXPECT_EQ((std::vector<size_t>{3, 4}), callsBefore);
}

TEST_F(KeyboardOfHost, RedrawIsOffWhileTheHostActivates)
{
    auto redraw = [this] {
        RedrawSettings value = lorvRDDirect;
        grid_->get_Redraw(&value);
        return value;
    };
    std::map<std::string, RedrawSettings> during;
    site_.OnCall = [&](const std::string& call) { during[call] = redraw(); };
    for (auto setting : {lorvRDBuffered, lorvRDNone}) {
        grid_->put_Redraw(setting);
        SetFocus(window_);
        EXPECT_EQ(setting, redraw());
        EXPECT_EQ(lorvRDNone, during["OnUIActivate"]);
        EXPECT_EQ(lorvRDNone, during["GotFocus"]);
        SetFocus(other_);
        EXPECT_EQ(setting, redraw());
        EXPECT_EQ(setting, during["LostFocus"]);
    }
    site_.OnCall = nullptr;
}

TEST_F(KeyboardOfHost, AControlThatIsNotInPlaceTellsItsHostNothing)
{
    As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate();
    site_.Calls.clear();
    SetFocus(other_);
    EXPECT_EQ(0, site_.Count("LostFocus"));
}

// The life of the window

namespace
{
class WindowOfHost : public HostedControl
{
protected:
    LONG_PTR Style() { return GetWindowLongPtrW(Window(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL); }
    long TopRow()
    {
        LONG row = -1;
        grid_->get_TopRow(&row);
        return row;
    }
};
} // namespace

TEST_F(WindowOfHost, AScrollPositionThatWasSetBeforeItIsInForce)
{
    site_.Position = {0, 0, 300, 200};
    grid_->put_BorderStyle(lorvBorderNone);
    grid_->put_Rows(31);
    grid_->put_Cols(5);
    grid_->put_RowHeight(-1, 300);
    grid_->put_ColWidth(-1, 750);
    grid_->put_TopRow(10);
    HWND window = Activate();
    EXPECT_EQ(10, TopRow());
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(window, SB_VERT, &info);
    EXPECT_EQ(10 * 20, info.nPos);
}

TEST_F(WindowOfHost, AScrollPositionPastTheEndIsBroughtInside)
{
    site_.Position = {0, 0, 300, 200};
    grid_->put_BorderStyle(lorvBorderNone);
    grid_->put_Rows(31);
    grid_->put_Cols(5);
    grid_->put_RowHeight(-1, 300);
    grid_->put_ColWidth(-1, 750);
    grid_->put_TopRow(29);
    Activate();
    EXPECT_EQ(22, TopRow());
}

TEST_F(WindowOfHost, HasNoBarsInADesigner)
{
    grid_->put_Rows(500);
    site_.SetUserMode(false);
    Activate();
    EXPECT_EQ(0, Style());
}

TEST_F(WindowOfHost, HasBarsForItsUser)
{
    grid_->put_Rows(500);
    Activate();
    EXPECT_TRUE(Style() & WS_VSCROLL);
}

// The hook by which test tools find a grid by its window

namespace
{
class RunningObject : public HostedControl
{
protected:
    static constexpr wchar_t Key[] = L"SOFTWARE\\GUIAutoTest\\";

    void TearDown() override
    {
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\GUIAutoTest");
        HostedControl::TearDown();
    }
    void Switch(DWORD type, DWORD value)
    {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, Key, L"Test", type, &value, sizeof(value));
    }
    // What is registered under the name of the window.
    ComPtr<IUnknown> Registered(HWND window)
    {
        wchar_t name[40];
        wsprintfW(name, L"LORV_GRID_HWND_%d", static_cast<int>(reinterpret_cast<intptr_t>(window)));
        ComPtr<IMoniker> moniker;
        ComPtr<IRunningObjectTable> table;
        ComPtr<IUnknown> object;
        CreateItemMoniker(L"!", name, moniker.Put());
        GetRunningObjectTable(0, table.Put());
        if (table && moniker)
            table->GetObject(moniker.Get(), object.Put());
        return object;
    }
};
} // namespace

TEST_F(RunningObject, IsTheGridWhileItsWindowLives)
{
    Switch(REG_DWORD, 1);
    HWND window = Activate();
    auto object = Registered(window);
    ASSERT_TRUE(object);
    auto members = QueryFor<ILorvGrid>(object.Get(), IID_ILorvGrid);
    EXPECT_EQ(grid_.Get(), members.Get());
    members.Reset();
    object.Reset();
    DestroyWindow(window);
    EXPECT_FALSE(Registered(window));
}

TEST_F(RunningObject, IsNoneWithoutTheSwitch)
{
    EXPECT_FALSE(Registered(Activate()));
}

TEST_F(RunningObject, IsNoneWhenTheSwitchIsAnotherValue)
{
    Switch(REG_DWORD, 2);
    EXPECT_FALSE(Registered(Activate()));
}

TEST_F(RunningObject, IsNoneWhenTheSwitchIsNoNumber)
{
    Switch(REG_BINARY, 1);
    EXPECT_FALSE(Registered(Activate()));
}
