#include "view/selection.h"

#include "core/errors.h"
#include "core/events.h"
#include "core/selection_range.h"
#include "core/upcalls.h"
#include "view/scroll.h"

#include <utility>

void FireSelectionEvents(Grid& grid)
{
    KeepAlive alive(grid);
    bool cellMoved = grid.LastRow != grid.Row || grid.LastCol != grid.Col;
    bool listChanged = grid.SelectionMode == lorvSelectionListBox && (grid.PaintMode & PaintListChanged) != 0;
    bool selectionMoved = grid.LastRowSel != grid.RowSel || grid.LastColSel != grid.ColSel || listChanged;
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListChanged);
    int oldRow = std::exchange(grid.LastRow, grid.Row), oldCol = std::exchange(grid.LastCol, grid.Col);
    int oldRowSel = std::exchange(grid.LastRowSel, grid.RowSel);
    int oldColSel = std::exchange(grid.LastColSel, grid.ColSel);
    if (cellMoved) {
        event::EnterCell(grid);
        event::RowColChange(grid);
        event::AfterRowColChange(grid, oldRow, oldCol, grid.Row, grid.Col);
    }
    if (cellMoved || selectionMoved) {
        event::SelChange(grid);
        event::AfterSelChange(grid, oldRowSel, oldColSel, grid.RowSel, grid.ColSel);
    }
}

namespace
{
bool IsLocked(const Grid& grid) noexcept
{
    return (grid.EditFlags & EditFlagSelectionLocked) != 0;
}

bool FitsTables(const Grid& grid, int row, int col) noexcept
{
    return row < grid.Rows && col < grid.Cols;
}

void InvalidateArea(const Grid& grid, const RECT& area) noexcept
{
    if (grid.Window)
        InvalidateRect(grid.Window, &area, FALSE);
}

// Whether the handlers let the cursor go there. BeforeSelChange is told the old cell, not the old corner of
// the selection: hosts rely on it.
bool AskToMove(Grid& grid, int row, int col, int mode)
{
    int oldRow = grid.Row, oldCol = grid.Col;
    bool cellChanges = row != oldRow || col != oldCol;
    bool selectionChanges = row != grid.RowSel || col != grid.ColSel;
    if (cellChanges) {
        event::LeaveCell(grid);
        if (event::BeforeRowColChange(grid, oldRow, oldCol, row, col))
            return false;
    }
    if (!cellChanges && !selectionChanges)
        return false;
    return mode == CursorSilent || !event::BeforeSelChange(grid, oldRow, oldCol, row, col);
}

void PlaceCursor(Grid& grid, int row, int col)
{
    InvalidateArea(grid, SelectionPixelRect(grid, false));
    if (row >= -1)
        grid.Row = grid.RowSel = row;
    if (col >= -1)
        grid.Col = grid.ColSel = col;
    InvalidateArea(grid, SelectionPixelRect(grid, false));
    RepaintSelectionHeaders(grid);
}
} // namespace

// A move that a handler refuses brings the cell into view all the same when it comes from the user.
HRESULT MoveCursor(Grid& grid, int row, int col, int mode)
{
    KeepAlive alive(grid);
    CommitEdit(grid);
    if (IsLocked(grid))
        return S_OK;
    if (row < -1)
        row = grid.Row;
    if (col < -1)
        col = grid.Col;
    if (!FitsTables(grid, row, col))
        return LORV_E_INDEX;
    bool moves = AskToMove(grid, row, col, mode);
    if (!FitsTables(grid, row, col)) // a handler has taken the cell away
        return S_OK;
    if (moves)
        PlaceCursor(grid, row, col);
    if (mode >= CursorShow)
        ScrollToCell(grid, row, col, false);
    if (moves && mode != CursorSilent)
        ReportSelection(grid);
    return S_OK;
}

HRESULT SetCurrentRow(Grid& grid, int row)
{
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
    if (row < -1 || row >= grid.Rows)
        return LORV_E_INDEX;
    KeepAlive alive(grid);
    HRESULT result = MoveCursor(grid, row, -2, CursorReport);
    if (SUCCEEDED(result) && grid.SelectionMode == lorvSelectionListBox)
        SetRowsSelected(grid, grid.Row, grid.RowSel, true, true);
    return result;
}

HRESULT SetCurrentCol(Grid& grid, int col)
{
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
    if (col < -1 || col >= grid.Cols)
        return LORV_E_INDEX;
    KeepAlive alive(grid);
    HRESULT result = MoveCursor(grid, -2, col, CursorReport);
    if (SUCCEEDED(result) && grid.SelectionMode == lorvSelectionListBox)
        SetRowsSelected(grid, grid.Row, grid.RowSel, true, true);
    return result;
}

namespace
{
void ShowForExtension(Grid& grid, int rowSel, int colSel, int mode)
{
    switch (mode) {
    case CursorShow:
        return ScrollToCell(grid, rowSel, colSel, false);
    case CursorShowCell:
        return ScrollToCell(grid, grid.Row, grid.Col, false);
    case CursorShowRow:
        return ScrollToCell(grid, rowSel, -1, false);
    case CursorShowCol:
        return ScrollToCell(grid, -1, colSel, false);
    default:
        return;
    }
}

void PlaceCorner(Grid& grid, int rowSel, int colSel)
{
    RECT before = SelectionPixelRect(grid, false);
    grid.RowSel = rowSel;
    grid.ColSel = colSel;
    RECT after = SelectionPixelRect(grid, false), band = {};
    if (RectDifference(band, before, after)) {
        InvalidateArea(grid, band);
    } else {
        InvalidateArea(grid, before);
        InvalidateArea(grid, after);
    }
    RepaintSelectionHeaders(grid);
}

// A selection that begins in the frozen part and ends out of sight covers more than its corners tell.
bool RunsOutOfFrozenPart(const Grid& grid)
{
    if (grid.SelectionMode == lorvSelectionByRow || grid.SelectionMode == lorvSelectionListBox)
        return false;
    CellRange range = SelectionRange(grid);
    bool frozen = range.Row1 < FrozenEndRow(grid) || range.Col1 < FrozenEndCol(grid);
    return frozen && !IsCellVisible(grid, range.Row2, range.Col2);
}

bool HasOneScrollableLine(const Grid& grid) noexcept
{
    return grid.Rows - FrozenEndRow(grid) <= 1 || grid.Cols - FrozenEndCol(grid) <= 1;
}
} // namespace

HRESULT ExtendSelection(Grid& grid, int rowSel, int colSel, int mode)
{
    KeepAlive alive(grid);
    CommitEdit(grid);
    if (IsLocked(grid))
        return S_OK;
    if (!FitsTables(grid, rowSel, colSel))
        return LORV_E_INDEX;
    if (rowSel < 0)
        rowSel = grid.RowSel;
    if (colSel < 0)
        colSel = grid.ColSel;
    bool changes = rowSel != grid.RowSel || colSel != grid.ColSel;
    if (!changes && !HasOneScrollableLine(grid))
        return S_OK;
    ShowForExtension(grid, rowSel, colSel, mode);
    changes = rowSel != grid.RowSel || colSel != grid.ColSel;
    if (changes && event::BeforeSelChange(grid, grid.RowSel, grid.ColSel, rowSel, colSel))
        return S_OK;
    if (!FitsTables(grid, rowSel, colSel)) // a handler has taken the corner away
        return S_OK;
    PlaceCorner(grid, rowSel, colSel);
    if (mode != CursorReport && RunsOutOfFrozenPart(grid))
        RepaintGrid(grid);
    ReportSelection(grid);
    return S_OK;
}
