#include "edit/tips.h"

#include "platform/memory.h"
#include "support/grid_window.h"
#include "view/messages.h"

#include <commctrl.h>

#include <vector>

namespace
{
constexpr DISPID BeforeScrollTipId = 35;

// 31 rows of 20 pixels in 200: the bar runs from 20 to 620.
class Tips : public GridInWindow
{
protected:
    Tips()
    {
        SetWindowLongPtrW(grid.Window, GWL_STYLE, GetWindowLongPtrW(grid.Window, GWL_STYLE) | WS_VSCROLL);
        RecalculateLayout(grid);
        grid.TipOptions = TipOptionScrollTips | TipOptionToolTips;
        SetOption(grid, OptionScrollTrack, false);
        CreateTipWindow(grid);
        Settle();
    }
    ~Tips() override { ReleaseTips(grid); }

    static void SetText(wchar_t*& field, const wchar_t* text)
    {
        FreeBlock(std::exchange(field, text ? DuplicateText(text) : nullptr));
    }
    std::wstring TipText() const
    {
        wchar_t text[100] = L"";
        TTTOOLINFOW tool = Tool();
        tool.lpszText = text;
        SendMessageW(grid.TipWindow, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
        return text;
    }
    TTTOOLINFOW Tool() const
    {
        TTTOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = grid.Window;
        tool.uId = reinterpret_cast<UINT_PTR>(grid.Window);
        return tool;
    }
    bool IsShown() const { return IsWindowVisible(grid.TipWindow); }
    LRESULT Send(UINT message, WPARAM wParam)
    {
        LRESULT result = 0;
        ProcessWindowMessage(grid, message, wParam, 0, result);
        return result;
    }
    // Where the thumb is dragged to, as far as the bar lets it.
    void Track(int position)
    {
        SetScrollPos(grid.Window, SB_VERT, position, FALSE);
        Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, position));
    }
    std::vector<long> TipRows() // that were announced since the last call
    {
        std::vector<long> rows;
        for (const FiredEvent& event : std::exchange(events.Events, {}))
            if (event.Id == BeforeScrollTipId)
                rows.push_back(event.Values[0]);
        return rows;
    }
};
using Rows = std::vector<long>;

TEST_F(Tips, WindowIsATopmostTipWithTheGridAsItsTool)
{
    wchar_t name[40] = L"";
    GetClassNameW(grid.TipWindow, name, 40);
    EXPECT_STREQ(name, TOOLTIPS_CLASSW);
    EXPECT_TRUE(GetWindowLongW(grid.TipWindow, GWL_EXSTYLE) & WS_EX_TOPMOST);
    LONG style = GetWindowLongW(grid.TipWindow, GWL_STYLE);
    EXPECT_EQ(style & 0xFFFF, TTS_ALWAYSTIP | TTS_NOPREFIX);
    EXPECT_EQ(SendMessageW(grid.TipWindow, TTM_GETTOOLCOUNT, 0, 0), 1);
    TTTOOLINFOW tool = Tool();
    wchar_t text[100] = L"";
    tool.lpszText = text;
    ASSERT_TRUE(SendMessageW(grid.TipWindow, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)));
    EXPECT_EQ(tool.uFlags, UINT{TTF_IDISHWND | TTF_SUBCLASS});
    EXPECT_STREQ(text, L"");
    EXPECT_EQ(SendMessageW(grid.TipWindow, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 0) << "no wait";
    EXPECT_EQ(SendMessageW(grid.TipWindow, TTM_GETMAXTIPWIDTH, 0, 0), 32767) << "no wrapping";
    EXPECT_FALSE(IsShown());
}

TEST_F(Tips, NewWindowTakesThePlaceOfTheOldOne)
{
    HWND old = grid.TipWindow;
    grid.LastTipRow = 5;
    CreateTipWindow(grid);
    EXPECT_FALSE(IsWindow(old));
    EXPECT_TRUE(IsWindow(grid.TipWindow));
    EXPECT_EQ(grid.LastTipRow, -1);
}

TEST_F(Tips, WithoutAWindowOfTheGridThereIsNone)
{
    Grid bare;
    CreateTipWindow(bare);
    EXPECT_EQ(bare.TipWindow, nullptr);
    ShowTip(bare, L"text");
    UpdateScrollTip(bare, SB_THUMBTRACK);
    HideTip(bare);
}

TEST_F(Tips, TextShowsAndAnEmptyOneHides)
{
    for (const wchar_t* nothing : {L"", static_cast<const wchar_t*>(nullptr)}) {
        ShowTip(grid, L"a tip");
        EXPECT_TRUE(IsShown());
        EXPECT_EQ(TipText(), L"a tip");
        ShowTip(grid, nothing);
        EXPECT_FALSE(IsShown());
        EXPECT_EQ(TipText(), L"") << "or the pointer would bring it back";
    }
}

TEST_F(Tips, TipIsNearThePointerAndNotUnderIt)
{
    for (POINT at : {POINT{150, 100}, POINT{260, 30}}) {
        SetCursorPos(at.x, at.y);
        HideTip(grid);
        ShowTip(grid, L"a tip");
        RECT tip = {};
        GetWindowRect(grid.TipWindow, &tip);
        EXPECT_FALSE(PtInRect(&tip, at));
        InflateRect(&tip, 40, 40);
        EXPECT_TRUE(PtInRect(&tip, at)) << tip.left << ',' << tip.top << " for " << at.x << ',' << at.y;
    }
}

TEST_F(Tips, AmpersandsAndLongTextsShowAsTheyAre)
{
    ShowTip(grid, L"salt & pepper");
    EXPECT_EQ(TipText(), L"salt & pepper");
    std::wstring longText(5000, L'w');
    ShowTip(grid, longText.c_str());
    EXPECT_TRUE(IsShown());
}

TEST_F(Tips, ScrollTipNamesTheRowUnderTheThumbOnce)
{
    SetText(grid.ScrollTipText, L"row");
    Track(100);
    EXPECT_EQ(TipRows(), Rows{5});
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(grid.LastTipRow, 5);
    Track(119);
    EXPECT_EQ(TipRows(), Rows{}) << "still the same row";
    Track(120);
    EXPECT_EQ(TipRows(), Rows{6}) << "a sum that equals the position has not passed it";
}

TEST_F(Tips, ScrollTipShowsWhatTheHandlerSet)
{
    events.On = [this](DISPID id, DISPPARAMS& parameters) {
        if (id == BeforeScrollTipId)
            SetText(grid.ScrollTipText, (L"row " + std::to_wstring(parameters.rgvarg[0].lVal)).c_str());
    };
    Track(100);
    EXPECT_EQ(TipText(), L"row 5");
    Track(160);
    EXPECT_EQ(TipText(), L"row 8");
}

// From where the rest of the rows fits the page the tip is one row ahead, since the thumb cannot go further.
TEST_F(Tips, NearTheEndTheTipIsOneRowAhead)
{
    SCROLLINFO bar = Bar(SB_VERT);
    ASSERT_EQ(bar.nMax, 620);
    ASSERT_EQ(static_cast<int>(bar.nPage), 180);
    Track(419);
    EXPECT_EQ(TipRows(), Rows{20});
    Track(420); // the row's end, 440, and the page reach 620
    EXPECT_EQ(TipRows(), Rows{22});
}

TEST_F(Tips, TheLastRowIsNeverPassed)
{
    Resize(3, 2);
    SCROLLINFO bar = {sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, 600, 10, 0, 0};
    SetScrollInfo(grid.Window, SB_VERT, &bar, FALSE);
    for (int position : {45, 59, 60, 500}) {
        grid.LastTipRow = -1;
        Track(position);
        EXPECT_EQ(TipRows(), Rows{2}) << position;
    }
    ResizeRows(grid, 0);
    grid.LastTipRow = -1;
    UpdateScrollTip(grid, SB_THUMBTRACK);
    EXPECT_EQ(TipRows(), Rows{});
}

TEST_F(Tips, HiddenRowsTakeUpNoRoomUnderTheThumb)
{
    HideRow(4), HideRow(5);
    RecalculateLayout(grid);
    Settle();
    Rows all;
    for (int position = 20; position < 160; position += 10) {
        Track(position);
        for (long row : TipRows())
            all.push_back(row);
    }
    EXPECT_EQ(all, (Rows{1, 2, 3, 6, 7, 8, 9}));
}

TEST_F(Tips, EndOfTheDragHidesTheTip)
{
    SetText(grid.ScrollTipText, L"row");
    Track(100);
    ASSERT_TRUE(IsShown());
    Send(WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(grid.LastTipRow, -1);
    Track(100);
    EXPECT_EQ(TipRows(), (Rows{5, 5})) << "the row is announced again";
}

TEST_F(Tips, ScrollTipsComeOnlyWhileTheirPropertyIsOn)
{
    grid.TipOptions = TipOptionToolTips;
    Track(100);
    EXPECT_EQ(TipRows(), Rows{});
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(grid.LastTipRow, -1);
}

TEST_F(Tips, WithoutTheSharedWindowScrollTipsStop)
{
    DestroyTipWindow(grid);
    Track(100);
    EXPECT_EQ(TipRows(), Rows{});
    CreateTipWindow(grid);
    Track(160);
    EXPECT_EQ(TipRows(), Rows{8});
}

TEST_F(Tips, HandlerThatTracksAgainIsNotEnteredTwice)
{
    int depth = 0, deepest = 0;
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id != BeforeScrollTipId)
            return;
        deepest = std::max(deepest, ++depth);
        Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 200));
        --depth;
    };
    Track(100);
    EXPECT_EQ(deepest, 1);
}

TEST_F(Tips, HandlerMayTakeTheWindowOrTheRowsAway)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeScrollTipId) {
            DestroyTipWindow(grid);
            ResizeRows(grid, 1);
        }
    };
    Track(100);
    EXPECT_EQ(grid.TipWindow, nullptr);
}

TEST_F(Tips, MouseShowsTheToolTipInPlaceOfAScrollTip)
{
    SetText(grid.ToolTipText, L"over a cell");
    ShowToolTip(grid);
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(TipText(), L"over a cell");
    SetText(grid.ToolTipText, nullptr);
    ShowToolTip(grid);
    EXPECT_FALSE(IsShown());
    // A scroll tip that is still there goes, and the tool tip with it until the next move.
    grid.LastTipRow = 5;
    SetText(grid.ToolTipText, L"over a cell");
    ShowToolTip(grid);
    EXPECT_EQ(grid.LastTipRow, -1);
    EXPECT_FALSE(IsShown());
    ShowToolTip(grid);
    EXPECT_TRUE(IsShown());
}

TEST_F(Tips, MoveOfTheMouseShowsTheTextThatItsHandlerSet)
{
    constexpr DISPID mouseMoveId = -606;
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == mouseMoveId)
            SetText(grid.ToolTipText, L"set in MouseMove");
    };
    Send(WM_MOUSEMOVE, 0);
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(TipText(), L"set in MouseMove");
    grid.LastTipRow = 5;
    Send(WM_MOUSELEAVE, 0);
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(grid.LastTipRow, -1);
}

TEST_F(Tips, ToolTipShowsInWhateverWindowThereIs)
{
    grid.TipOptions = TipOptionScrollTips;
    SetText(grid.ToolTipText, L"over a cell");
    ShowToolTip(grid);
    EXPECT_TRUE(IsShown());
}

TEST_F(Tips, WindowOfTheGridTakesEverythingAlong)
{
    SetText(grid.ToolTipText, L"over a cell");
    SetText(grid.ScrollTipText, L"row");
    HWND tip = grid.TipWindow;
    Send(WM_DESTROY, 0);
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_EQ(grid.TipWindow, nullptr);
    EXPECT_EQ(grid.ToolTipText, nullptr);
    EXPECT_EQ(grid.ScrollTipText, nullptr);
}

// Hosts that set ToolTips alone before the window was there have never seen a tip.
TEST_F(Tips, NewWindowOfTheGridHasATipWindowWithScrollTipsOnly)
{
    const struct {
        uint32_t Options;
        bool HasWindow;
    } cases[] = {{0, false},
                 {TipOptionToolTips, false},
                 {TipOptionScrollTips, true},
                 {TipOptionScrollTips | TipOptionToolTips, true}};
    for (const auto& c : cases) {
        DestroyTipWindow(grid);
        grid.TipOptions = c.Options;
        Send(WM_CREATE, 0);
        EXPECT_EQ(grid.TipWindow != nullptr, c.HasWindow) << c.Options;
    }
}

TEST(TipTexts, DieWithTheGrid)
{
    HeapBalance balance;
    Grid grid;
    grid.ToolTipText = DuplicateText(L"one");
    grid.ScrollTipText = DuplicateText(L"two");
}
} // namespace
