// The control goes away in the middle of an edit, from inside every event that an edit fires.

#include "support/hosted_grid.h"

#include <iterator>
#include <ostream>
#include <tuple>

namespace
{
class EditEnd;

struct Moment {
    DISPID Id;
};
struct Ending {
    const char* Name;
    void (*Do)(EditEnd& test);
};
std::ostream& operator<<(std::ostream& out, const Moment& moment)
{
    return out << EventName(moment.Id);
}
std::ostream& operator<<(std::ostream& out, const Ending& ending)
{
    return out << ending.Name;
}

class EditEnd : public HostedGrid, public testing::WithParamInterface<std::tuple<Moment, Ending>>
{
public:
    void EndWindow() { DestroyWindow(window_); }
    void EndParent() { DestroyWindow(parent_); }
    void Deactivate() { As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate(); }
    void EndControl()
    {
        object_->Close(OLECLOSE_NOSAVE);
        object_->SetClientSite(nullptr);
        object_.Reset();
        grid_.Reset();
    }

protected:
    void Key(UINT message, WPARAM key)
    {
        if (IsWindow(window_))
            SendMessageW(GetFocus(), message, key, 1);
        Pump();
    }
    // An edit that fires each of its events: a text, a check box, a button, a refusal.
    void Edit()
    {
        grid_->put_Editable(lorvEDKbdMouse);
        grid_->put_Row(2);
        grid_->put_Col(2);
        SetFocus(window_);
        Key(WM_CHAR, 'a');
        Key(WM_KEYDOWN, 'B');
        Key(WM_CHAR, 'b');
        Key(WM_KEYUP, 'B');
        Key(WM_KEYDOWN, VK_RETURN);
        Key(WM_KEYDOWN, VK_F2);
        Key(WM_KEYDOWN, VK_ESCAPE);
        if (!grid_)
            return;
        Bstr button(L"...");
        grid_->put_ComboList(button.Get());
        Key(WM_CHAR, VK_RETURN);
        if (!grid_)
            return;
        Bstr list(L"|One|Two");
        grid_->put_ComboList(list.Get());
        Key(WM_KEYDOWN, VK_F2);
        Key(WM_CHAR, 'O');
        Key(WM_KEYDOWN, VK_TAB);
    }
};

constexpr Moment moments[] = {{21}, {22}, {23}, {24}, {25}, {26}, {27},
                              {28}, {34}, {43}, {46}, {48}, {83}, {84}};
constexpr Ending endings[] = {
    {"EndsTheControl", [](EditEnd& test) { test.EndControl(); }},
    {"EndsTheWindow", [](EditEnd& test) { test.EndWindow(); }},
    {"EndsTheParent", [](EditEnd& test) { test.EndParent(); }},
    {"Deactivates", [](EditEnd& test) { test.Deactivate(); }},
};
} // namespace

TEST_P(EditEnd, LeavesNothingBehind)
{
    auto [moment, ending] = GetParam();
    bool done = false;
    events_.On[moment.Id] = [&](DISPPARAMS&) {
        if (!std::exchange(done, true))
            ending.Do(*this);
    };
    Edit();
    EXPECT_TRUE(done) << "the event never came";
}

INSTANTIATE_TEST_SUITE_P(InEveryEvent, EditEnd,
                         testing::Combine(testing::ValuesIn(moments), testing::ValuesIn(endings)),
                         [](const auto& info) {
                             return EventName(std::get<0>(info.param).Id) + std::get<1>(info.param).Name;
                         });

// A whole edit as a host sees it, through the control alone.
class EditThroughCom : public HostedGrid
{
};

TEST_F(EditThroughCom, OpensAndStores)
{
    grid_->put_Row(2);
    grid_->put_Col(2);
    EXPECT_EQ(S_OK, grid_->EditCell());
    LONG window = 0;
    EXPECT_EQ(S_OK, grid_->get_EditWindow(&window));
    HWND editor = reinterpret_cast<HWND>(static_cast<INT_PTR>(window));
    EXPECT_EQ(window_, GetParent(editor));
    Bstr typed(L"typed"), read;
    EXPECT_EQ(S_OK, grid_->put_EditText(typed.Get()));
    EXPECT_EQ(S_OK, grid_->get_EditText(read.Put()));
    EXPECT_STREQ(L"typed", read.Text());
    EXPECT_EQ(S_OK, grid_->FinishEditing(VARIANT_FALSE));
    EXPECT_EQ(S_OK, grid_->get_TextMatrix(2, 2, read.Put()));
    EXPECT_STREQ(L"typed", read.Text());
    EXPECT_EQ(S_OK, grid_->get_EditWindow(&window));
    EXPECT_EQ(0, window);
}

TEST_F(EditThroughCom, LeavesTheHostWithTheEditorOpen)
{
    grid_->put_Row(2);
    grid_->put_Col(2);
    SetFocus(window_);
    grid_->EditCell();
    Pump();
    EXPECT_TRUE(site_.Frame.Active);
    As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate();
    EXPECT_FALSE(site_.Frame.Active) << "it has become the active object again on its way out";
}
