// A monkey at the members: very many calls with random arguments, on a window, with handlers and foreign
// objects that call back. Whatever comes, the grid stays in order and every reference comes back.

#include "automation/random_calls.h"
#include "support/control_fixture.h"
#include "support/test_container.h"

#include <cstdio>
#include <set>

namespace
{
// A search by hand takes another seed from LORV_MONKEY_SEED; LORV_MONKEY_TRACE prints every call.
uint32_t Seed()
{
    wchar_t text[16] = {};
    return GetEnvironmentVariableW(L"LORV_MONKEY_SEED", text, std::size(text)) ? wcstoul(text, nullptr, 10)
                                                                               : 20011;
}

constexpr DISPID DispidPicture = -523;
constexpr DISPID DispidError = 33; // the event; its flag shows a message box

// Members that open a dialog, run a loop of their own until the mouse is released, reach for files, the
// network or a printer.
const wchar_t* const LeftOut[] = {L"PrintGrid", L"SaveGrid",    L"LoadGrid", L"LoadGridURL",
                                  L"Archive",   L"ArchiveInfo", L"OLEDrag",  L"DragRow"};

bool IsLeftOut(const CallableMember& member)
{
    return std::find(std::begin(LeftOut), std::end(LeftOut), member.Name) != std::end(LeftOut);
}

class Monkey;

// What a host stores in a grid: picture, font, value and data source in one. Whoever lets go of it, and
// whoever reads it, runs code of the host.
class ForeignObject final : public LocalObject<IDispatch, ILorvDataSource>
{
public:
    explicit ForeignObject(Monkey& monkey) : monkey_(monkey) { References = 1; }
    ~ForeignObject() override { EXPECT_EQ(1, References) << "the grid still holds an object of the host"; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        ULONG left = LocalObject::Release();
        CallBack();
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return CallBack();
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return CallBack();
    }

    HRESULT STDMETHODCALLTYPE GetFieldCount(LONG* count) override { return Give(count, 4); }
    HRESULT STDMETHODCALLTYPE GetRecordCount(LONG* count) override { return Give(count, 7); }
    HRESULT STDMETHODCALLTYPE GetFieldName(LONG, BSTR* name) override { return Give(name); }
    HRESULT STDMETHODCALLTYPE GetData(LONG, LONG, BSTR* text) override { return Give(text); }
    HRESULT STDMETHODCALLTYPE SetData(LONG, LONG, BSTR) override { return CallBack(); }

protected:
    void* FindMore(REFIID iid) override
    {
        bool shown = IsEqualIID(iid, IID_IPictureDisp) || IsEqualIID(iid, IID_IFontDisp);
        return shown ? static_cast<IDispatch*>(this) : nullptr;
    }

private:
    HRESULT CallBack();
    HRESULT Give(LONG* count, LONG value)
    {
        *count = value;
        return CallBack();
    }
    HRESULT Give(BSTR* text)
    {
        *text = SysAllocString(L"foreign");
        return CallBack();
    }

    Monkey& monkey_;
};

class EventHandler final : public LocalDispatch
{
public:
    explicit EventHandler(Monkey& monkey) : monkey_(monkey) {}
    std::set<DISPID> Seen, CalledBack;

protected:
    void* FindMore(REFIID iid) override
    {
        return IsEqualIID(iid, DIID__ILorvGridEvents) ? static_cast<IDispatch*>(this) : nullptr;
    }
    void OnInvoke(DISPID dispid, DISPPARAMS& parameters) override;

private:
    Monkey& monkey_;
};

class ChangeHandler final : public LocalObject<IPropertyNotifySink>
{
public:
    explicit ChangeHandler(Monkey& monkey) : monkey_(monkey) {}
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override;
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

private:
    Monkey& monkey_;
};

class Monkey
{
public:
    explicit Monkey(ILorvGrid* grid) : grid_(grid)
    {
        ComPtr<ITypeInfo> info;
        EXPECT_EQ(S_OK, grid->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()));
        for (const CallableMember& member : MembersOf(info.Get()))
            if (!IsLeftOut(member))
                members_.push_back(member);
    }
    Monkey(const Monkey&) = delete;
    Monkey& operator=(const Monkey&) = delete;

    size_t MemberCount() const { return members_.size(); }

    void CallSomething()
    {
        const CallableMember& member = members_[Chance.Below(static_cast<unsigned>(members_.size()))];
        if (member.Id == DispidPicture && !Chance.OneIn(8)) // takes as long as a thousand others
            return;
        RandomArguments arguments;
        arguments.Fill(member, Chance, Values);
        if (traces_)
            Trace(member, arguments);
        if (member.Id == DispidPicture)
            MakeSmall();
        OwnedVariant result;
        EXCEPINFO exception = {};
        UINT badArgument = 0;
        bool wantsAll = !Chance.OneIn(20);
        ++depth_;
        HRESULT outcome = grid_->Invoke(member.Id, IID_NULL, LOCALE_USER_DEFAULT, member.Kind,
                                        arguments.Get(), wantsAll ? &result.Get() : nullptr,
                                        wantsAll ? &exception : nullptr, wantsAll ? &badArgument : nullptr);
        --depth_;
        if (SUCCEEDED(outcome))
            succeeded_.insert({member.Id, member.Kind});
        for (BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
            SysFreeString(text);
    }

    // What handlers do: not too often, and not without end.
    bool CallBack()
    {
        if (!Enabled || depth_ > 3 || !Chance.OneIn(25))
            return false;
        CallSomething();
        return true;
    }

    // What a user does to the window of the grid, or to that of an open editor.
    void SendSomething()
    {
        static constexpr UINT messages[] = {
            WM_KEYDOWN,     WM_KEYDOWN,       WM_KEYUP,       WM_CHAR,       WM_CHAR,       WM_MOUSEMOVE,
            WM_VSCROLL,     WM_HSCROLL,       WM_SETFOCUS,    WM_KILLFOCUS,  WM_MOUSEWHEEL, WM_SETCURSOR,
            WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_CANCELMODE, WM_SIZE,       WM_TIMER};
        LONG handle = 0;
        grid_->get_hWnd(&handle);
        HWND window = static_cast<HWND>(LongToHandle(handle));
        HWND grid = window;
        if (HWND focus = GetFocus(); Chance.OneIn(2) && IsChild(window, focus))
            window = focus;
        UINT message = Chance.Any(messages);
        Trace(message);
        ++depth_;
        if (message == WM_KEYDOWN || message == WM_KEYUP)
            SendMessageW(window, message, Key(), 0);
        else if (message == WM_CHAR)
            SendMessageW(window, message, L"aB1-. \r\t"[Chance.Below(8)], 0);
        else if (message == WM_VSCROLL || message == WM_HSCROLL)
            SendMessageW(window, message, MAKEWPARAM(Chance.Below(9), Chance.Below(500)), 0);
        else if (message == WM_MOUSEWHEEL)
            SendMessageW(window, message, MAKEWPARAM(0, Chance.OneIn(2) ? 120 : -120), 0);
        else if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN)
            Press(grid, message); // in an editor a right button opens a menu, and waits
        else if (message == WM_SETCURSOR)
            SendMessageW(window, message, reinterpret_cast<WPARAM>(window),
                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        else
            SendMessageW(window, message, 0, Position());
        --depth_;
    }

    // Messages that have come in the meantime, paints among them.
    void Pump() const
    {
        MSG message = {};
        for (int taken = 0; taken < 40 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++taken) {
            Trace(message.message);
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    // Members that have succeeded at least once.
    size_t SucceededCount() const { return succeeded_.size(); }

    Dice Chance{Seed()};
    RandomValues Values{Chance};
    bool Enabled = true;

private:
    void Trace(const CallableMember& member, const RandomArguments& arguments) const
    {
        std::fwprintf(stderr, L"%*ls%ls %d/%d%ls\n", depth_ * 2, L"", member.Name.c_str(),
                      static_cast<int>(member.Id), member.Kind, arguments.Describe().c_str());
        std::fflush(stderr);
    }

    void Trace(UINT message) const
    {
        if (traces_)
            std::fwprintf(stderr, L"%*lsmessage %x\n", depth_ * 2, L"", message), std::fflush(stderr);
    }

    WPARAM Key()
    {
        static constexpr WPARAM keys[] = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN,   VK_PRIOR,  VK_NEXT,
                                          VK_HOME, VK_END,   VK_TAB,  VK_RETURN, VK_ESCAPE, VK_F2,
                                          VK_F4,   VK_SPACE, VK_BACK, VK_DELETE};
        return Chance.Any(keys);
    }

    LPARAM Position()
    {
        int x = static_cast<int>(Chance.Below(320)) - 10, y = static_cast<int>(Chance.Below(220)) - 10;
        return MAKELPARAM(x, y);
    }

    // The moves and the release wait in the queue when the button goes down: what the press begins ends
    // there.
    void Press(HWND window, UINT message)
    {
        grid_->put_OLEDragMode(lorvOLEDragManual); // a drag of the system's would wait for the real mouse
        LPARAM at = Position();
        for (unsigned move = Chance.Below(4); move > 0; --move)
            PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, Position());
        PostMessageW(window, message == WM_RBUTTONDOWN ? WM_RBUTTONUP : WM_LBUTTONUP, 0, Position());
        SendMessageW(window, message, MK_LBUTTON, at);
    }

    // A picture holds the whole grid, and a bitmap of it every pixel.
    void MakeSmall()
    {
        grid_->put_RowHeightMin(0);
        grid_->put_ColWidthMin(0);
        grid_->put_RowHeight(-1, -1);
        grid_->put_ColWidth(-1, -1);
        grid_->put_FontSize(8);
    }

    ILorvGrid* grid_;
    std::vector<CallableMember> members_;
    std::set<std::pair<DISPID, WORD>> succeeded_;
    int depth_ = 0;
    bool traces_ = GetEnvironmentVariableW(L"LORV_MONKEY_TRACE", nullptr, 0) != 0;
};

// Fails now and then.
HRESULT ForeignObject::CallBack()
{
    monkey_.CallBack();
    return monkey_.Chance.OneIn(10) ? E_FAIL : S_OK;
}

HRESULT ChangeHandler::OnChanged(DISPID)
{
    monkey_.CallBack();
    return S_OK;
}

// Handlers write into what they are given by reference.
void EventHandler::OnInvoke(DISPID dispid, DISPPARAMS& parameters)
{
    Seen.insert(dispid);
    if (monkey_.CallBack())
        CalledBack.insert(dispid);
    for (UINT i = 0; i < parameters.cArgs; ++i) {
        VARIANTARG& argument = parameters.rgvarg[i];
        if (!monkey_.Enabled || !monkey_.Chance.OneIn(10))
            continue;
        if (argument.vt == (VT_BYREF | VT_BOOL))
            *argument.pboolVal = monkey_.Chance.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE;
        else if (argument.vt == (VT_BYREF | VT_I2))
            *argument.piVal = static_cast<SHORT>(monkey_.Values.Number());
        else if (argument.vt == (VT_BYREF | VT_I4))
            *argument.plVal = monkey_.Values.Number();
    }
    if (dispid == DispidError)
        *parameters.rgvarg[0].pboolVal = VARIANT_FALSE;
}

class MonkeyTest : public ControlTest
{
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        parent_ = CreateWindowExW(0, L"STATIC", L"monkey", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr,
                                  nullptr, nullptr);
        ShowWindow(parent_, SW_SHOWNA);
        site_.Parent = parent_;
        site_.SetUserMode(true);
    }

    void Host()
    {
        auto object = As<IOleObject>(IID_IOleObject);
        ASSERT_EQ(S_OK, object->SetClientSite(&site_));
        ASSERT_EQ(S_OK, As<IPersistStreamInit>(IID_IPersistStreamInit)->InitNew());
        ASSERT_EQ(S_OK,
                  object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, parent_, &site_.Position));
    }

    void Unhost()
    {
        auto object = As<IOleObject>(IID_IOleObject);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }

    void TearDown() override
    {
        Unhost();
        DestroyWindow(parent_);
        ControlTest::TearDown();
        EXPECT_EQ(0, site_.References);
    }

    // An object that holds the grid which holds the object would stay for ever: the grid lets go of all.
    void EmptyGrid()
    {
        OwnedVariant nothing;
        grid_->FinishEditing(VARIANT_TRUE);
        grid_->BindToArray(nothing.Get(), nothing.Get(), nothing.Get(), nothing.Get(), nothing.Get());
        grid_->put_LorvDataSource(nullptr);
        for (auto put :
             {&ILorvGrid::put_MouseIcon, &ILorvGrid::put_WallPaper, &ILorvGrid::put_CellButtonPicture,
              &ILorvGrid::put_SortAscendingPicture, &ILorvGrid::put_SortDescendingPicture,
              &ILorvGrid::put_NodeOpenPicture, &ILorvGrid::put_NodeClosedPicture})
            EXPECT_EQ(S_OK, (grid_.Get()->*put)(nullptr));
        EXPECT_EQ(S_OK, grid_->put_Rows(0));
        EXPECT_EQ(S_OK, grid_->put_Cols(0));
    }

    LONG Long(HRESULT (STDMETHODCALLTYPE ILorvGrid::*get)(LONG*))
    {
        LONG value = -99;
        EXPECT_EQ(S_OK, (grid_.Get()->*get)(&value));
        return value;
    }

    void CheckOrder()
    {
        LONG rows = Long(&ILorvGrid::get_Rows), cols = Long(&ILorvGrid::get_Cols);
        LONG fixedRows = Long(&ILorvGrid::get_FixedRows), fixedCols = Long(&ILorvGrid::get_FixedCols);
        EXPECT_GE(fixedRows, 0);
        EXPECT_GE(fixedCols, 0);
        EXPECT_GE(Long(&ILorvGrid::get_FrozenRows), 0);
        EXPECT_GE(Long(&ILorvGrid::get_FrozenCols), 0);
        EXPECT_LE(fixedRows + Long(&ILorvGrid::get_FrozenRows), rows);
        EXPECT_LE(fixedCols + Long(&ILorvGrid::get_FrozenCols), cols);
        for (LONG row = 0; row < rows; ++row)
            for (LONG col = 0; col < cols; ++col) {
                Bstr text;
                EXPECT_EQ(S_OK, grid_->get_TextMatrix(row, col, text.Put())) << row << "," << col;
            }
    }

    TestSite site_;
    HWND parent_ = nullptr;
};

struct Sinks {
    Sinks(Monkey& monkey, ComPtr<IConnectionPoint> events, ComPtr<IConnectionPoint> changes)
        : Events(monkey), Changes(monkey), eventPoint_(events), changePoint_(changes)
    {
        EXPECT_EQ(S_OK, eventPoint_->Advise(static_cast<IDispatch*>(&Events), &eventCookie_));
        EXPECT_EQ(S_OK, changePoint_->Advise(&Changes, &changeCookie_));
    }
    Sinks(const Sinks&) = delete;
    Sinks& operator=(const Sinks&) = delete;
    ~Sinks()
    {
        eventPoint_->Unadvise(eventCookie_);
        changePoint_->Unadvise(changeCookie_);
        EXPECT_EQ(0, Events.References);
        EXPECT_EQ(0, Changes.References);
    }

    EventHandler Events;
    ChangeHandler Changes;

private:
    ComPtr<IConnectionPoint> eventPoint_, changePoint_;
    DWORD eventCookie_ = 0, changeCookie_ = 0;
};
} // namespace

TEST_F(MonkeyTest, AHundredThousandCallsLeaveTheGridInOrder)
{
    Monkey monkey(grid_.Get());
    EXPECT_EQ(397u - std::size(LeftOut), monkey.MemberCount()) << "all but those left out";
    Host();
    ForeignObject first(monkey), second(monkey);
    OwnedVariant font;
    ASSERT_EQ(S_OK, Get(DISPID_FONT, font));
    auto grid = As<IDispatch>(IID_IDispatch);
    monkey.Values.HostObjects = {&first, &second};
    monkey.Values.AnyObjects = {&first, &second, font.Get().pdispVal, grid.Get()};
    {
        Sinks sinks(monkey, Point(DIID__ILorvGridEvents), Point(IID_IPropertyNotifySink));
        for (int call = 0; call < 100000; ++call) {
            monkey.CallSomething();
            if (call % 100 == 0)
                monkey.Pump();
            if (call % 10000 == 0)
                CheckOrder();
            if (testing::Test::HasFailure())
                break;
        }
        monkey.Enabled = false;
        CheckOrder();
        EmptyGrid();
        EXPECT_GT(sinks.Events.Seen.size(), 12u);
        EXPECT_GT(sinks.Events.CalledBack.size(), 8u);
    }
    EXPECT_GT(monkey.SucceededCount(), 250u) << "most members are reached";
    Unhost();
}

// As a program uses a control that it makes without a form.
TEST_F(MonkeyTest, CallsBeforeTheControlIsHosted)
{
    Monkey monkey(grid_.Get());
    for (int call = 0; call < 5000; ++call)
        monkey.CallSomething();
    CheckOrder();
    EmptyGrid();
}

TEST_F(MonkeyTest, CallsBetweenTheMessagesOfAUser)
{
    Monkey monkey(grid_.Get());
    Host();
    ForeignObject object(monkey);
    monkey.Values.HostObjects = monkey.Values.AnyObjects = {&object};
    {
        Sinks sinks(monkey, Point(DIID__ILorvGridEvents), Point(IID_IPropertyNotifySink));
        for (int step = 0; step < 3000 && !testing::Test::HasFailure(); ++step) {
            if (monkey.Chance.OneIn(2))
                monkey.CallSomething();
            else
                monkey.SendSomething();
            if (step % 20 == 0)
                monkey.Pump();
            if (step % 1000 == 0)
                CheckOrder();
        }
        monkey.Enabled = false;
        monkey.Pump();
        CheckOrder();
        EmptyGrid();
        EXPECT_GT(sinks.Events.Seen.size(), 20u);
    }
    Unhost();
}

TEST_F(MonkeyTest, CallsAfterTheWindowIsGone)
{
    Monkey monkey(grid_.Get());
    Host();
    for (int call = 0; call < 2000; ++call)
        monkey.CallSomething();
    ASSERT_EQ(S_OK, As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate());
    for (int call = 0; call < 3000; ++call)
        monkey.CallSomething();
    CheckOrder();
    Host();
    for (int call = 0; call < 1000; ++call)
        monkey.CallSomething();
    CheckOrder();
    EmptyGrid();
}
