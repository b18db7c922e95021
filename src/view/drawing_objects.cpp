#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/variant.h"

namespace
{
enum DrawingObjectIndex {
    BackBrush,
    AlternateBrush,
    FixedBrush,
    SelectionBrush,
    BackgroundBrush,
    GridLinePen,
    GridLineFixedPen,
    SheetBorderPen,
    FrozenBrush,
    DrawingObjectCount
};

HPALETTE AmbientPalette(Grid& grid) noexcept
{
    OwnedVariant palette;
    if (!ReadAmbient(grid, DISPID_AMBIENT_PALETTE, palette.Get()))
        return nullptr;
    return reinterpret_cast<HPALETTE>(static_cast<intptr_t>(VariantToLong(palette.Get(), 0)));
}

COLORREF Translated(OLE_COLOR colour, HPALETTE palette) noexcept
{
    COLORREF result = 0;
    OleTranslateColor(colour, palette, &result);
    return result;
}

void ReplaceBrush(HBRUSH& brush, OLE_COLOR colour, HPALETTE palette) noexcept
{
    if (brush)
        DeleteObject(brush);
    brush = CreateSolidBrush(Translated(colour, palette));
}

// For the colours of which 0 says "none".
void ReplaceOptionalBrush(HBRUSH& brush, OLE_COLOR colour, HPALETTE palette) noexcept
{
    if (colour != 0)
        return ReplaceBrush(brush, colour, palette);
    if (brush)
        DeleteObject(brush);
    brush = nullptr;
}

void ReplacePen(HPEN& pen, int width, COLORREF colour) noexcept
{
    if (pen)
        DeleteObject(pen);
    pen = CreatePen(PS_SOLID, width, colour);
}

void RebuildSystemPens(DrawingObjects& drawing) noexcept
{
    ReplacePen(drawing.DarkPen, 1, GetSysColor(COLOR_3DDKSHADOW));
    ReplacePen(drawing.ShadowPen, 1, GetSysColor(COLOR_BTNSHADOW));
    ReplacePen(drawing.HilitePen, 1, GetSysColor(COLOR_BTNHIGHLIGHT));
}

void RebuildOne(Grid& grid, int index, HPALETTE palette) noexcept
{
    DrawingObjects& drawing = grid.Drawing;
    switch (index) {
    case BackBrush:
        return ReplaceBrush(drawing.Back, grid.BackColor, palette);
    case AlternateBrush:
        return ReplaceOptionalBrush(drawing.Alternate, grid.BackColorAlternate, palette);
    case FixedBrush:
        return ReplaceBrush(drawing.Fixed, grid.BackColorFixed, palette);
    case SelectionBrush:
        return ReplaceBrush(drawing.Selection, grid.BackColorSel, palette);
    case BackgroundBrush:
        return ReplaceBrush(drawing.Background, grid.BackColorBkg, palette);
    case GridLinePen:
        return ReplacePen(drawing.GridPen, grid.GridLineWidth, Translated(grid.GridColor, palette));
    case GridLineFixedPen:
        return ReplacePen(drawing.GridPenFixed, grid.GridLineWidth, Translated(grid.GridColorFixed, palette));
    case SheetBorderPen:
        return ReplacePen(drawing.SheetPen, 0, Translated(grid.SheetBorder, palette));
    case FrozenBrush:
        return ReplaceOptionalBrush(drawing.Frozen, grid.BackColorFrozen, palette);
    }
}
} // namespace

void RebuildGdi(Grid& grid, int index)
{
    if (index < -1 || index >= DrawingObjectCount)
        return;
    HPALETTE palette = AmbientPalette(grid);
    if (index >= 0)
        return RebuildOne(grid, index, palette);
    RebuildSystemPens(grid.Drawing);
    for (int each = 0; each < DrawingObjectCount; ++each)
        RebuildOne(grid, each, palette);
}

void ReleaseDrawingObjects(Grid& grid)
{
    DrawingObjects& drawing = grid.Drawing;
    const HGDIOBJ objects[] = {
        drawing.Back,    drawing.Alternate, drawing.Fixed,     drawing.Selection,      drawing.Background,
        drawing.Frozen,  drawing.Scratch,   drawing.GridPen,   drawing.GridPenFixed,   drawing.SheetPen,
        drawing.DarkPen, drawing.ShadowPen, drawing.HilitePen, grid.PaintBuffer.Bitmap};
    for (HGDIOBJ object : objects)
        if (object)
            DeleteObject(object);
    drawing = {};
    grid.PaintBuffer = {};
}
