#pragma once
// The fonts of cells: one handle per cell, shared through the font pool, changed one trait at a time.

#include "core/cell_property.h"

// The cell's own font, or else the grid's; borrowed, null when the grid has none.
HFONT CellFontHandle(Grid& grid, int row, int col);
// What that font is; false, and all zero, when there is none.
bool DescribeCellFont(Grid& grid, int row, int col, LOGFONTW& description);
// Writes a selector from Font to FontWidth. 0, LORV_E_INDEX or LORV_E_MEMORY.
HRESULT SetCellFont(Grid& grid, int row, int col, CellSelector selector, CellValue value);

// A use of the pool's font that is like `font`; null for null.
HFONT AcquireFontLike(HFONT font) noexcept;

// Font heights and widths are negative pixels inside. Widths go by the vertical resolution too.
int FontPixels(float points) noexcept;
float FontPoints(int pixels) noexcept;
