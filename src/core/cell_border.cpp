#include "core/cell_border.h"

#include "core/cell_property.h"
#include "core/events.h"
#include "core/upcalls.h"

#include <algorithm>

namespace
{
constexpr int MaxBorderWidth = 255; // pixels

// Writes sides of cells in one colour until one fails.
class BorderWriter
{
public:
    BorderWriter(Grid& grid, OLE_COLOR colour) noexcept : grid_(grid), colour_(colour) {}

    // The colour of a cell is that of all its sides; it goes first.
    void Write(int row, int col, CellSelector side, int width)
    {
        if (width < 0)
            return;
        if (SUCCEEDED(result_))
            result_ = SetCellProperty(grid_, row, col, CellSelector::BorderColor, colour_);
        if (SUCCEEDED(result_))
            result_ = SetCellProperty(grid_, row, col, side, std::min(width, MaxBorderWidth));
    }
    HRESULT Result() const noexcept { return result_; }

private:
    Grid& grid_;
    OLE_COLOR colour_;
    HRESULT result_ = S_OK;
};

// A line between two cells is the border of the one before it; the cell after it has none on that side.
void WriteInnerLines(BorderWriter& writer, const CellRange& range, const CellBorders& borders)
{
    for (int row = range.Row1; row <= range.Row2 && borders.Vertical >= 0; ++row)
        for (int col = range.Col1; col <= range.Col2; ++col) {
            if (col < range.Col2)
                writer.Write(row, col, CellSelector::BorderRight, borders.Vertical);
            if (col > range.Col1)
                writer.Write(row, col, CellSelector::BorderLeft, 0);
        }
    for (int row = range.Row1; row <= range.Row2 && borders.Horizontal >= 0; ++row)
        for (int col = range.Col1; col <= range.Col2; ++col) {
            if (row < range.Row2)
                writer.Write(row, col, CellSelector::BorderBottom, borders.Horizontal);
            if (row > range.Row1)
                writer.Write(row, col, CellSelector::BorderTop, 0);
        }
}
} // namespace

HRESULT SetCellBorders(Grid& grid, int row1, int col1, int row2, int col2, const CellBorders& borders)
{
    if (!IsCell(grid, row1, col1) || !IsCell(grid, row2, col2))
        return LORV_E_INDEX;
    KeepAlive alive(grid);
    BorderWriter writer(grid, borders.Color);
    for (int row = row1; row <= row2; ++row) {
        writer.Write(row, col1, CellSelector::BorderLeft, borders.Left);
        writer.Write(row, col2, CellSelector::BorderRight, borders.Right);
    }
    for (int col = col1; col <= col2; ++col) {
        writer.Write(row1, col, CellSelector::BorderTop, borders.Top);
        writer.Write(row2, col, CellSelector::BorderBottom, borders.Bottom);
    }
    if (row1 <= row2 && col1 <= col2)
        WriteInnerLines(writer, {row1, col1, row2, col2}, borders);
    RepaintSelection(grid);
    return writer.Result();
}
