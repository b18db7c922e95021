// Handlers of the mouse's events that do what hosts do at the worst moment. Whatever they do, nothing crashes
// or hangs, and neither the mouse nor a timer stays taken.

#include "support/hosted_control.h"

#include <array>
#include <string>

namespace
{
constexpr UINT_PTR DragTimer = 100;
constexpr UINT WatchPeriod = 40; // milliseconds after which a gesture that nothing ends is cancelled

struct NamedEvent {
    DISPID Id;
    const char* Name;
};
constexpr NamedEvent events[] = {
    {5, "BeforeMouseDown"},    {-605, "MouseDown"},      {-606, "MouseMove"},      {-607, "MouseUp"},
    {-600, "Click"},           {-601, "DblClick"},       {17, "BeforeUserResize"}, {18, "AfterUserResize"},
    {36, "AfterUserFreeze"},   {13, "BeforeSort"},       {14, "AfterSort"},        {15, "BeforeMoveColumn"},
    {16, "AfterMoveColumn"},   {44, "BeforeMoveRow"},    {45, "AfterMoveRow"},     {4, "LeaveCell"},
    {6, "BeforeRowColChange"}, {7, "AfterRowColChange"}, {8, "BeforeSelChange"},   {9, "AfterSelChange"},
    {10, "BeforeScroll"},      {11, "AfterScroll"},      {83, "SetFocus"},
};

void DropMouseMessages()
{
    MSG message = {};
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_MOUSELAST, PM_REMOVE)) {
    }
}

void HoldButton(bool down)
{
    BYTE state[256] = {};
    state[VK_LBUTTON] = down ? 0x80 : 0;
    SetKeyboardState(state);
}

// Ends a gesture whose release a handler has pumped away.
HWND watched;
void CALLBACK Watch(HWND, UINT, UINT_PTR, DWORD)
{
    if (GetCapture() == watched)
        PostMessageW(watched, WM_KEYDOWN, VK_ESCAPE, 0);
}
} // namespace

class MouseHandlers : public HostedControl
{
public:
    using Action = void (*)(MouseHandlers& test, DISPPARAMS& parameters);

    // Actions
    static void Cancel(MouseHandlers&, DISPPARAMS& parameters)
    {
        if (parameters.cArgs == 0)
            return;
        VARIANTARG& last = parameters.rgvarg[0];
        if (last.vt == (VT_BYREF | VT_BOOL))
            *last.pboolVal = VARIANT_TRUE;
        else if (last.vt == (VT_BYREF | VT_I2))
            *last.piVal = 0;
        else if (last.vt == (VT_BYREF | VT_I4))
            *last.plVal = -1;
    }
    static void TakeRowsAway(MouseHandlers& test, DISPPARAMS&) { test.grid_->put_Rows(0); }
    static void TakeColsAway(MouseHandlers& test, DISPPARAMS&) { test.grid_->put_Cols(0); }
    static void Shrink(MouseHandlers& test, DISPPARAMS&)
    {
        test.grid_->put_Rows(2);
        test.grid_->put_Cols(2);
        test.grid_->put_FixedRows(0);
        test.grid_->put_FixedCols(0);
    }
    static void ChangeModes(MouseHandlers& test, DISPPARAMS&)
    {
        test.grid_->put_SelectionMode(lorvSelectionListBox);
        test.grid_->put_ExplorerBar(lorvExNone);
        test.grid_->put_FrozenRows(2);
        test.grid_->put_RightToLeft(VARIANT_TRUE);
    }
    static void PumpMessages(MouseHandlers&, DISPPARAMS&)
    {
        MSG message = {};
        for (int i = 0; i < 50 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    static void TakeMouse(MouseHandlers& test, DISPPARAMS&) { SetCapture(test.parent_); }
    static void TakeFocus(MouseHandlers& test, DISPPARAMS&) { SetFocus(test.parent_); }
    static void HideWindow(MouseHandlers& test, DISPPARAMS&) { ShowWindow(test.window_, SW_HIDE); }
    static void Deactivate(MouseHandlers& test, DISPPARAMS&)
    {
        test.As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate();
    }
    // The last reference of a host goes; what is on the stack keeps the control until it is done.
    static void LetGo(MouseHandlers& test, DISPPARAMS&)
    {
        test.point_->Unadvise(test.cookie_);
        test.point_.Reset();
        test.object_->Close(OLECLOSE_NOSAVE);
        test.object_->SetClientSite(nullptr);
        test.object_.Reset();
        test.grid_.Reset();
    }

protected:
    class Sink : public LocalDispatch
    {
    public:
        MouseHandlers* Test = nullptr;
        DISPID ActsOn = DISPID_UNKNOWN;
        Action Act = nullptr;
        int Acted = 0;
        bool Acting = false;

    protected:
        void* FindMore(REFIID iid) override
        {
            return IsEqualIID(iid, DIID__ILorvGridEvents) ? static_cast<IDispatch*>(this) : nullptr;
        }
        void OnInvoke(DISPID dispid, DISPPARAMS& parameters) override
        {
            if (dispid != ActsOn || Acting)
                return;
            Acting = true;
            ++Acted;
            Act(*Test, parameters);
            Acting = false;
        }
    };

    // A sheet of rows of 20 pixels and columns of 50 that takes every gesture.
    void Prepare()
    {
        ASSERT_EQ(S_OK, CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                         grid_.PutVoid()));
        object_ = As<IOleObject>(IID_IOleObject);
        window_ = Activate();
        ASSERT_NE(window_, nullptr);
        grid_->put_Rows(40);
        grid_->put_Cols(12);
        grid_->put_RowHeight(-1, 300);
        grid_->put_ColWidth(-1, 750);
        grid_->put_AllowUserResizing(lorvResizeBoth);
        grid_->put_AllowUserFreezing(lorvFreezeBoth);
        grid_->put_ExplorerBar(static_cast<ExplorerBarSettings>(lorvExSortShowAndMove | lorvExMoveRows));
        sink_.Test = this;
        sink_.Acted = 0;
        sink_.ActsOn = DISPID_UNKNOWN;
        point_ = Point(DIID__ILorvGridEvents);
        ASSERT_EQ(S_OK, point_->Advise(static_cast<IDispatch*>(&sink_), &cookie_));
        SetFocus(parent_);
        watched = window_;
    }

    void GiveBack()
    {
        if (point_)
            point_->Unadvise(cookie_);
        point_.Reset();
        if (object_) {
            object_->Close(OLECLOSE_NOSAVE);
            object_->SetClientSite(nullptr);
            object_.Reset();
        }
        grid_.Reset();
    }

    void Send(UINT message, int x, int y)
    {
        if (IsWindow(window_))
            SendMessageW(window_, message, 0, MAKELPARAM(x, y));
    }
    // A press, a drag by way of the points and a release, some of which a gesture's own loop may take.
    void Gesture(int x, int y, int toX, int toY)
    {
        HoldButton(false);
        Send(WM_MOUSEMOVE, x, y);
        HoldButton(true);
        if (IsWindow(window_)) {
            PostMessageW(window_, WM_MOUSEMOVE, 0, MAKELPARAM((x + toX) / 2, (y + toY) / 2));
            PostMessageW(window_, WM_MOUSEMOVE, 0, MAKELPARAM(toX, toY));
            PostMessageW(window_, WM_LBUTTONUP, 0, MAKELPARAM(toX, toY));
        }
        Send(WM_LBUTTONDOWN, x, y);
        DropMouseMessages();
        Send(WM_MOUSEMOVE, toX, toY);
        HoldButton(false);
        Send(WM_LBUTTONUP, toX, toY);
    }

    void Tour()
    {
        Gesture(75, 30, 175, 110);  // a selection
        Gesture(75, 110, 175, 260); // one that scrolls
        Gesture(120, 10, 122, 10);  // a sort
        Gesture(70, 10, 210, 10);   // a column moves
        Gesture(20, 50, 20, 115);   // a row moves
        Gesture(98, 10, 110, 10);   // sizes
        Gesture(20, 58, 20, 70);
        Gesture(52, 130, 130, 130); // the frozen part
        Send(WM_LBUTTONDBLCLK, 120, 70);
        Send(WM_LBUTTONUP, 120, 70);
        Send(WM_RBUTTONDOWN, 170, 90);
        Send(WM_RBUTTONUP, 170, 90);
        Send(WM_TIMER, 0, 0);
    }

    void ExpectNothingTaken()
    {
        if (!IsWindow(window_))
            return;
        EXPECT_NE(GetCapture(), window_);
        EXPECT_FALSE(KillTimer(window_, DragTimer)) << "the timer of a drag runs on";
    }

    // The event with every action at once would hide one behind the other: each has a control of its own.
    void Act(const NamedEvent& event, Action action)
    {
        Prepare();
        sink_.ActsOn = event.Id;
        sink_.Act = action;
        UINT_PTR timer = SetTimer(nullptr, 0, WatchPeriod, Watch);
        Tour();
        KillTimer(nullptr, timer);
        HoldButton(false);
        if (GetCapture() == parent_)
            ReleaseCapture();
        EXPECT_LT(0, sink_.Acted) << "the tour never comes to this event";
        ExpectNothingTaken();
        GiveBack();
        EXPECT_EQ(0, sink_.References);
        DropMouseMessages();
    }

    void SetUp() override
    {
        HostedControl::SetUp();
        object_.Reset();
        grid_.Reset();
    }

    Sink sink_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
    HWND window_ = nullptr;
};

class MouseHandler : public MouseHandlers, public testing::WithParamInterface<size_t>
{
};

TEST_P(MouseHandler, MayDoAnything)
{
    const struct {
        const char* Name;
        Action Run;
    } actions[] = {
        {"Cancel", Cancel},
        {"TakeRowsAway", TakeRowsAway},
        {"TakeColsAway", TakeColsAway},
        {"Shrink", Shrink},
        {"ChangeModes", ChangeModes},
        {"PumpMessages", PumpMessages},
        {"TakeMouse", TakeMouse},
        {"TakeFocus", TakeFocus},
        {"HideWindow", HideWindow},
        {"Deactivate", Deactivate},
        {"LetGo", LetGo},
    };
    const NamedEvent& event = events[GetParam()];
    for (const auto& action : actions) {
        SCOPED_TRACE(std::string(event.Name) + ", " + action.Name);
        Act(event, action.Run);
    }
}

INSTANTIATE_TEST_SUITE_P(OfEach, MouseHandler, testing::Range<size_t>(0, std::size(events)),
                         [](const auto& info) { return std::string(events[info.param].Name); });
