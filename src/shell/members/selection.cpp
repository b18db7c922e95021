// Members of the grid: the current cell and the selection.
#include "view/selection.h"
#include "core/cell_pos.h"
#include "core/events.h"
#include "platform/variant.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
constexpr WordProperty selectionMode = {61, &Grid::SelectionMode, lorvSelectionListBox, StepRepaint};

void ClearSelectedRows(Grid& grid) noexcept
{
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Flags &= static_cast<uint8_t>(~RowFlagSelected);
}

void UnlockSelection(Grid& grid) noexcept
{
    grid.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
}

// Gives the outputs that are asked for; each may be null.
void Give(LONG* result, int value) noexcept
{
    if (result)
        *result = value;
}

// The handler's answer does not matter: the row is already selected.
void AnnounceRow(Grid& grid, LONG row)
{
    if (row >= 0 && IsCell(grid, grid.Row, grid.Col))
        event::BeforeSelChange(grid, grid.Row, grid.Col, static_cast<int>(row), grid.Col);
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_RowSel(LONG* result)
{
    return ReturnAtRunTime(*this, result, RowSel);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowSel(LONG value)
{
    UnlockSelection(*this);
    return IsRow(*this, value) ? ExtendSelection(*this, value, -1, CursorReport) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColSel(LONG* result)
{
    return ReturnAtRunTime(*this, result, ColSel);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColSel(LONG value)
{
    UnlockSelection(*this);
    return IsCol(*this, value) ? ExtendSelection(*this, -1, value, CursorReport) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Row(LONG* result)
{
    return ReturnAtRunTime(*this, result, Row);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Row(LONG value)
{
    return SetCurrentRow(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Col(LONG* result)
{
    return ReturnAtRunTime(*this, result, Col);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Col(LONG value)
{
    return SetCurrentCol(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SelectionMode(SelModeSettings* result)
{
    return Return(result, SelectionMode);
}

// The other corner of the selection stays where it is.
HRESULT STDMETHODCALLTYPE GridMembers::put_SelectionMode(SelModeSettings value)
{
    if (static_cast<unsigned>(value) > selectionMode.Largest)
        return LORV_E_VALUE;
    ClearSelectedRows(*this);
    return SetEnum(*this, selectionMode, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_IsSelected(LONG row, VARIANT_BOOL* result)
{
    return IsRow(*this, row) ? ReturnFlag(result, IsRowSelected(*this, row)) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_IsSelected(LONG row, VARIANT_BOOL value)
{
    KeepAlive alive(*this);
    bool changed = false;
    HRESULT result =
        ForRows(*this, row, [&](int each) { changed |= SetRowSelected(*this, each, (value & 1) != 0); });
    if (FAILED(result) || !changed)
        return result;
    AnnounceRow(*this, row);
    PaintMode |= PaintListChanged;
    FireSelectionEvents(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::Select(LONG row, LONG col, VARIANT rowSel, VARIANT colSel)
{
    UnlockSelection(*this);
    long lastRow = VariantToLong(rowSel, row), lastCol = VariantToLong(colSel, col);
    if (!IsCell(*this, row, col) || !IsCell(*this, lastRow, lastCol))
        return LORV_E_INDEX;
    KeepAlive alive(*this);
    bool single = lastRow == row && lastCol == col;
    HRESULT result = MoveCursor(*this, row, col, single ? CursorReport : CursorSilent);
    if (result != S_OK)
        return result;
    if (Row != row || Col != col) // a handler refused
        return S_OK;
    if (!single)
        if (result = ExtendSelection(*this, lastRow, lastCol, CursorReport); FAILED(result))
            return result;
    if (SelectionMode == lorvSelectionListBox)
        SetRowsSelected(*this, Row, RowSel, true, true);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SelectedRows(LONG* result)
{
    if (!result)
        return E_POINTER;
    int count = 0;
    for (int row = 0; SelectionMode == lorvSelectionListBox && row < Rows; ++row)
        count += IsRowSelected(*this, row);
    *result = count;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SelectedRow(LONG index, LONG* result)
{
    if (!result)
        return E_POINTER;
    if (index < 0)
        return static_cast<HRESULT>(0xFFFFFFFF);
    *result = -1;
    for (int row = 0; row < Rows; ++row)
        if (IsRowSelected(*this, row) && index-- == 0) {
            *result = row;
            break;
        }
    return S_OK;
}

// The corners as they stand, whatever the mode widens them to.
HRESULT STDMETHODCALLTYPE GridMembers::GetSelection(LONG* row1, LONG* col1, LONG* row2, LONG* col2)
{
    CellRange range(Row, Col, RowSel, ColSel);
    Give(row1, range.Row1);
    Give(col1, range.Col1);
    Give(row2, range.Row2);
    Give(col2, range.Col2);
    return S_OK;
}
