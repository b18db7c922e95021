#pragma once
// Text in cells: where it may stand and how it is drawn. Painting, measuring, editing and hit testing share
// these, so that what is measured equals what is drawn.

#include "core/grid_object.h"

// Longest text that is drawn.
constexpr int MaxDrawnText = 32000;
// Pixels between a cell's left or right edge and its text.
constexpr int TextMarginX = 4;
constexpr int TextMarginY = 1;

// Pixels taken by the tree at the leading edge of a cell.
int TreeIndent(const Grid& grid, int row, int col) noexcept;

// Takes the room of tree, check box and picture off a cell's rectangle. `textAbsent`: there is no text, so a
// picture in the middle counts as well.
void TextAreaAdjust(Grid& grid, int row, int col, const CellFormat* format, RECT& rectangle, bool textAbsent);

// The alignment that a text gets in a cell, 0 to 8; 0 for an empty or null text.
int EffectiveAlignment(const Grid& grid, const wchar_t* text, int row, int col,
                       const CellFormat* format) noexcept;

constexpr bool IsLeftAligned(int alignment) noexcept
{
    return alignment >= lorvAlignLeftTop && alignment <= lorvAlignLeftBottom;
}
constexpr bool IsCenterAligned(int alignment) noexcept
{
    return alignment >= lorvAlignCenterTop && alignment <= lorvAlignCenterBottom;
}
constexpr bool IsRightAligned(int alignment) noexcept
{
    return alignment >= lorvAlignRightTop && alignment <= lorvAlignRightBottom;
}

// Draws a text by an alignment from 0 to 8 and a TextStyleSettings value, in the font and colour of the
// context. `parenColumn`: the column shows negatives in parentheses, so that positive numbers stand clear of
// the closing one. Returns the width of the text. After a light style the text colour is that of shadows.
int DrawCellText(Grid& grid, HDC dc, const wchar_t* text, const RECT& rectangle, int alignment, int style,
                 bool parenColumn);

// The words-and-dots flags of DrawText that the grid's properties ask for.
UINT WrapAndEllipsisFlags(const Grid& grid, const wchar_t* text, int length) noexcept;
