#include "view/selection_click.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/key_state.h"
#include "view/hit_test.h"
#include "view/metrics.h"
#include "view/mouse_state.h"
#include "view/selection.h"

namespace
{
bool IsList(const Grid& grid) noexcept
{
    return grid.SelectionMode == lorvSelectionListBox;
}

void SelectWhole(Grid& grid, SelectKind kind, CellPos from, CellPos to)
{
    TheMouse().Kind = kind;
    MoveCursor(grid, from.Row, from.Col, CursorSilent);
    ExtendSelection(grid, to.Row, to.Col, CursorReport);
}

// A click on a fixed cell that selects what it heads.
bool SelectByHeader(Grid& grid, CellPos hit)
{
    if (!HasOption(grid, OptionAllowBigSelection) || !HasOption(grid, OptionAllowSelection) || IsList(grid))
        return false;
    bool inRows = hit.Row < grid.FixedRows, inCols = hit.Col < grid.FixedCols;
    int lastRow = grid.Rows - 1, lastCol = grid.Cols - 1;
    bool extends = IsKeyHeld(VK_SHIFT);
    if (inRows && inCols)
        SelectWhole(grid, SelectKind::Settled, {grid.FixedRows, grid.FixedCols}, {lastRow, lastCol});
    else if (inRows && grid.SelectionMode != lorvSelectionByRow)
        SelectWhole(grid, SelectKind::WholeCols, {grid.FixedRows, extends ? grid.Col : hit.Col},
                    {lastRow, hit.Col});
    else if (inCols && grid.SelectionMode != lorvSelectionByColumn)
        SelectWhole(grid, SelectKind::WholeRows, {extends ? grid.Row : hit.Row, grid.FixedCols},
                    {hit.Row, lastCol});
    else
        return false;
    return true;
}

void SelectAllListRows(Grid& grid)
{
    ReportListChange(grid, SetRowsSelected(grid, grid.FixedRows, grid.Rows - 1, true, true));
    grid.PaintMode &= ~static_cast<uint32_t>(PaintMouseHeld);
    TheMouse().Kind = SelectKind::Settled;
}

// The cell that a click on a fixed cell means when it heads nothing.
CellPos ScrollableTarget(const Grid& grid, CellPos hit) noexcept
{
    if (hit.Row < grid.FixedRows)
        hit.Row = IsList(grid) ? grid.FixedRows : grid.Row;
    if (hit.Col < grid.FixedCols)
        hit.Col = grid.Col;
    return hit;
}

// A drag that follows gives the rows that it passes the state of the one that was clicked.
void FollowListRow(Grid& grid) noexcept
{
    bool adds = IsRow(grid, grid.Row) && (grid.RowTable[grid.Row].Flags & RowFlagSelected);
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListDragAdds);
    if (adds)
        grid.PaintMode |= PaintListDragAdds;
}

void ToggleListRow(Grid& grid, int rowBefore)
{
    if (!IsRow(grid, grid.Row))
        return;
    bool selected = (grid.RowTable[grid.Row].Flags & RowFlagSelected) != 0;
    ReportListChange(grid, SetRowSelected(grid, grid.Row, !selected));
    FollowListRow(grid);
    if (grid.Row == rowBefore)
        event::BeforeSelChange(grid, grid.RowSel, grid.ColSel, grid.RowSel, grid.ColSel);
}

void SelectListRows(Grid& grid, int rowBefore)
{
    if (!HasOption(grid, OptionAllowSelection)) {
        ReportListChange(grid, SetRowsSelected(grid, grid.Row, grid.Row, true, true));
        grid.PaintMode |= PaintListDragAdds;
    } else if (IsKeyHeld(VK_CONTROL)) {
        ToggleListRow(grid, rowBefore);
    } else {
        int last = IsKeyHeld(VK_SHIFT) ? grid.RowSel : grid.Row;
        ReportListChange(grid, SetRowsSelected(grid, grid.Row, last, true, true));
        FollowListRow(grid);
    }
    ReportSelection(grid);
}
} // namespace

bool SelectionClick(Grid& grid, POINT point)
{
    KeepAlive alive(grid);
    RECT client = ClientRectOf(grid);
    if (!PtInRect(&client, point))
        return false;
    CellHit hit = HitTest(grid, point, true, true);
    TheMouse().Kind = SelectKind::Cells;
    if (!hit.OnCell || grid.Rows == grid.FixedRows || grid.Cols == grid.FixedCols)
        return false;
    if (SelectByHeader(grid, hit.Cell))
        return true;
    if (IsList(grid) && hit.Cell.Row < grid.FixedRows && hit.Cell.Col < grid.FixedCols) {
        SelectAllListRows(grid);
        return true;
    }
    int rowBefore = grid.Row;
    CellPos target = ScrollableTarget(grid, hit.Cell);
    if (IsKeyHeld(VK_SHIFT) && HasOption(grid, OptionAllowSelection))
        ExtendSelection(grid, target.Row, target.Col, CursorReport);
    else
        MoveCursor(grid, target.Row, target.Col, CursorReport);
    if (IsList(grid))
        SelectListRows(grid, rowBefore);
    return true;
}
