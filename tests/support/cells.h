#pragma once
// Cells that are painted into memory.

#include "core/check_state.h"
#include "support/pixels.h"

class Cells : public PaintTest
{
protected:
    Cells()
    {
        // High and wide enough for text in one cell without touching the next.
        grid.RowTable[1].Height = grid.RowTable[2].Height = 40;
        grid.ColTable[1].Width = grid.ColTable[2].Width = 90;
        grid.GridLines = lorvGridNone;
    }
    RECT Area(int row, int col) { return CellRect(grid, row, col); }
    // Where the ink of the text in a cell is.
    RECT InkIn(int row, int col, COLORREF ink = Ink) { return canvas.Extent(Area(row, col), ink); }
    void SetBack(int row, int col, COLORREF colour)
    {
        Format(row, col).BackColor = colour, Format(row, col).BackColorSet = 1;
    }
    void SetCheck(int row, int col, int state)
    {
        EnsureRowCells(grid, row);
        grid.RowTable[row].Cells[col].State = static_cast<uint8_t>(state << CheckStateShift);
    }
    void Focus(int row, int col)
    {
        Select(row, col, row, col);
        grid.PaintMode |= PaintHasFocus;
    }
};
