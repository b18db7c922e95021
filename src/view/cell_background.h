#pragma once
// What lies under a cell's text: its colour or header, flood, tree, picture and check box.

#include "core/cell_pos.h"
#include "core/cell_store.h"
#include "core/grid_object.h"

// Whether the cell shows in the colours of the selection. `drawFocus`: it carries the focus mark.
bool IsSelectedForPaint(const Grid& grid, int row, int col, bool drawFocus) noexcept;

// The colour of the cell, untranslated, and the brush of it. The brush of a cell's own colour is good until
// the next one is asked for.
OLE_COLOR CellBackColorOf(const Grid& grid, int row, int col, const CellFormat* format,
                          bool drawFocus) noexcept;
HBRUSH CellBackBrush(Grid& grid, int row, int col, const CellFormat* format, bool drawFocus) noexcept;

// A cell on its way to the screen. The contents of a merged range are those of its first cell, the format
// and the colours those of the cell that is being painted.
struct PaintedCell {
    int Row, Col;
    CellRange Range;
    RECT Area;

    int ContentRow() const noexcept { return Range.Row1; }
    int ContentCol() const noexcept { return Range.Col1; }
};

// The background colour of the context is as before afterwards. A custom text source may have changed the
// grid meanwhile.
void PaintCellBackground(Grid& grid, HDC dc, const PaintedCell& cell, bool drawFocus);

// The cell's format, null when it has none or is there no more.
inline const CellFormat* FormatForPaint(const Grid& grid, int row, int col) noexcept
{
    return IsCell(grid, row, col) ? CellFormatOf(grid, row, col) : nullptr;
}
