#pragma once
// What the module draws for all grids together: cursors, marks, check boxes and the dotted brush. Made at
// first need, given back when the module goes.

#include <windows.h>

enum class GridCursor { FreezeCols, FreezeRows, ResizeRow, ResizeCol, Copy, Move, Hand };
HCURSOR GridCursorOf(GridCursor which) noexcept;

// Marks of 11 by 11 pixels with their centre 5 pixels from the origin.
HICON SortMarkIcon(bool ascending) noexcept;
HICON RowIndicatorIcon(bool rightToLeft) noexcept;
// A small picture of a grid, for what stands for the control itself.
HICON ControlIcon() noexcept;
// Draws a mark at its natural size.
void DrawMarkIcon(HDC dc, int x, int y, HICON icon) noexcept;

enum class CheckImage { Checked, Unchecked, Grayed, DisabledChecked, DisabledUnchecked };
// A square bitmap of CheckBoxSide pixels, with the edges of the box in it.
HBITMAP CheckBoxBitmap(CheckImage which) noexcept;
int CheckBoxSide() noexcept;

// Every other pixel, in the text and background colours of the context.
HBRUSH PatternBrush() noexcept;
// Selected where a bitmap has to leave a context.
HBITMAP StockBitmap() noexcept;

// Deletes all of the above.
void ReleaseModuleResources() noexcept;
