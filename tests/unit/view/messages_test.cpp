// The table of the window's messages: what they answer, and whether the default procedure follows.

#include "view/messages.h"

#include "core/upcalls.h"
#include "support/event_text.h"
#include "support/grid_window.h"
#include "view/mouse.h"
#include "view/scroll.h"
#include "view/theme.h"

namespace
{
class Messages : public GridInWindow
{
protected:
    LRESULT result = -1;

    bool Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        result = -1;
        return ProcessWindowMessage(grid, message, wParam, lParam, result);
    }
    bool RepaintsAll() const
    {
        RECT client = {}, update = Invalid();
        GetClientRect(grid.Window, &client);
        return EqualRect(&client, &update);
    }
    static std::string Names(const EventSink& sink)
    {
        std::string text;
        for (const FiredEvent& event : sink.Events)
            text += (text.empty() ? "" : " ") + EventName(event.Id);
        return text;
    }
};
constexpr LRESULT Untouched = -1;
} // namespace

TEST_F(Messages, AnswerAsHostsAndToolsExpect)
{
    const struct {
        UINT Message;
        WPARAM Parameter;
        bool Handled;
        LRESULT Result;
    } rows[] = {
        {20, 0, true, 1},        // WM_ERASEBKGND: every pixel is painted
        {33, 0, true, 1},        // WM_MOUSEACTIVATE
        {1149, 1, true, 456654}, // the sign of a grid that prints
        {1149, 0x80000000, true, 456654},
        {1153, 801, true, 0},
        {1153, 803, true, 0},
        {1152, 0, true, Untouched}, // numbers kept free
        {1164, 0, true, Untouched},
        {1150, 0, false, Untouched}, // the next ones are nobody's
        {1156, 0, false, Untouched},
        {61, 0, false, Untouched},  // WM_GETOBJECT
        {133, 1, false, Untouched}, // WM_NCPAINT
        {32, 0, false, Untouched},  // WM_SETCURSOR
        {WM_SYSCHAR, 'x', false, Untouched},
        {WM_TIMER, 99, false, Untouched},
        {WM_COMMAND, MAKEWPARAM(665, EN_UPDATE), false, Untouched}, // a window of the host's
        {WM_CTLCOLOREDIT, 0, false, Untouched},
        {WM_CTLCOLORLISTBOX, 0, false, Untouched},
        {WM_CTLCOLORSTATIC, 0, false, Untouched},
        {WM_DRAWITEM, 667, false, Untouched}, // no drop-down is open
        {WM_NULL, 0, false, Untouched},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Send(row.Message, row.Parameter), row.Handled) << row.Message << " " << row.Parameter;
        EXPECT_EQ(result, row.Result) << row.Message << " " << row.Parameter;
    }
}

TEST_F(Messages, AGridTellsAnotherOneWhereItIs)
{
    EXPECT_TRUE(Send(1153, 802));
    EXPECT_EQ(result, reinterpret_cast<LRESULT>(&grid));
}

TEST_F(Messages, KeysThatDialogsLeaveToTheGrid)
{
    MSG enter = {grid.Window, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    MSG enterUp = {grid.Window, WM_KEYUP, VK_RETURN, 0, 0, {}};
    MSG tab = {grid.Window, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    const struct {
        int16_t TabBehavior;
        int32_t Editable;
        const MSG* Message;
        LRESULT Answer;
    } rows[] = {
        {lorvTabControls, lorvEDNone, nullptr, 129}, {lorvTabControls, lorvEDNone, &enter, 129},
        {lorvTabControls, lorvEDKbd, &enter, 4},     {lorvTabControls, lorvEDKbdMouse, &enter, 4},
        {lorvTabControls, lorvEDKbd, nullptr, 129},  {lorvTabControls, lorvEDKbd, &enterUp, 129},
        {lorvTabControls, lorvEDKbd, &tab, 129},     {lorvTabCells, lorvEDNone, nullptr, 4},
        {lorvTabCells, lorvEDNone, &tab, 4},
    };
    for (const auto& row : rows) {
        grid.TabBehavior = row.TabBehavior;
        grid.Editable = row.Editable;
        EXPECT_TRUE(Send(WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(row.Message)));
        EXPECT_EQ(result, row.Answer) << row.TabBehavior << " " << row.Editable;
    }
}

TEST_F(Messages, NewSystemColoursRebuildWhatIsDrawnWith)
{
    for (UINT message : {21u, 785u}) {
        SetOption(grid, OptionGdiStale, false);
        Settle();
        EXPECT_TRUE(Send(message));
        EXPECT_TRUE(HasOption(grid, OptionGdiStale)) << message;
        EXPECT_TRUE(RepaintsAll()) << message;
    }
}

TEST_F(Messages, ANewThemeIsOpenedForTheWindow)
{
    grid.Theme.ThemeWindow = nullptr;
    Send(WM_THEMECHANGED);
    EXPECT_EQ(grid.Theme.ThemeWindow, grid.Window);
    CloseThemes(grid);
}

TEST_F(Messages, ANewFrameRebuildsWhatIsDrawnWith)
{
    WINDOWPOS moved = {}, framed = {};
    framed.flags = SWP_FRAMECHANGED | SWP_NOSIZE;
    SetOption(grid, OptionGdiStale, false);
    EXPECT_FALSE(Send(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&moved))); // WM_SIZE comes of it
    EXPECT_FALSE(Send(WM_WINDOWPOSCHANGED));
    EXPECT_FALSE(HasOption(grid, OptionGdiStale));
    EXPECT_FALSE(Send(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&framed)));
    EXPECT_TRUE(HasOption(grid, OptionGdiStale));
}

TEST_F(Messages, ASizeIsLaidOutAndReported)
{
    grid.DefaultRowHeight = 0;
    Send(WM_SIZE);
    EXPECT_LT(0, grid.DefaultRowHeight);
    EXPECT_EQ(Names(events), "Resize");
}

TEST_F(Messages, ACancelledModeEndsThePress)
{
    SetCapture(grid.Window);
    grid.PaintMode |= PaintMouseHeld;
    EXPECT_TRUE(Send(WM_CANCELMODE));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(grid.PaintMode & PaintMouseHeld);
}

TEST_F(Messages, ACancelledModeLeavesTheMouseOfOthers)
{
    HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    SetCapture(other);
    Send(WM_CANCELMODE);
    EXPECT_EQ(GetCapture(), other);
    DestroyWindow(other);
}

TEST_F(Messages, SelectionIsReportedLater)
{
    grid.Row = 9;
    EXPECT_TRUE(Send(1155));
    EXPECT_EQ(Names(events), "EnterCell RowColChange AfterRowColChange SelChange AfterSelChange");
}

// Scroll bars

TEST_F(Messages, BarsScrollByTheirCodes)
{
    EXPECT_TRUE(Send(WM_VSCROLL, SB_LINEDOWN));
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_TRUE(Send(WM_VSCROLL, MAKEWPARAM(ScrollDirect, 12)));
    EXPECT_EQ(grid.TopRow, 12);
    Resize(31, 20);
    EXPECT_TRUE(Send(WM_HSCROLL, MAKEWPARAM(ScrollDirect, 7)));
    EXPECT_EQ(grid.LeftCol, 7);
}

// A handler that runs a message loop does not scroll from inside of its own scroll.
TEST_F(Messages, ABarDoesNotScrollWithinItsOwnScroll)
{
    Resize(31, 20);
    bool inside = false;
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id != BeforeScrollId || std::exchange(inside, true))
            return;
        LRESULT ignored = 0;
        ProcessWindowMessage(grid, WM_VSCROLL, MAKEWPARAM(ScrollDirect, 20), 0, ignored);
        ProcessWindowMessage(grid, WM_HSCROLL, MAKEWPARAM(ScrollDirect, 5), 0, ignored);
    };
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_TRUE(inside);
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_EQ(grid.LeftCol, 5); // the other bar is free
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(grid.TopRow, 3); // and so is this one afterwards
}

// The corner between the bars

namespace
{
class SizeBox : public Messages
{
protected:
    // In a mirrored grid the bars are at the left.
    void Mirror(bool mirrored, bool themed, LONG_PTR bars)
    {
        SetOption(grid, OptionRightToLeft, mirrored);
        grid.Theme.ThemeActive = themed;
        LONG_PTR style = GetWindowLongPtrW(grid.Window, GWL_STYLE) & ~LONG_PTR{WS_HSCROLL | WS_VSCROLL};
        SetWindowLongPtrW(grid.Window, GWL_STYLE, style | bars);
        LONG_PTR styleEx = GetWindowLongPtrW(grid.Window, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_LEFTSCROLLBAR};
        SetWindowLongPtrW(grid.Window, GWL_EXSTYLE, styleEx | (mirrored ? WS_EX_LEFTSCROLLBAR : 0));
        SetWindowPos(grid.Window, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    }
    ~SizeBox() override { grid.Theme.ThemeActive = 0; }
};
} // namespace

TEST_F(SizeBox, IsTheGridsWhereTheSystemForgetsIt)
{
    constexpr LONG_PTR both = WS_HSCROLL | WS_VSCROLL;
    for (bool mirrored : {false, true})
        for (bool themed : {false, true})
            for (LONG_PTR bars : {LONG_PTR{0}, LONG_PTR{WS_HSCROLL}, LONG_PTR{WS_VSCROLL}, both}) {
                Mirror(mirrored, themed, bars);
                EXPECT_EQ(Send(WM_NCPAINT, 1), mirrored && themed && bars == both)
                    << mirrored << themed << bars;
            }
}

TEST_F(SizeBox, IsFilledAtTheLeft)
{
    Mirror(true, true, WS_HSCROLL | WS_VSCROLL);
    HDC dc = GetWindowDC(grid.Window);
    RECT all = {0, 0, Width, Height};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    Send(WM_NCPAINT, 1);
    EXPECT_EQ(GetPixel(dc, 1, Height - 2), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(GetPixel(dc, Width / 2, 5), RGB(0, 0, 0)); // the client area is left alone
    ReleaseDC(grid.Window, dc);
}
