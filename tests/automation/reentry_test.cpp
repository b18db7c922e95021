// Handlers that do the worst inside of every event that keys, focus and scroll bars fire: the control bears
// it, and nothing of a gesture is left behind.

#include "support/hosted_grid.h"

#include <ostream>
#include <tuple>

namespace
{
class Reentry;

struct Happening {
    const char* Name;
    DISPID Id;
};
struct Action {
    const char* Name;
    void (*Do)(Reentry& test, DISPPARAMS& parameters);
};
std::ostream& operator<<(std::ostream& out, const Happening& event)
{
    return out << event.Name;
}
std::ostream& operator<<(std::ostream& out, const Action& action)
{
    return out << action.Name;
}

class Reentry : public HostedGrid, public testing::WithParamInterface<std::tuple<Happening, Action>>
{
public:
    void ResizeTo(long rows, long cols)
    {
        grid_->put_Rows(rows);
        grid_->put_Cols(cols);
    }
    void FixEverything()
    {
        LONG rows = Read(&ILorvGrid::get_Rows), cols = Read(&ILorvGrid::get_Cols);
        grid_->put_FixedRows(rows);
        grid_->put_FixedCols(cols);
    }
    void EndWindow() { DestroyWindow(window_); }
    void EndParent() { DestroyWindow(parent_); }
    void Deactivate() { As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate(); }
    // As a host does that takes the control off its form.
    void EndControl()
    {
        object_->Close(OLECLOSE_NOSAVE);
        object_->SetClientSite(nullptr);
        object_.Reset();
        grid_.Reset();
    }
    void LeaveEvents()
    {
        if (DWORD cookie = std::exchange(cookie_, 0))
            Point(DIID__ILorvGridEvents)->Unadvise(cookie);
    }
    void PressAgain()
    {
        if (std::exchange(inside_, true))
            return;
        for (int key : {VK_NEXT, VK_LEFT, VK_HOME})
            Send(WM_KEYDOWN, key);
        Send(WM_VSCROLL, SB_PAGEDOWN);
        Send(WM_CHAR, 'q');
        inside_ = false;
    }
    void PumpInside()
    {
        if (std::exchange(inside_, true))
            return;
        PostMessageW(window_, WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(120, 90));
        PostMessageW(window_, WM_LBUTTONUP, 0, MAKELPARAM(120, 90));
        Pump();
        inside_ = false;
    }
    void MoveFocus() { SetFocus(GetFocus() == window_ ? parent_ : window_); }

protected:
    void SetUp() override
    {
        HostedGrid::SetUp();
        other_ = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 400, 10, 50, 20, parent_, nullptr,
                                 nullptr, nullptr);
        BSTR text = SysAllocString(L"a");
        for (LONG row = 1; row < 31; row += 7)
            grid_->put_TextMatrix(row, 1, text);
        SysFreeString(text);
        grid_->put_AutoSearch(lorvSearchFromCursor);
        grid_->put_ScrollTips(VARIANT_TRUE);
    }

    // Everything that a user's keys and bars do, as long as there is a window to do it to.
    void UseTheGrid()
    {
        const struct {
            UINT Message;
            WPARAM Parameter;
            std::initializer_list<int> Held;
        } steps[] = {
            {WM_KEYDOWN, VK_DOWN, {}},
            {WM_KEYUP, VK_DOWN, {}},
            {WM_KEYDOWN, VK_DOWN, {VK_SHIFT}},
            {WM_KEYDOWN, VK_NEXT, {}},
            {WM_KEYDOWN, VK_END, {VK_CONTROL}},
            {WM_CHAR, 'a', {}},
            {WM_CHAR, VK_BACK, {}},
            {WM_KEYDOWN, VK_UP, {}},
            {WM_VSCROLL, SB_TOP, {}},
            {WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100), {}},
            {WM_VSCROLL, SB_LINEDOWN, {}},
            {WM_MOUSEWHEEL, MAKEWPARAM(0, -120), {}},
            {WM_SYSKEYDOWN, VK_DOWN, {VK_MENU}},
            {WM_SYSKEYUP, VK_DOWN, {VK_MENU}},
            {WM_CANCELMODE, 0, {}},
        };
        Alive() && SetFocus(window_);
        for (const auto& step : steps)
            if (Alive()) {
                HeldKeys held(step.Held);
                if (step.Message == WM_SYSKEYDOWN && grid_)
                    grid_->put_Editable(lorvEDKbd);
                Send(step.Message, step.Parameter);
            }
        if (Alive())
            MoveWindow(window_, 0, 0, 280, 190, TRUE);
        if (IsWindow(other_))
            SetFocus(other_);
        Pump();
    }

private:
    bool Alive() const { return IsWindow(window_) != FALSE; }

    HWND other_ = nullptr;
    bool inside_ = false;
};

// What answers an event: the flag at the end, or a key at the front.
void Refuse(DISPPARAMS& parameters)
{
    for (UINT slot = 0; slot < parameters.cArgs; ++slot) {
        if (parameters.rgvarg[slot].vt == (VT_BYREF | VT_BOOL))
            *parameters.rgvarg[slot].pboolVal = VARIANT_TRUE;
        if (parameters.rgvarg[slot].vt == (VT_BYREF | VT_I2))
            *parameters.rgvarg[slot].piVal = 0;
    }
}

constexpr Happening happenings[] = {
    {"KeyDown", -602},         {"KeyPress", -603},      {"KeyUp", -604},          {"LeaveCell", 4},
    {"BeforeRowColChange", 6}, {"BeforeSelChange", 8},  {"BeforeScroll", 10},     {"AfterScroll", 11},
    {"EnterCell", 3},          {"RowColChange", 2},     {"AfterRowColChange", 7}, {"SelChange", 1},
    {"AfterSelChange", 9},     {"BeforeScrollTip", 35}, {"StartAutoSearch", 51},  {"EndAutoSearch", 52},
    {"SetFocus", 83},          {"KillFocus", 84},       {"Resize", 85},           {"BeforeEdit", 21},
};
constexpr Action actions[] = {
    {"Nothing", [](Reentry&, DISPPARAMS&) {}},
    {"Refuse", [](Reentry&, DISPPARAMS& parameters) { Refuse(parameters); }},
    {"NoRows", [](Reentry& test, DISPPARAMS&) { test.ResizeTo(0, 5); }},
    {"NoCols", [](Reentry& test, DISPPARAMS&) { test.ResizeTo(31, 0); }},
    {"NothingLeft", [](Reentry& test, DISPPARAMS&) { test.ResizeTo(0, 0); }},
    {"AllFixed", [](Reentry& test, DISPPARAMS&) { test.FixEverything(); }},
    {"EndWindow", [](Reentry& test, DISPPARAMS&) { test.EndWindow(); }},
    {"EndParent", [](Reentry& test, DISPPARAMS&) { test.EndParent(); }},
    {"Deactivate", [](Reentry& test, DISPPARAMS&) { test.Deactivate(); }},
    {"EndControl", [](Reentry& test, DISPPARAMS&) { test.EndControl(); }},
    {"LeaveEvents", [](Reentry& test, DISPPARAMS&) { test.LeaveEvents(); }},
    {"PressAgain", [](Reentry& test, DISPPARAMS&) { test.PressAgain(); }},
    {"PumpInside", [](Reentry& test, DISPPARAMS&) { test.PumpInside(); }},
    {"MoveFocus", [](Reentry& test, DISPPARAMS&) { test.MoveFocus(); }},
};
} // namespace

TEST_P(Reentry, IsBorne)
{
    auto [event, action] = GetParam();
    int happened = 0;
    events_.On[event.Id] = [&, action = action](DISPPARAMS& parameters) {
        if (++happened < 20)
            action.Do(*this, parameters);
    };
    UseTheGrid();
    EXPECT_LT(0, happened);
    EXPECT_EQ(nullptr, GetCapture());
    if (IsWindow(window_)) {
        EXPECT_FALSE(KillTimer(window_, 100)) << "a timer is left";
        UseTheGrid(); // it still works
    }
    if (grid_) {
        LONG rows = Read(&ILorvGrid::get_Rows), cols = Read(&ILorvGrid::get_Cols);
        EXPECT_TRUE(rows == 0 || Read(&ILorvGrid::get_RowSel) < rows);
        EXPECT_TRUE(cols == 0 || Read(&ILorvGrid::get_ColSel) < cols);
        EXPECT_LE(Read(&ILorvGrid::get_TopRow), rows);
        EXPECT_LE(Read(&ILorvGrid::get_LeftCol), cols);
    }
    if (grid_)
        LeaveEvents();
}

INSTANTIATE_TEST_SUITE_P(Keys, Reentry,
                         testing::Combine(testing::ValuesIn(happenings), testing::ValuesIn(actions)),
                         [](const auto& info) {
                             return std::string(std::get<0>(info.param).Name) + std::get<1>(info.param).Name;
                         });
