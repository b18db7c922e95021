#include "core/grid_object.h"
#include "core/upcalls.h"

namespace
{
constexpr LONG_PTR BorderStylesEx = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;

void AddBorder(const Grid& grid, LONG_PTR& style, LONG_PTR& styleEx) noexcept
{
    switch (grid.Appearance) {
    case lorvFlat:
        style |= WS_BORDER;
        break;
    case lorv3D:
        styleEx |= WS_EX_CLIENTEDGE;
        break;
    default:
        styleEx |= WS_EX_STATICEDGE;
    }
}
} // namespace

void ApplyBorderStyle(Grid& grid)
{
    if (!grid.Window)
        return;
    LONG_PTR style = GetWindowLongPtrW(grid.Window, GWL_STYLE) & ~static_cast<LONG_PTR>(WS_BORDER);
    LONG_PTR styleEx = GetWindowLongPtrW(grid.Window, GWL_EXSTYLE) & ~(BorderStylesEx | WS_EX_LEFTSCROLLBAR);
    if (grid.BorderStyle != lorvBorderNone)
        AddBorder(grid, style, styleEx);
    if (HasOption(grid, OptionRightToLeft))
        styleEx |= WS_EX_LEFTSCROLLBAR;
    SetWindowLongPtrW(grid.Window, GWL_STYLE, style);
    SetWindowLongPtrW(grid.Window, GWL_EXSTYLE, styleEx);
    SetWindowPos(grid.Window, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
}
