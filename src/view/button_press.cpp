#include "view/button_press.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/upcalls.h"
#include "view/cell_text.h"
#include "view/header_press.h"

#include <algorithm>

namespace
{
bool MayHaveButton(const Grid& grid, CellPos hit) noexcept
{
    return grid.Editable != lorvEDNone && grid.ShowComboButton != lorvSBEditing &&
           hit == CellPos{grid.Row, grid.Col} && IsCell(grid, hit.Row, hit.Col) &&
           !IsFixedCell(grid, hit.Row, hit.Col);
}

RECT ButtonRect(Grid& grid, CellPos cell)
{
    RECT area = CellRect(grid, cell.Row, cell.Col);
    if (HasOption(grid, OptionRightToLeft))
        TextAreaAdjust(grid, cell.Row, cell.Col, CellFormatOf(grid, cell.Row, cell.Col), area, false);
    area.left = std::max<LONG>(area.left, area.right - GetSystemMetrics(SM_CXHSCROLL));
    return area;
}
} // namespace

// Only where the pointer is across the cell counts: the button is as high as the cell.
bool PressCellButton(Grid& grid, POINT point, CellPos hit)
{
    if (!MayHaveButton(grid, hit))
        return false;
    KeepAlive alive(grid);
    if (!HasButtonList(grid) || !grid.Window || !IsCell(grid, hit.Row, hit.Col))
        return false;
    RECT button = ButtonRect(grid, hit);
    if (point.x < button.left || point.x >= button.right)
        return false;
    --button.right, --button.bottom;
    if (TrackButtonPress(grid, point, button))
        StartCellEdit(grid, EditPlain);
    return true;
}
