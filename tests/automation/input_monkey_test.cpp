// A monkey at keyboard and mouse: tens of thousands of messages of any kind with any argument, while handlers
// call members of any kind with any argument. Always the same ones, so that what is found can be found again.

#include "support/gdi_objects.h"
#include "support/hosted_grid.h"

namespace
{
constexpr int Messages = 50000;
constexpr int WarmUp = 5000;
constexpr int MessagesPerShape = 250; // until the grid has rows and columns again
constexpr int DeepestCall = 3;

class Random
{
public:
    unsigned Next() { return (state_ = state_ * 1664525u + 1013904223u) >> 8; }
    int Below(int limit) { return static_cast<int>(Next() % static_cast<unsigned>(limit)); }
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool OneIn(int count) { return Below(count) == 0; }
    template<class T, size_t Count> const T& Of(const T (&items)[Count]) { return items[Below(Count)]; }

private:
    unsigned state_ = 20261120;
};

class InputMonkey : public HostedGrid
{
protected:
    void SetUp() override
    {
        HostedGrid::SetUp();
        other_ = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 400, 10, 50, 20, parent_, nullptr,
                                 nullptr, nullptr);
        events_.OnAny = [this](DISPID id, DISPPARAMS& parameters) { Handle(id, parameters); };
    }

    void Play(int messages)
    {
        for (int i = 0; i < messages; ++i) {
            if (i % MessagesPerShape == 0)
                Shape();
            HeldKeys held = RandomKeys();
            PlayOne();
            if (random_.OneIn(10))
                Pump();
            events_.Take();
        }
    }

    // All at rest, in a shape that is always the same.
    void ComeToRest()
    {
        HeldKeys none{};
        Send(WM_LBUTTONUP);
        SetFocus(other_);
        quiet_ = true;
        grid_->FinishEditing(VARIANT_TRUE);
        grid_->put_Redraw(lorvRDDirect);
        grid_->put_SelectionMode(lorvSelectionFree);
        grid_->put_MergeCells(lorvMergeNever);
        grid_->put_Rows(1);
        Shape();
        MoveWindow(window_, 0, 0, 300, 200, TRUE);
        Pump();
        InvalidateRect(window_, nullptr, TRUE);
        UpdateWindow(window_);
        quiet_ = false;
    }

    HWND other_ = nullptr;

private:
    HeldKeys RandomKeys()
    {
        int held = random_.Below(12);
        return HeldKeys{held == 0   ? VK_SHIFT
                        : held == 1 ? VK_CONTROL
                        : held == 2 ? VK_MENU
                                    : 0,
                        held == 3 || random_.OneIn(3) ? VK_LBUTTON : 0};
    }

    void Shape()
    {
        grid_->put_Rows(31);
        grid_->put_Cols(5);
        grid_->put_FixedRows(1);
        grid_->put_FixedCols(1);
        grid_->put_FrozenRows(0);
        grid_->put_FrozenCols(0);
        grid_->put_RowHidden(-1, VARIANT_FALSE);
        grid_->put_ColHidden(-1, VARIANT_FALSE);
        grid_->put_RowHeight(-1, RowHeight * 15);
        grid_->put_ColWidth(-1, ColWidth * 15);
    }

    // Messages

    void PlayOne()
    {
        static constexpr void (InputMonkey::*kinds[])() = {
            &InputMonkey::PlayKey,    &InputMonkey::PlayKey,   &InputMonkey::PlayKey,
            &InputMonkey::PlayMouse,  &InputMonkey::PlayMouse, &InputMonkey::PlayMouse,
            &InputMonkey::PlayScroll, &InputMonkey::PlayOther,
        };
        (this->*random_.Of(kinds))();
    }
    void PlayKey()
    {
        static constexpr UINT messages[] = {WM_KEYDOWN, WM_KEYDOWN, WM_KEYDOWN,    WM_KEYUP,
                                            WM_CHAR,    WM_CHAR,    WM_SYSKEYDOWN, WM_SYSKEYUP};
        UINT message = random_.Of(messages);
        int key = random_.OneIn(2) ? random_.Between(VK_TAB, VK_DOWN)
                                   : random_.Below(message == WM_CHAR ? 0x10000 : 256);
        bool system = message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
        if (IsMenuKey(key) || (system && key == VK_ESCAPE)) // a menu of the host's window would open
            return;
        LPARAM state = random_.OneIn(2) ? 1 : 1 | 1 << 30;
        HWND focus = GetFocus();
        if (random_.OneIn(3) && focus && IsChild(window_, focus))
            PostMessageW(focus, message, static_cast<WPARAM>(key), state); // as if typed into the editor
        else
            Send(message, static_cast<WPARAM>(key), state);
    }
    static bool IsMenuKey(int key)
    {
        return key == VK_MENU || key == VK_LMENU || key == VK_RMENU || key == VK_F10 || key == VK_F4 ||
               key == VK_LWIN || key == VK_RWIN || key == VK_APPS;
    }
    LPARAM RandomPoint() { return MAKELPARAM(random_.Between(-40, 340), random_.Between(-40, 240)); }
    void PlayMouse()
    {
        static constexpr UINT messages[] = {WM_MOUSEMOVE, WM_MOUSEMOVE,     WM_MOUSEMOVE,     WM_LBUTTONDOWN,
                                            WM_LBUTTONUP, WM_RBUTTONDOWN,   WM_RBUTTONUP,     WM_MBUTTONDOWN,
                                            WM_MBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK, WM_MOUSEWHEEL,
                                            WM_MOUSELEAVE};
        UINT message = random_.Of(messages);
        LPARAM point = RandomPoint();
        // A gesture that begins here has what it needs to come to its end.
        if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
            Send(WM_MOUSEMOVE, 0, point);
            for (int moves = random_.Below(4); moves > 0; --moves)
                PostMessageW(window_, WM_MOUSEMOVE, MK_LBUTTON, RandomPoint());
            if (random_.OneIn(4))
                PostMessageW(window_, WM_KEYDOWN, VK_ESCAPE, 1);
            PostMessageW(window_, WM_LBUTTONUP, 0, RandomPoint());
        }
        WPARAM parameter = message == WM_MOUSEWHEEL ? MAKEWPARAM(0, random_.Between(-500, 500)) : MK_LBUTTON;
        Send(message, parameter, point);
    }
    void PlayScroll()
    {
        int code = random_.OneIn(4) ? 666 : random_.Below(10);
        Send(random_.OneIn(3) ? WM_HSCROLL : WM_VSCROLL, MAKEWPARAM(code, random_.Between(-50, 500)));
    }
    void PlayOther()
    {
        static constexpr UINT messages[] = {WM_CANCELMODE,
                                            WM_TIMER,
                                            WM_SYSCOLORCHANGE,
                                            WM_PALETTECHANGED,
                                            WM_THEMECHANGED,
                                            WM_GETDLGCODE,
                                            WM_SETCURSOR,
                                            WM_COMMAND,
                                            0x47F,
                                            0x480,
                                            0x481,
                                            0x482,
                                            0x483,
                                            0x48C,
                                            WM_GETOBJECT,
                                            WM_ERASEBKGND,
                                            WM_IME_STARTCOMPOSITION};
        switch (random_.Below(5)) {
        case 0:
            SetFocus(random_.OneIn(3) ? other_ : window_);
            break;
        case 1:
            MoveWindow(window_, 0, 0, random_.Between(0, 400), random_.Between(0, 300), TRUE);
            break;
        case 2:
            UpdateWindow(window_);
            break;
        default:
            PlayRare(random_.Of(messages));
        }
    }
    void PlayRare(UINT message)
    {
        WPARAM parameter = static_cast<WPARAM>(random_.Between(-2, 1000));
        if (message == WM_ERASEBKGND)
            parameter = 0;
        if (message == WM_COMMAND)
            parameter = MAKEWPARAM(random_.OneIn(2) ? 666 : 667, random_.Below(12));
        if (message == WM_TIMER)
            parameter = 100;
        LPARAM argument = message == WM_SETCURSOR ? MAKELPARAM(HTCLIENT, WM_MOUSEMOVE) : 0;
        Send(message, parameter, argument);
    }

    // Handlers

    void Handle(DISPID id, DISPPARAMS& parameters)
    {
        if (quiet_)
            return;
        if (random_.OneIn(6))
            Answer(parameters);
        if (id == 33) // Error: no box that waits for somebody
            *parameters.rgvarg[0].pboolVal = VARIANT_FALSE;
        if (depth_ >= DeepestCall || !random_.OneIn(4))
            return;
        ++depth_;
        for (int calls = random_.Between(1, 3); calls > 0; --calls)
            CallMember();
        --depth_;
    }
    void Answer(DISPPARAMS& parameters)
    {
        for (UINT slot = 0; slot < parameters.cArgs; ++slot) {
            VARIANTARG& argument = parameters.rgvarg[slot];
            if (argument.vt == (VT_BYREF | VT_BOOL))
                *argument.pboolVal = random_.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE;
            if (argument.vt == (VT_BYREF | VT_I2))
                *argument.piVal = static_cast<SHORT>(random_.Between(-1, 40));
            if (argument.vt == (VT_BYREF | VT_I4))
                *argument.plVal = random_.Between(-2, 40);
        }
    }
    // Mostly inside the grid, sometimes past it.
    LONG Row() { return random_.Between(-2, 33); }
    LONG Col() { return random_.Between(-2, 6); }
    VARIANT_BOOL Flag() { return random_.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE; }
    template<class Enum> Enum One(int limit) { return static_cast<Enum>(random_.Below(limit)); }
    VARIANT Number(LONG value)
    {
        VARIANT number = {};
        number.vt = VT_I4;
        number.lVal = value;
        return number;
    }

    void CallMember()
    {
        using Call = void (*)(InputMonkey & self, ILorvGrid & grid);
        static constexpr Call calls[] = {
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Row(self.Row()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Col(self.Col()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_RowSel(self.Row()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_ColSel(self.Col()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_TopRow(self.Row()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_LeftCol(self.Col()); },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.Select(self.Row(), self.Col(), self.Number(self.Row()), self.Number(self.Col()));
            },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Rows(self.random_.Between(-1, 40)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Cols(self.random_.Between(-1, 8)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_FixedRows(self.random_.Below(4)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_FixedCols(self.random_.Below(3)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_FrozenRows(self.random_.Below(4)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_FrozenCols(self.random_.Below(3)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_RowHidden(self.Row(), self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_ColHidden(self.Col(), self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.put_RowHeight(self.Row(), self.random_.Between(-1, 1000));
            },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.put_ColWidth(self.Col(), self.random_.Between(-1, 3000));
            },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_SelectionMode(self.One<SelModeSettings>(4)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_IsSelected(self.Row(), self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_MergeCells(self.One<MergeSettings>(8)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_MergeCol(self.Col(), self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_MergeRow(self.Row(), self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Editable(self.One<EditableSettings>(3)); },
            [](InputMonkey&, ILorvGrid& grid) { grid.EditCell(); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.FinishEditing(self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_AutoSearch(self.One<AutoSearchSettings>(3)); },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.put_ExplorerBar(static_cast<ExplorerBarSettings>(self.random_.Below(16)));
            },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.put_AllowUserResizing(self.One<AllowUserResizeSettings>(5));
            },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.put_AllowUserFreezing(self.One<AllowUserFreezeSettings>(4));
            },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_ScrollBars(self.One<ScrollBarsSettings>(4)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_RightToLeft(self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_AllowSelection(self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_AllowBigSelection(self.Flag()); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Redraw(self.One<RedrawSettings>(3)); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_Sort(self.One<SortSettings>(11)); },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.put_TabBehavior(self.One<TabBehaviorSettings>(2));
            },
            [](InputMonkey& self, ILorvGrid&) { self.PutText(); },
            [](InputMonkey& self, ILorvGrid& grid) { grid.put_HighLight(self.One<ShowSelSettings>(3)); },
            [](InputMonkey& self, ILorvGrid& grid) {
                grid.AutoSize(self.Col(), self.Number(self.Col()), self.Number(0), self.Number(0));
            },
            [](InputMonkey& self, ILorvGrid&) { self.ReadText(); },
            [](InputMonkey& self, ILorvGrid&) { self.ReadAnything(); },
            [](InputMonkey& self, ILorvGrid&) { self.ReadAnything(); },
        };
        random_.Of(calls)(*this, *grid_.Get());
    }
    void PutText()
    {
        wchar_t text[] = {static_cast<wchar_t>('a' + random_.Below(4)), 0};
        BSTR value = SysAllocString(text);
        grid_->put_TextMatrix(Row(), Col(), value);
        SysFreeString(value);
    }
    // Any property that is read without arguments.
    void ReadAnything()
    {
        DISPPARAMS none = {};
        OwnedVariant result;
        EXCEPINFO exception = {};
        grid_->Invoke(random_.Between(-600, 260), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                      result.Put(), &exception, nullptr);
        for (BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
            SysFreeString(text);
    }
    void ReadText()
    {
        Bstr text;
        grid_->get_TextMatrix(Row(), Col(), text.Put());
    }

    Random random_;
    int depth_ = 0;
    bool quiet_ = false;
};
} // namespace

TEST_F(InputMonkey, LeavesAGridInOrder)
{
    Play(WarmUp);
    ComeToRest();
    int objects = GdiObjectCount();
    Play(Messages - WarmUp);
    EXPECT_LT(Read(&ILorvGrid::get_RowSel), std::max(Read(&ILorvGrid::get_Rows), 1L));
    ComeToRest();
    EXPECT_TRUE(IsWindow(window_));
    EXPECT_EQ(nullptr, GetCapture());
    EXPECT_FALSE(KillTimer(window_, 100)) << "a timer is left";
    EXPECT_GE(Read(&ILorvGrid::get_Row), -1);
    EXPECT_LT(Read(&ILorvGrid::get_Row), 31);
    EXPECT_GE(Read(&ILorvGrid::get_Col), -1);
    EXPECT_LT(Read(&ILorvGrid::get_Col), 5);
    EXPECT_GE(Read(&ILorvGrid::get_TopRow), 1);
    EXPECT_LT(Read(&ILorvGrid::get_TopRow), 31);
    EXPECT_GE(Read(&ILorvGrid::get_LeftCol), 1);
    EXPECT_LT(Read(&ILorvGrid::get_LeftCol), 5);
    EXPECT_LE(std::abs(GdiObjectCount() - objects), 8);
}
