#include "core/cell_value.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/value_format.h"

double ValueOfCell(Grid& grid, int row, int col) noexcept
{
    bool boolean = grid.ColTable[col].ColDataType == lorvDTBoolean && !IsFixedCell(grid, row, col);
    const wchar_t* text = GetCellText(grid, row, col);
    bool on = false;
    if (boolean && TextToBoolean(text, on))
        return on ? -1.0 : 0.0;
    return TextToDouble(text);
}
