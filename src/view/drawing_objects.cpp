#include "view/drawing_objects.h"

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

void ReplaceBrush(HBRUSH& brush, COLORREF colour) noexcept
{
    if (brush)
        DeleteObject(brush);
    brush = CreateSolidBrush(colour);
}

// For the colours of which 0 says "none".
void ReplaceOptionalBrush(HBRUSH& brush, const Grid& grid, OLE_COLOR colour) noexcept
{
    if (colour != 0)
        return ReplaceBrush(brush, TranslatedColor(grid, colour));
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

void RebuildOne(Grid& grid, int index) noexcept
{
    DrawingObjects& drawing = grid.Drawing;
    switch (index) {
    case BackBrush:
        return ReplaceBrush(drawing.Back, TranslatedColor(grid, grid.BackColor));
    case AlternateBrush:
        return ReplaceOptionalBrush(drawing.Alternate, grid, grid.BackColorAlternate);
    case FixedBrush:
        return ReplaceBrush(drawing.Fixed, TranslatedColor(grid, grid.BackColorFixed));
    case SelectionBrush:
        return ReplaceBrush(drawing.Selection, TranslatedColor(grid, grid.BackColorSel));
    case BackgroundBrush:
        return ReplaceBrush(drawing.Background, TranslatedColor(grid, grid.BackColorBkg));
    case GridLinePen:
        return ReplacePen(drawing.GridPen, grid.GridLineWidth, TranslatedColor(grid, grid.GridColor));
    case GridLineFixedPen:
        return ReplacePen(drawing.GridPenFixed, grid.GridLineWidth,
                          TranslatedColor(grid, grid.GridColorFixed));
    case SheetBorderPen:
        return ReplacePen(drawing.SheetPen, 0, TranslatedColor(grid, grid.SheetBorder));
    case FrozenBrush:
        return ReplaceOptionalBrush(drawing.Frozen, grid, grid.BackColorFrozen);
    }
}
} // namespace

void RebuildGdi(Grid& grid, int index)
{
    if (index < -1 || index >= DrawingObjectCount)
        return;
    if (index >= 0)
        return RebuildOne(grid, index);
    grid.Palette = AmbientPalette(grid);
    RebuildSystemPens(grid.Drawing);
    for (int each = 0; each < DrawingObjectCount; ++each)
        RebuildOne(grid, each);
}

COLORREF TranslatedColor(const Grid& grid, OLE_COLOR colour) noexcept
{
    COLORREF result = 0;
    OleTranslateColor(colour, grid.Palette, &result);
    return result;
}

HBRUSH ScratchBrush(Grid& grid, OLE_COLOR colour) noexcept
{
    ReplaceBrush(grid.Drawing.Scratch, TranslatedColor(grid, colour));
    return grid.Drawing.Scratch;
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
