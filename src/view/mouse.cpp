#include "view/mouse.h"

#include "view/messages.h"

namespace
{
bool TakeFocus(Grid& grid)
{
    HWND focus = GetFocus();
    if (focus != grid.Window && !IsChild(grid.Window, focus))
        SetFocus(grid.Window);
    return true;
}
} // namespace

bool OnLeftButtonDown(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    return TakeFocus(grid);
}

bool OnRightButtonDown(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    return TakeFocus(grid);
}

bool OnMiddleButtonDown(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    return TakeFocus(grid);
}

bool OnLeftButtonUp(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnRightButtonUp(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnMiddleButtonUp(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnLeftDoubleClick(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnRightDoubleClick(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnMouseMove(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnMouseLeave(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnDragTimer(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnSetCursor(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

bool OnCaptureChanged(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

void StopDragTimer(Grid& grid)
{
    KillTimer(grid.Window, DragTimer);
}

bool DropMouseDrag(Grid& grid)
{
    if (!grid.Window || GetCapture() != grid.Window)
        return false;
    grid.PaintMode &= ~static_cast<uint32_t>(PaintMouseHeld);
    ReleaseCapture();
    return true;
}
