#pragma once
// A grid on a window of its own, and what it fires as text.

#include "core/cell_store.h"
#include "core/grid_object.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

// Rows of 20 pixels and columns of 50, the first of each fixed, in a client area of 300 by 200: 31 rows, so
// that row 22 is the last that can be the first scrolled one, and 5 columns, which all fit.
class GridInWindow : public testing::Test
{
protected:
    static constexpr int Width = 300, Height = 200, RowHeight = 20, ColWidth = 50;

    EventSink events;
    Grid grid;
    std::function<bool(DISPID)> refuse; // whether the event comes back cancelled

    GridInWindow()
    {
        // A pointer that something else left over the window would tell it of a move at any time.
        SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
        Resize(31, 5);
        grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, Width, Height, nullptr,
                                      nullptr, nullptr, nullptr);
        uint32_t cookie = 0;
        EXPECT_TRUE(grid.EventSinks.Add(&events, cookie));
        events.On = [this](DISPID id, DISPPARAMS& parameters) {
            if (refuse && refuse(id))
                *parameters.rgvarg[0].pboolVal = VARIANT_TRUE; // Cancel is the last argument
        };
        RecalculateLayout(grid);
        events.Events.clear();
    }
    ~GridInWindow() override
    {
        if (HWND window = std::exchange(grid.Window, nullptr))
            DestroyWindow(window);
    }

    void Resize(int rows, int cols)
    {
        ResizeBoth(grid, rows, cols);
        for (int row = 0; row < grid.Rows; ++row)
            grid.RowTable[row].Height = RowHeight;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = ColWidth;
        RecalculateLayout(grid);
        events.Events.clear();
    }
    void HideRow(int row) { grid.RowTable[row].Flags |= RowFlagHidden; }
    void HideCol(int col) { grid.ColTable[col].ColFlags |= ColFlagHidden; }

    SCROLLINFO Bar(int which) const
    {
        SCROLLINFO info = {sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
        GetScrollInfo(grid.Window, which, &info);
        return info;
    }

    void Settle()
    {
        ValidateRect(grid.Window, nullptr);
        events.Events.clear();
    }
    RECT Invalid() const
    {
        RECT update = {};
        GetUpdateRect(grid.Window, &update, FALSE);
        return update;
    }

    // What was fired since the last call: "LeaveCell BeforeScroll(1,1,2,1)", without the Cancel arguments.
    std::string Fired()
    {
        std::string text;
        for (const FiredEvent& event : std::exchange(events.Events, {})) {
            text += (text.empty() ? "" : " ") + NameOf(event.Id);
            size_t count = event.Values.size() / 4 * 4;
            for (size_t i = 0; i < count; ++i)
                text += (i == 0 ? "(" : ",") + std::to_string(event.Values[i]) + (i + 1 == count ? ")" : "");
        }
        return text;
    }

private:
    static std::string NameOf(DISPID id)
    {
        static const char* const names[] = {"?",
                                            "SelChange",
                                            "RowColChange",
                                            "EnterCell",
                                            "LeaveCell",
                                            "BeforeMouseDown",
                                            "BeforeRowColChange",
                                            "AfterRowColChange",
                                            "BeforeSelChange",
                                            "AfterSelChange",
                                            "BeforeScroll",
                                            "AfterScroll"};
        return id > 0 && id < 12 ? names[id] : std::to_string(id);
    }
};

constexpr DISPID BeforeRowColChangeId = 6, BeforeSelChangeId = 8, BeforeScrollId = 10, AfterScrollId = 11;
