#pragma once
// The registered control, active in a container, as an input test wants it; what it fires becomes text.

#include "support/event_text.h"
#include "support/held_keys.h"
#include "support/hosted_control.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

// Writes down what it is told, and runs what a test puts under an event's number.
class EventTexts : public LocalDispatch
{
public:
    using Handler = std::function<void(DISPPARAMS& parameters)>;
    std::map<DISPID, Handler> On;
    std::function<void(DISPID id, DISPPARAMS& parameters)> OnAny;

    // All since the last call, in one line.
    std::string Take() { return std::exchange(text_, {}); }

protected:
    void* FindMore(REFIID iid) override
    {
        return IsEqualIID(iid, DIID__ILorvGridEvents) ? static_cast<IDispatch*>(this) : nullptr;
    }
    void OnInvoke(DISPID id, DISPPARAMS& parameters) override
    {
        text_ += (text_.empty() ? "" : " ") + EventText(id, parameters);
        if (OnAny)
            OnAny(id, parameters);
        if (auto handler = On.find(id); handler != On.end())
            Handler(handler->second)(parameters); // a copy: it may take itself away
    }

private:
    std::string text_;
};

// Sets the last argument, a flag to be answered.
inline void Cancel(DISPPARAMS& parameters)
{
    *parameters.rgvarg[0].pboolVal = VARIANT_TRUE;
}

// 31 rows of 20 pixels and 5 columns of 50, the first of each fixed, in a client area of 300 by 200 with a
// bar at the right: ten rows show, and row 22 is the last that can be the first scrolled one.
class HostedGrid : public HostedControl
{
protected:
    static constexpr int RowHeight = 20, ColWidth = 50;

    void SetUp() override
    {
        HostedControl::SetUp();
        site_.Position = {0, 0, 300, 200};
        grid_->put_BorderStyle(lorvBorderNone);
        grid_->put_Rows(31);
        grid_->put_Cols(5);
        grid_->put_RowHeight(-1, RowHeight * 15);
        grid_->put_ColWidth(-1, ColWidth * 15);
        window_ = Activate();
        ASSERT_NE(nullptr, window_);
        auto point = Point(DIID__ILorvGridEvents);
        ASSERT_EQ(S_OK, point->Advise(static_cast<IDispatch*>(&events_), &cookie_));
    }
    void TearDown() override
    {
        events_.On.clear();
        events_.OnAny = nullptr;
        if (DWORD cookie = std::exchange(cookie_, 0); cookie && grid_)
            Point(DIID__ILorvGridEvents)->Unadvise(cookie);
        HostedControl::TearDown();
        Pump(); // nothing of this test reaches the next one
    }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(window_, message, wParam, lParam);
    }
    // What the key fires, with the keys of `held` down.
    std::string Press(int key, std::initializer_list<int> held = {})
    {
        HeldKeys keys(held);
        events_.Take();
        Send(WM_KEYDOWN, key);
        return events_.Take();
    }
    static void Pump()
    {
        MSG message = {};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    long Read(HRESULT (STDMETHODCALLTYPE ILorvGrid::*get)(LONG*))
    {
        LONG value = -999;
        (grid_.Get()->*get)(&value);
        return value;
    }
    // "Row,Col to RowSel,ColSel at TopRow,LeftCol"
    std::string Position()
    {
        auto text = [this](auto get) { return std::to_string(Read(get)); };
        return text(&ILorvGrid::get_Row) + "," + text(&ILorvGrid::get_Col) + " to " +
               text(&ILorvGrid::get_RowSel) + "," + text(&ILorvGrid::get_ColSel) + " at " +
               text(&ILorvGrid::get_TopRow) + "," + text(&ILorvGrid::get_LeftCol);
    }

    EventTexts events_;
    DWORD cookie_ = 0;
    HWND window_ = nullptr;
};
