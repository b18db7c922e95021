#include "view/wheel.h"

#include "core/events.h"
#include "platform/key_state.h"
#include "view/scroll.h"
#include "view/scroll_bar.h"

#include <algorithm>
#include <cstdlib>

namespace
{
constexpr UINT DefaultLines = 3;

UINT LinesPerNotch() noexcept
{
    UINT lines = DefaultLines;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return lines;
}

bool CanScrollRows(const Grid& grid) noexcept
{
    if (!grid.Window || !(grid.ScrollBars & lorvScrollBarVertical))
        return false;
    ScrollBarState bar = ReadScrollBar(grid, RowAxis);
    return bar.Exists && bar.Info.nMax > bar.Info.nMin;
}

// "A page per notch" is a very large number of lines; more than all rows are none.
int64_t LineCount(const Grid& grid, int notches) noexcept
{
    return std::min<int64_t>(int64_t{LinesPerNotch()} * std::abs(notches), grid.Rows);
}
} // namespace

UINT WheelMessage() noexcept
{
    static const UINT message = RegisterWindowMessageW(L"MSWHEEL_ROLLMSG");
    return message;
}

// The rest of a turn that is no whole notch is dropped.
bool OnMouseWheel(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    if (IsKeyHeld(VK_SHIFT) || IsKeyHeld(VK_CONTROL) || !CanScrollRows(grid))
        return true;
    KeepAlive alive(grid);
    int delta = static_cast<short>(HIWORD(wParam));
    int code = delta < 1 ? SB_LINEDOWN : SB_LINEUP;
    for (int64_t left = LineCount(grid, delta / WHEEL_DELTA); left > 0; --left)
        ScrollVertical(grid, code, 0, false);
    return true;
}
