#pragma once
// A grid whose window handles its messages, a mouse for it, and what it fires as text.

#include "platform/dpi.h"
#include "support/grid_window.h"
#include "view/messages.h"
#include "view/mouse_state.h"

#include <initializer_list>
#include <map>

// A mouse message that waits for a gesture.
struct Queued {
    UINT Message;
    int X = 0, Y = 0;
};
inline Queued MoveTo(int x, int y)
{
    return {WM_MOUSEMOVE, x, y};
}
inline Queued ReleaseAt(int x, int y)
{
    return {WM_LBUTTONUP, x, y};
}
inline Queued Escape()
{
    return {WM_KEYDOWN};
}

// The sheet of GridInWindow: cell (row, col) begins at (50 * col, 20 * row).
class GridUnderMouse : public GridInWindow
{
protected:
    GridUnderMouse()
    {
        SetWindowLongPtrW(grid.Window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(grid.Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
        HoldKeys({});
        TheMouse() = {};
        SetFocus(grid.Window);
        events.On = [this](DISPID id, DISPPARAMS& parameters) {
            if (refuse && refuse(id))
                *parameters.rgvarg[0].pboolVal = VARIANT_TRUE; // Cancel is the last argument
            if (act)
                act(id, parameters);
        };
        Settle();
    }
    ~GridUnderMouse() override
    {
        act = nullptr, refuse = nullptr;
        HoldKeys({});
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_EQ(TheMouse().TimerWindow, nullptr) << "the timer of a drag runs on";
        EXPECT_FALSE(grid.PaintMode & PaintMouseHeld);
        DropMouseMessages();
    }

    std::function<void(DISPID, DISPPARAMS&)> act; // what a handler does

    // The keys and buttons that are down.
    static void HoldKeys(std::initializer_list<int> keys)
    {
        BYTE state[256] = {};
        for (int key : keys)
            state[key] = 0x80;
        SetKeyboardState(state);
    }

    LRESULT Send(UINT message, int x, int y, WPARAM wParam = 0)
    {
        return SendMessageW(grid.Window, message, wParam, MAKELPARAM(x, y));
    }
    void Queue(std::initializer_list<Queued> messages)
    {
        for (const Queued& each : messages)
            PostMessageW(grid.Window, each.Message, each.Message == WM_KEYDOWN ? VK_ESCAPE : 0,
                         MAKELPARAM(each.X, each.Y));
    }

    void Hover(int x, int y) { Send(WM_MOUSEMOVE, x, y); }
    // A press with keys held beside the button. What a gesture of its own needs must have been queued.
    void Press(int x, int y, int modifier = VK_LBUTTON)
    {
        HoldKeys({VK_LBUTTON, modifier});
        Send(WM_LBUTTONDOWN, x, y, MK_LBUTTON);
    }
    void DragTo(int x, int y) { Send(WM_MOUSEMOVE, x, y, MK_LBUTTON); }
    void Release(int x, int y)
    {
        HoldKeys({});
        Send(WM_LBUTTONUP, x, y);
    }
    void Click(int x, int y, int modifier = VK_LBUTTON)
    {
        Press(x, y, modifier);
        Release(x, y);
    }
    // The whole of a gesture that runs a loop of its own. The last message has to end it.
    void Gesture(int x, int y, std::initializer_list<Queued> messages)
    {
        HoldKeys({});
        Hover(x, y);
        Told();
        Queue(messages);
        Press(x, y);
        HoldKeys({});
    }

    void DropMouseMessages()
    {
        MSG message = {};
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_MOUSELAST, PM_REMOVE)) {
        }
    }
    bool MessagesWait() const
    {
        MSG message = {};
        return PeekMessageW(&message, grid.Window, WM_MOUSEMOVE, WM_MOUSELAST, PM_NOREMOVE) != FALSE;
    }

    // What was fired since the last call, with arguments, lengths in pixels, and without those that a handler
    // sets to cancel: "BeforeMouseDown(1,0,75,30) MouseDown(1,0,75,30)".
    std::string Told(const char* leaveOut = "")
    {
        std::string text;
        for (const FiredEvent& event : std::exchange(events.Events, {})) {
            std::string name = NameOf(event.Id);
            if (name == leaveOut)
                continue;
            text += (text.empty() ? "" : " ") + name;
            std::string arguments;
            for (size_t i = 0; i < event.Values.size(); ++i) {
                if (event.Types[i] == (VT_BYREF | VT_BOOL))
                    continue;
                long value = event.Types[i] == VT_R4 ? TwipsToPixelsX(event.Values[i]) : event.Values[i];
                arguments += (arguments.empty() ? "" : ",") + std::to_string(value);
            }
            if (!arguments.empty())
                text += "(" + arguments + ")";
        }
        return text;
    }

    std::string Selection() const
    {
        return std::to_string(grid.Row) + "," + std::to_string(grid.Col) + ":" + std::to_string(grid.RowSel) +
               "," + std::to_string(grid.ColSel);
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* self = reinterpret_cast<GridUnderMouse*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        LRESULT result = 0;
        bool handled = self && self->grid.Window == window &&
                       ProcessWindowMessage(self->grid, message, wParam, lParam, result);
        if (message == WM_NCDESTROY && self && self->grid.Window == window)
            self->grid.Window = nullptr;
        return handled ? result : DefWindowProcW(window, message, wParam, lParam);
    }

    static std::string NameOf(DISPID id)
    {
        static const std::map<DISPID, const char*> names = {
            {-600, "Click"},          {-601, "DblClick"},        {-605, "MouseDown"},
            {-606, "MouseMove"},      {-607, "MouseUp"},         {1, "SelChange"},
            {2, "RowColChange"},      {3, "EnterCell"},          {4, "LeaveCell"},
            {5, "BeforeMouseDown"},   {6, "BeforeRowColChange"}, {7, "AfterRowColChange"},
            {8, "BeforeSelChange"},   {9, "AfterSelChange"},     {10, "BeforeScroll"},
            {11, "AfterScroll"},      {13, "BeforeSort"},        {14, "AfterSort"},
            {15, "BeforeMoveColumn"}, {16, "AfterMoveColumn"},   {17, "BeforeUserResize"},
            {18, "AfterUserResize"},  {21, "BeforeEdit"},        {22, "StartEdit"},
            {23, "ValidateEdit"},     {24, "AfterEdit"},         {34, "CellButtonClick"},
            {36, "AfterUserFreeze"},  {44, "BeforeMoveRow"},     {45, "AfterMoveRow"},
            {52, "EndAutoSearch"},    {83, "SetFocus"},          {84, "KillFocus"},
        };
        auto name = names.find(id);
        return name == names.end() ? std::to_string(id) : name->second;
    }
};
