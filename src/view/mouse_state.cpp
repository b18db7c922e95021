#include "view/mouse_state.h"

MouseState& TheMouse() noexcept
{
    static MouseState state;
    return state;
}

MouseZone ZoneOf(const Grid& grid) noexcept
{
    const MouseState& mouse = TheMouse();
    return grid.Window && mouse.ZoneWindow == grid.Window ? mouse.Zone : MouseZone::None;
}

void SetZone(const Grid& grid, MouseZone zone) noexcept
{
    TheMouse().Zone = zone;
    TheMouse().ZoneWindow = grid.Window;
}
