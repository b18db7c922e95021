#pragma once
// Pictures on the screen and on paper.

#include "core/grid_object.h"

// Draws a picture into a rectangle, by a PictureAlignmentSettings value. On screen only bitmaps appear, at
// their natural size and with white as the transparent colour, so that stretching does not scale them.
// Whether something was drawn.
bool DrawPicture(Grid& grid, HDC dc, IPictureDisp* picture, int alignment, const RECT& rectangle);

// Size of a picture in pixels; 0, 0 for none.
SIZE PictureSize(IPictureDisp* picture) noexcept;

// Draws a bitmap with its top left corner at a point, cut to `size`; white pixels leave the target as it is.
void TransparentBlit(HDC dc, HBITMAP bitmap, int x, int y, SIZE size) noexcept;

// Copies the bitmap selected in `source` into a rectangle of the target. Printers get it as pixels, which
// they take more reliably than a copy between contexts.
void StretchBits(HDC target, const RECT& to, HDC source, SIZE size) noexcept;

// Where something of `size` stands in `area` by an alignment from 0 to 8.
POINT AlignedOrigin(const RECT& area, SIZE size, int alignment) noexcept;
