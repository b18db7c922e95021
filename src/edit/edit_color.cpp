// The colours that the editors get from the cell that they stand on.

#include "core/cell_store.h"
#include "edit/cell_editor.h"
#include "view/drawing_objects.h"

namespace
{
struct CellColors {
    OLE_COLOR Text, Back;
    HBRUSH Brush;
};

bool IsFrozenCell(const Grid& grid, int row, int col) noexcept
{
    return row < FrozenEndRow(grid) || col < FrozenEndCol(grid);
}

OLE_COLOR TextColorOf(const Grid& grid, int row, int col) noexcept
{
    const CellFormat* format = CellFormatOf(grid, row, col);
    if (format && format->ForeColor)
        return format->ForeColor;
    if (IsFixedCell(grid, row, col))
        return grid.ForeColorFixed;
    return IsFrozenCell(grid, row, col) && grid.ForeColorFrozen ? grid.ForeColorFrozen : grid.ForeColor;
}

CellColors ColorsOf(Grid& grid, int row, int col)
{
    const DrawingObjects& drawing = grid.Drawing;
    if (!IsCell(grid, row, col))
        return {grid.ForeColor, grid.BackColor, drawing.Back};
    OLE_COLOR text = TextColorOf(grid, row, col);
    const CellFormat* format = CellFormatOf(grid, row, col);
    if (format && format->BackColorSet)
        return {text, format->BackColor, ScratchBrush(grid, format->BackColor)};
    if (IsFixedCell(grid, row, col))
        return {text, grid.BackColorFixed, drawing.Fixed};
    if (IsFrozenCell(grid, row, col) && grid.BackColorFrozen)
        return {text, grid.BackColorFrozen, drawing.Frozen};
    if (grid.BackColorAlternate && (row - grid.FixedRows) % 2 != 0)
        return {text, grid.BackColorAlternate, drawing.Alternate};
    return {text, grid.BackColor, drawing.Back};
}

// The drop-down's list is no child of it: it can reach out of the window.
bool BelongsToEditor(const Grid& grid, HWND child) noexcept
{
    if (!child)
        return false;
    if (child == grid.EditBoxWindow || child == grid.ComboWindow)
        return true;
    if (!grid.ComboWindow)
        return false;
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    return IsChild(grid.ComboWindow, child) ||
           (GetComboBoxInfo(grid.ComboWindow, &info) && info.hwndList == child);
}
} // namespace

bool OnEditorColor(Grid& grid, HDC dc, HWND child, LRESULT& result)
{
    if (!BelongsToEditor(grid, child))
        return false;
    if (!grid.Drawing.Back)
        RebuildGdi(grid, -1);
    if (grid.Palette) {
        SelectPalette(dc, grid.Palette, TRUE);
        RealizePalette(dc);
    }
    CellColors colors = ColorsOf(grid, grid.EditRow, grid.EditCol);
    grid.EditTextColor = colors.Text;
    SetBkMode(dc, OPAQUE);
    SetTextColor(dc, TranslatedColor(grid, colors.Text));
    SetBkColor(dc, TranslatedColor(grid, colors.Back));
    result = reinterpret_cast<LRESULT>(colors.Brush);
    return true;
}
