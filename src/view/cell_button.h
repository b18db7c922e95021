#pragma once
// The button at the end of a cell that has a list or a program behind it.

#include "view/cell_background.h"

// Where the text that asks for a button is kept. A handler may replace the text at any time, so it is looked
// up where it is used.
enum class ButtonSource { None, Column, WholeGrid };

// Whether the cell shows a button, and by what. Fires BeforeEdit, whose handler may set the grid's list.
ButtonSource FindButton(Grid& grid, const PaintedCell& cell, bool current, bool drawFocus);

// The text of the button; empty for none, never null.
const wchar_t* ButtonTextOf(const Grid& grid, int col, ButtonSource source) noexcept;

// Whether the text asks for a plain push button with three dots.
bool IsEllipsisButton(const wchar_t* buttonText) noexcept;

// Draws the button at the end of the cell, and takes its room off the cell's rectangle. `textArea`: where
// the cell's text stood, beside which the button stands from right to left.
void DrawCellButton(Grid& grid, HDC dc, const wchar_t* buttonText, RECT& cell, const RECT& textArea);
