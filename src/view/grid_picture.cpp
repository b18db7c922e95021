#include "view/grid_picture.h"

#include "core/events.h"
#include "platform/gdi.h"
#include "view/metrics.h"
#include "view/paint.h"

#include <algorithm>

namespace
{
// A larger sheet has no bitmap anyway, and coordinates past it are no use to GDI.
constexpr int64_t LargestSide = 1 << 24;

// Length of an axis: the part that does not scroll, and what follows from the scroll position on.
template<class Length> int SheetLength(int count, int frozenEnd, int first, Length lengthOf)
{
    int64_t sum = 0;
    for (int i = 0; i < count && sum < LargestSide; ++i)
        if (i < frozenEnd || i >= first)
            sum += lengthOf(i);
    return static_cast<int>(std::min(sum, LargestSide));
}

SIZE SheetSize(const Grid& grid)
{
    auto width = [&](int col) { return EffectiveColWidth(grid, col); };
    auto height = [&](int row) { return EffectiveRowHeight(grid, row); };
    return {SheetLength(grid.Cols, FrozenEndCol(grid), grid.LeftCol, width),
            SheetLength(grid.Rows, FrozenEndRow(grid), grid.TopRow, height)};
}

// Hands the description's handle over to a new picture; the caller keeps it when that fails.
HRESULT WrapPicture(PICTDESC& description, IPictureDisp** picture)
{
    return OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, reinterpret_cast<void**>(picture));
}

HRESULT MakeMetafile(Grid& grid, const RECT& sheet, IPictureDisp** picture)
{
    HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    if (!dc)
        return S_OK;
    PaintGrid(grid, dc, sheet, nullptr);
    HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    if (!metafile)
        return S_OK;
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_ENHMETAFILE;
    description.emf.hemf = metafile;
    HRESULT result = WrapPicture(description, picture);
    if (FAILED(result))
        DeleteEnhMetaFile(metafile);
    return result;
}

HBITMAP PaintBitmap(Grid& grid, const RECT& sheet)
{
    HDC window = GetDC(grid.Window);
    HDC memory = CreateCompatibleDC(window);
    HBITMAP bitmap = grid.PictureType == lorvPictureMonochrome
                         ? CreateBitmap(sheet.right, sheet.bottom, 1, 1, nullptr)
                         : CreateCompatibleBitmap(window, sheet.right, sheet.bottom);
    ReleaseDC(grid.Window, window);
    if (memory && bitmap) {
        SelectedObject selected(memory, bitmap);
        PaintGrid(grid, memory, sheet, nullptr);
    } else if (bitmap) {
        DeleteObject(bitmap);
        bitmap = nullptr;
    }
    if (memory)
        DeleteDC(memory);
    return bitmap;
}

HRESULT MakeBitmapPicture(Grid& grid, const RECT& sheet, IPictureDisp** picture)
{
    HBITMAP bitmap = PaintBitmap(grid, sheet);
    if (!bitmap)
        return S_OK;
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap;
    HRESULT result = WrapPicture(description, picture);
    if (FAILED(result))
        DeleteObject(bitmap);
    return result;
}
} // namespace

HRESULT MakeGridPicture(Grid& grid, IPictureDisp** picture)
{
    KeepAlive alive(grid);
    *picture = nullptr;
    if (grid.DefaultRowHeight == 0) // a control that never had a window
        RecalcDefaultRowHeight(grid);
    SIZE size = SheetSize(grid);
    RECT sheet = {0, 0, size.cx, size.cy};
    return grid.PictureType == lorvPictureEnhMetafile ? MakeMetafile(grid, sheet, picture)
                                                      : MakeBitmapPicture(grid, sheet, picture);
}
