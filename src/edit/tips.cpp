#include "edit/tips.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/memory.h"
#include "view/scroll_bar.h"

#include <commctrl.h>

#include <cstdint>
#include <utility>

namespace
{
constexpr int LongestTip = 32767; // pixels; tips never wrap

// The grid's window is the tool, and the window of which the tip hears the messages.
TTTOOLINFOW ToolOf(const Grid& grid, const wchar_t* text) noexcept
{
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = grid.Window;
    tool.uId = reinterpret_cast<UINT_PTR>(grid.Window);
    tool.lpszText = const_cast<wchar_t*>(text);
    return tool;
}

template<class Pointer> LPARAM AsParam(Pointer* pointer) noexcept
{
    return reinterpret_cast<LPARAM>(pointer);
}

void ForgetScrollTip(Grid& grid)
{
    if (grid.LastTipRow >= 0)
        HideTip(grid);
}

// The row under the thumb, which is the next one as soon as the rest of the rows would fit the page.
int TipRow(const Grid& grid, const SCROLLINFO& bar)
{
    int row = 0, last = grid.Rows - 1;
    int64_t sum = 0;
    for (; row <= last; ++row)
        if ((sum += EffectiveRowHeight(grid, row)) > bar.nTrackPos)
            break;
    if (row >= last)
        return last;
    return sum + bar.nPage >= bar.nMax ? row + 1 : row;
}
} // namespace

void DestroyTipWindow(Grid& grid)
{
    if (HWND tip = std::exchange(grid.TipWindow, nullptr))
        DestroyWindow(tip);
}

void CreateTipWindow(Grid& grid)
{
    grid.LastTipRow = -1;
    DestroyTipWindow(grid);
    if (!grid.Window)
        return;
    InitCommonControls();
    grid.TipWindow = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                                     0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    if (!grid.TipWindow)
        return;
    TTTOOLINFOW tool = ToolOf(grid, L"");
    SendMessageW(grid.TipWindow, TTM_ADDTOOLW, 0, AsParam(&tool));
    SendMessageW(grid.TipWindow, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    SendMessageW(grid.TipWindow, TTM_SETMAXTIPWIDTH, 0, LongestTip);
}

void ReleaseTips(Grid& grid)
{
    DestroyTipWindow(grid);
    FreeAndClear(grid.ScrollTipText);
    FreeAndClear(grid.ToolTipText);
}

void ShowTip(Grid& grid, const wchar_t* text)
{
    HWND tip = grid.TipWindow;
    if (!tip)
        return;
    bool shows = text && *text;
    TTTOOLINFOW tool = ToolOf(grid, shows ? text : L"");
    SendMessageW(tip, TTM_UPDATETIPTEXTW, 0, AsParam(&tool)); // the old text must not come back by itself
    if (!shows) {
        SendMessageW(tip, TTM_TRACKACTIVATE, FALSE, AsParam(&tool));
        SendMessageW(tip, TTM_POP, 0, 0);
        return;
    }
    SendMessageW(tip, TTM_UPDATE, 0, 0);
    SendMessageW(tip, TTM_TRACKACTIVATE, TRUE, AsParam(&tool));
    SetWindowPos(tip, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
}

void HideTip(Grid& grid)
{
    ShowTip(grid, nullptr);
    grid.LastTipRow = -1;
}

// Whichever of the two properties made the window, ToolTipText shows in it.
void ShowToolTip(Grid& grid)
{
    ShowTip(grid, grid.ToolTipText);
    ForgetScrollTip(grid);
}

void UpdateScrollTip(Grid& grid, int scrollCode)
{
    if (!grid.TipWindow || !(grid.TipOptions & TipOptionScrollTips))
        return;
    if (scrollCode != SB_THUMBTRACK) {
        ForgetScrollTip(grid);
        return;
    }
    int row = TipRow(grid, ReadScrollBar(grid, RowAxis).Info);
    if (row < 0 || row == grid.LastTipRow)
        return;
    event::BeforeScrollTip(grid, row);
    ShowTip(grid, grid.ScrollTipText);
    grid.LastTipRow = row;
}
