#pragma once
// What is drawn around and over a cell's text: borders, the search highlight, the sort mark, the focus mark.

#include "view/cell_background.h"

// Where a cell's text was drawn.
struct DrawnText {
    RECT Area; // the room that the text had, with its margins
    int Width = 0;
    int Alignment = 0;
};

// The borders of the cell's format, in its border colour.
void DrawCellBorders(Grid& grid, HDC dc, const PaintedCell& cell);

// Inverts the part of the text that the running search has matched. `area` is the text's own room.
void InvertSearchedText(const Grid& grid, HDC dc, const wchar_t* text, const RECT& area, int alignment);

// The mark of the sorted column in its header, when the explorer bar shows one.
void DrawSortMark(Grid& grid, HDC dc, const PaintedCell& cell, const DrawnText& drawn);

// In the outline column the mark goes around the text alone.
void DrawFocusMark(const Grid& grid, HDC dc, const PaintedCell& cell, const DrawnText& drawn, int indent);
