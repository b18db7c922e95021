#include "core/check_state.h"

#include "core/cell_store.h"

namespace
{
bool CheckLivesInText(const Grid& grid, int row, int col) noexcept
{
    return grid.ColTable[col].ColDataType == lorvDTBoolean && row >= grid.FixedRows;
}

int StoredCheckState(const Grid& grid, int row, int col) noexcept
{
    const CellRecord* cells = grid.RowTable[row].Cells;
    return cells ? cells[col].State >> CheckStateShift : 0;
}
} // namespace

// A data cell of a boolean column always has a box: taking it away unchecks it.
HRESULT SetCheckState(Grid& grid, int row, int col, int state)
{
    if (!IsCell(grid, row, col))
        return LORV_E_INDEX;
    if (state == -1 || state == 0xFFFF)
        state = lorvChecked;
    if (state < lorvNoCheckbox || state > lorvDisabledUnchecked)
        return LORV_E_VALUE;
    if (FAILED(EnsureRowCells(grid, row)))
        return LORV_E_MEMORY;
    uint8_t& cellState = grid.RowTable[row].Cells[col].State;
    cellState &= MergeLinkMask;
    if (CheckLivesInText(grid, row, col))
        return SetCellText(grid, row, col, state == lorvChecked ? L"-1" : L"0");
    cellState |= static_cast<uint8_t>(state << CheckStateShift);
    MarkMergeStale(grid);
    return S_OK;
}

int CheckStateOf(Grid& grid, int row, int col) noexcept
{
    if (!CheckLivesInText(grid, row, col))
        return StoredCheckState(grid, row, col);
    const wchar_t* text = GetCellText(grid, row, col);
    bool empty = !text || !*text;
    if (empty && IsCell(grid, row, col) && (grid.RowTable[row].Flags & RowFlagSubtotal))
        return StoredCheckState(grid, row, col);
    bool checked = false;
    return TextToBoolean(text, checked) && checked ? lorvChecked : lorvUnchecked;
}

bool TextToBoolean(const wchar_t* text, bool& value) noexcept
{
    VARIANT_BOOL converted = VARIANT_FALSE;
    if (!text || FAILED(VarBoolFromStr(const_cast<wchar_t*>(text), LOCALE_USER_DEFAULT, 0, &converted)))
        return false;
    value = converted != VARIANT_FALSE;
    return true;
}
