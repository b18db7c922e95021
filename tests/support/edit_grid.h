#pragma once
// A grid on a live window, edited by messages as a user's keys make them; what it fires is a line of text.

#include "core/events.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/window_text.h"
#include "support/event_text.h"
#include "support/fakes.h"
#include "support/held_keys.h"
#include "support/member_grid.h"
#include "view/messages.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

constexpr DISPID BeforeEditId = 21, StartEditId = 22, ValidateEditId = 23, AfterEditId = 24,
                 KeyPressEditId = 25, KeyDownEditId = 26, KeyUpEditId = 27, ChangeEditId = 28,
                 CellButtonClickId = 34, CellChangedId = 43, SetupEditWindowId = 46, SetupEditStyleId = 48,
                 BeforeMouseDownId = 5, EndAutoSearchId = 52, ComboDropDownId = 49, ComboCloseUpId = 50,
                 ComboDrawItemId = 86;

// The members of a grid on a window of 300 by 200 in a frame: 20 rows of 20 pixels and 5 columns of 50, the
// first of each fixed. Without grid lines a cell's rectangle is the editor's.
class LiveGrid
{
public:
    MemberGrid grid;
    EventSink events;

    explicit LiveGrid(HWND frame)
    {
        RegisterWindowClass();
        grid.Window = CreateWindowExW(0, ClassName, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 300,
                                      200, frame, nullptr, nullptr, static_cast<Grid*>(&grid));
        ResizeBoth(grid, 20, 5);
        for (int row = 0; row < grid.Rows; ++row)
            grid.RowTable[row].Height = 20;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = 50;
        grid.Editable = lorvEDKbdMouse;
        grid.ShowComboButton = lorvSBEditing; // painting asks BeforeEdit for buttons otherwise
        RecalculateLayout(grid);
        EXPECT_TRUE(grid.EventSinks.Add(&events, cookie_));
        events.On = [this](DISPID id, DISPPARAMS& parameters) { OnEvent(id, parameters); };
    }
    LiveGrid(const LiveGrid&) = delete;
    LiveGrid& operator=(const LiveGrid&) = delete;
    ~LiveGrid()
    {
        act = nullptr;
        if (grid.Window)
            DestroyWindow(grid.Window);
        Disconnect();
    }
    void Disconnect() { grid.EventSinks.Remove(cookie_); }

    // What a test does inside an event.
    std::function<void(DISPID, DISPPARAMS&)> act;
    void On(DISPID wanted, std::function<void(DISPPARAMS&)> what)
    {
        act = [wanted, what](DISPID id, DISPPARAMS& parameters) {
            if (id == wanted)
                what(parameters);
        };
    }
    void Refuse(DISPID wanted)
    {
        On(wanted, [](DISPPARAMS& parameters) { *parameters.rgvarg[0].pboolVal = VARIANT_TRUE; });
    }

    void Put(int row, int col, const wchar_t* text)
    {
        SetCellText(grid, row, col, text);
        fired_.clear();
    }
    std::wstring Text(int row, int col)
    {
        const wchar_t* text = IsCell(grid, row, col) ? GetCellText(grid, row, col) : L"(none)";
        return text ? text : L"";
    }
    void GoTo(int row, int col)
    {
        grid.Row = grid.RowSel = row;
        grid.Col = grid.ColSel = col;
    }
    std::string Cursor() const { return std::to_string(grid.Row) + "," + std::to_string(grid.Col); }

    // What was fired since the last call, editing alone: "BeforeEdit(1,1) ValidateEdit(1,1)!" with a mark
    // where Cancel, or FinishEdit, arrives set.
    std::string Fired()
    {
        std::string fired;
        fired.swap(fired_);
        return fired;
    }

    HWND Box() const { return OpenEditorWindow(grid); }
    bool IsOpen() const { return IsShown(Box()); }
    std::wstring Shown() const { return Box() ? std::wstring(WindowText(Box()).Text()) : L"(closed)"; }
    std::string Selected() const
    {
        DWORD start = 0, end = 0;
        SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return std::to_string(start) + "-" + std::to_string(end);
    }
    void Select(int start, int end) const { SendMessageW(Box(), EM_SETSEL, static_cast<WPARAM>(start), end); }

    // Messages that wait, those of posted work included.
    static void Pump()
    {
        MSG message;
        for (int i = 0; i < 1000 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i)
            DispatchMessageW(&message);
    }
    // A key of the keyboard, at the window that has the focus.
    static void Press(int key)
    {
        SendMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        Pump();
    }
    static void Release(int key)
    {
        SendMessageW(GetFocus(), WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
        Pump();
    }
    static void Type(const wchar_t* text)
    {
        for (; *text; ++text) {
            SendMessageW(GetFocus(), WM_CHAR, *text, 1);
            Pump();
        }
    }
    void Open(int key = EditSelectAll)
    {
        EXPECT_TRUE(StartCellEdit(grid, key));
        Pump();
    }

private:
    static constexpr wchar_t ClassName[] = L"LiveGridOfTests";

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_NCCREATE) {
            void* grid = reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams;
            SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(grid));
            static_cast<Grid*>(grid)->Window = window;
        }
        auto* grid = reinterpret_cast<Grid*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!grid)
            return DefWindowProcW(window, message, wParam, lParam);
        LRESULT result = 0;
        bool handled = ProcessWindowMessage(*grid, message, wParam, lParam, result);
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            grid->Window = nullptr;
        }
        return handled ? result : DefWindowProcW(window, message, wParam, lParam);
    }
    static void RegisterWindowClass()
    {
        WNDCLASSW info = {};
        info.lpfnWndProc = Procedure;
        info.lpszClassName = ClassName;
        RegisterClassW(&info);
    }

    void OnEvent(DISPID id, DISPPARAMS& parameters)
    {
        if (std::string text = Describe(id, parameters); !text.empty())
            fired_ += (fired_.empty() ? "" : " ") + text;
        if (auto running = act) // a copy: it may take itself away
            running(id, parameters);
    }

    // Questions and results name their cell, keys their code.
    static std::string Describe(DISPID id, DISPPARAMS& parameters)
    {
        auto number = [&](UINT at) { return ArgumentText(EventSink::Argument(parameters, at)); };
        switch (id) {
        case BeforeEditId:
        case StartEditId:
        case ValidateEditId:
        case ComboCloseUpId:
            return EventText(id, parameters) + (*parameters.rgvarg[0].pboolVal ? "!" : "");
        case AfterEditId:
        case CellChangedId:
        case CellButtonClickId:
        case ComboDropDownId:
            return EventText(id, parameters);
        case KeyPressEditId:
        case KeyDownEditId:
        case KeyUpEditId:
            return EventName(id) + "(" + number(2) + ")";
        case ChangeEditId:
        case SetupEditWindowId:
        case SetupEditStyleId:
        case EndAutoSearchId:
        case BeforeMouseDownId:
            return EventName(id);
        default:
            return {};
        }
    }

    std::string fired_;
    uint32_t cookie_ = 0;
};

// The frame, with another window in it that can take the focus.
class EditTest : public testing::Test
{
protected:
    EditTest()
        : frame_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 700, 300, nullptr, nullptr,
                                 nullptr, nullptr)),
          other_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 250, 100, 20, frame_, nullptr,
                                 nullptr, nullptr)),
          live(frame_), grid(live.grid)
    {
        SetActiveWindow(frame_);
        SetFocus(grid.Window);
        LiveGrid::Pump();
        live.Fired();
    }
    ~EditTest() override
    {
        live.act = nullptr;
        DestroyWindow(frame_);
        LiveGrid::Pump();
    }

    HWND frame_, other_;
    LiveGrid live;
    MemberGrid& grid;
};
