#include "core/upcalls.h"
#include "view/header_press.h"

int DragRowWithMouse(Grid& grid, int row)
{
    POINT point = {};
    if (!grid.Window || !GetCursorPos(&point) || !ScreenToClient(grid.Window, &point))
        return row;
    return TrackRowMove(grid, point, row);
}
