#include "view/window_life.h"

#include "core/property_frame.h"
#include "core/upcalls.h"
#include "view/mouse.h"
#include "view/running_object.h"
#include "view/scroll.h"
#include "view/theme.h"

#include <utility>

namespace
{
// A scroll position that was set before there was a window comes into force.
void ScrollToWaitingPosition(Grid& grid)
{
    int top = grid.TopRow, left = grid.LeftCol;
    if (top <= grid.FixedRows && left <= grid.FixedCols)
        return;
    RecalculateLayout(grid);
    ScrollVertical(grid, ScrollDirect, top, true);
    ScrollHorizontal(grid, ScrollDirect, left, true);
}

void ForgetHoverCell(Grid& grid)
{
    int row = std::exchange(grid.HoverRow, -1), col = std::exchange(grid.HoverCol, -1);
    if (IsCell(grid, row, col))
        RepaintCell(grid, row, col);
}

void PrepareForUser(Grid& grid)
{
    LONG_PTR style = GetWindowLongPtrW(grid.Window, GWL_STYLE);
    SetWindowLongPtrW(grid.Window, GWL_STYLE, style | WS_HSCROLL | WS_VSCROLL);
    ScrollToWaitingPosition(grid);
    CreateDropTarget(grid);
    if (grid.TipOptions & TipOptionScrollTips)
        CreateTipWindow(grid);
    ForgetHoverCell(grid);
}
} // namespace

bool OnCreate(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    RegisterRunningObject(grid);
    ApplyBorderStyle(grid);
    if (!IsDesignMode(grid))
        PrepareForUser(grid);
    ThemeReopen(grid, grid.Window);
    return true;
}

// In a form designer the texts of the tips outlive the window.
bool OnDestroy(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    RevokeRunningObject(grid);
    StopDragTimer(grid);
    DestroyEditorWindows(grid);
    if (!IsDesignMode(grid)) {
        ReleaseDropTarget(grid);
        ReleaseTips(grid);
    }
    CloseThemes(grid);
    return true;
}
