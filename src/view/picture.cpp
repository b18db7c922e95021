#include "view/picture.h"

#include "platform/com_ptr.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "platform/memory.h"
#include "view/resources.h"

#include <algorithm>

namespace
{
constexpr COLORREF TransparentColour = RGB(255, 255, 255);
constexpr LONG TileBlock = 256;        // pixels
constexpr int ColoursOfPalettes = 257; // a raster display with fewer reports how many it has

// A memory context with a bitmap of its own.
class MemoryPicture
{
public:
    MemoryPicture(HDC like, SIZE size, bool monochrome = false) noexcept
        : dc_(CreateCompatibleDC(like)), bitmap_(monochrome ? CreateBitmap(size.cx, size.cy, 1, 1, nullptr)
                                                            : CreateCompatibleBitmap(like, size.cx, size.cy))
    {
        if (dc_ && bitmap_)
            previous_ = SelectObject(dc_, bitmap_.Get());
    }
    MemoryPicture(const MemoryPicture&) = delete;
    MemoryPicture& operator=(const MemoryPicture&) = delete;
    ~MemoryPicture()
    {
        if (previous_)
            SelectObject(dc_, previous_);
        if (dc_)
            DeleteDC(dc_);
    }
    HDC Get() const noexcept { return dc_; }
    explicit operator bool() const noexcept { return previous_ != nullptr; }

private:
    HDC dc_;
    Bitmap bitmap_;
    HGDIOBJ previous_ = nullptr;
};

// A memory context over a bitmap of someone else, who gets it back in the end.
class BorrowedPicture
{
public:
    BorrowedPicture(HDC like, HBITMAP bitmap) noexcept
        : dc_(CreateCompatibleDC(like)), previous_(dc_ ? SelectObject(dc_, bitmap) : nullptr)
    {
    }
    BorrowedPicture(const BorrowedPicture&) = delete;
    BorrowedPicture& operator=(const BorrowedPicture&) = delete;
    ~BorrowedPicture()
    {
        if (previous_)
            SelectObject(dc_, previous_);
        if (dc_)
            DeleteDC(dc_);
    }
    HDC Get() const noexcept { return dc_; }
    explicit operator bool() const noexcept { return previous_ != nullptr; }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

void Copy(HDC to, int x, int y, SIZE size, HDC from, int fromX, int fromY, DWORD operation) noexcept
{
    BitBlt(to, x, y, size.cx, size.cy, from, fromX, fromY, operation);
}

// What the picture is to be laid over. A context that cannot be read, a metafile, counts as the plain
// background colour.
void ReadTarget(HDC to, SIZE size, HDC dc, int x, int y) noexcept
{
    if (BitBlt(to, 0, 0, size.cx, size.cy, dc, x, y, SRCCOPY))
        return;
    RECT area = {0, 0, size.cx, size.cy};
    Brush brush(CreateSolidBrush(GetBkColor(dc)));
    FillRect(to, &area, brush.Get());
}

// The classic way by a mask: what is white in the source stays as it is in the target.
void BlitWithoutWhite(HDC dc, HDC source, int x, int y, SIZE size) noexcept
{
    if (size.cx < 1 || size.cy < 1)
        return;
    ScreenDC screen;
    MemoryPicture mask(screen.Get(), size, true), inverse(screen.Get(), size, true);
    MemoryPicture image(screen.Get(), size), result(screen.Get(), size);
    if (!mask || !inverse || !image || !result)
        return;
    SetBkColor(source, TransparentColour);
    Copy(mask.Get(), 0, 0, size, source, 0, 0, SRCCOPY);
    Copy(inverse.Get(), 0, 0, size, mask.Get(), 0, 0, NOTSRCCOPY);
    ReadTarget(result.Get(), size, dc, x, y);
    Copy(result.Get(), 0, 0, size, mask.Get(), 0, 0, SRCAND);
    Copy(image.Get(), 0, 0, size, source, 0, 0, SRCCOPY);
    Copy(image.Get(), 0, 0, size, inverse.Get(), 0, 0, SRCAND);
    Copy(result.Get(), 0, 0, size, image.Get(), 0, 0, SRCPAINT);
    Copy(dc, x, y, size, result.Get(), 0, 0, SRCCOPY);
}

HBITMAP BitmapOf(IPicture* picture) noexcept
{
    SHORT type = PICTYPE_NONE;
    OLE_HANDLE handle = 0;
    if (FAILED(picture->get_Type(&type)) || type != PICTYPE_BITMAP || FAILED(picture->get_Handle(&handle)))
        return nullptr;
    return reinterpret_cast<HBITMAP>(static_cast<intptr_t>(static_cast<int>(handle)));
}

SIZE NaturalSize(HBITMAP bitmap) noexcept
{
    BITMAP info = {};
    GetObjectW(bitmap, sizeof(info), &info);
    return {info.bmWidth, info.bmHeight};
}

SIZE SizeOf(IPicture* picture) noexcept
{
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(picture->get_Width(&width)) || FAILED(picture->get_Height(&height)))
        return {};
    return {HimetricToPixelsX(width), HimetricToPixelsY(height)};
}

RECT SizedRect(POINT origin, SIZE size) noexcept
{
    return {origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
}

bool DrawOnScreen(HDC dc, IPicture* picture, const RECT& area) noexcept
{
    HBITMAP bitmap = BitmapOf(picture);
    if (!bitmap)
        return false;
    SIZE size = NaturalSize(bitmap);
    size = {std::min(size.cx, area.right - area.left), std::min(size.cy, area.bottom - area.top)};
    TransparentBlit(dc, bitmap, area.left, area.top, size);
    return true;
}

// On paper the picture goes by way of a bitmap over the grid's background.
bool DrawOnPage(Grid& grid, HDC dc, IPicture* picture, const RECT& area) noexcept
{
    ScreenDC screen;
    SIZE size = {area.right - area.left, area.bottom - area.top};
    MemoryPicture page(screen.Get(), size);
    if (!page)
        return false;
    RECT whole = {0, 0, size.cx, size.cy};
    FillRect(page.Get(), &whole, grid.Drawing.Back);
    SHORT type = PICTYPE_NONE;
    picture->get_Type(&type);
    if (type == PICTYPE_METAFILE) {
        OLE_XSIZE_HIMETRIC width = 0;
        OLE_YSIZE_HIMETRIC height = 0;
        picture->get_Width(&width);
        picture->get_Height(&height);
        picture->Render(page.Get(), 0, 0, size.cx, size.cy, 0, height, width, -height, &whole);
    } else if (!DrawOnScreen(page.Get(), picture, whole)) {
        return false;
    }
    StretchBits(dc, area, page.Get(), size);
    return true;
}

bool DrawOnce(Grid& grid, HDC dc, IPicture* picture, const RECT& area) noexcept
{
    if (IsRectEmpty(&area))
        return false;
    return grid.PaintMode & PaintPrinting ? DrawOnPage(grid, dc, picture, area)
                                          : DrawOnScreen(dc, picture, area);
}

// A picture that is too large for its area is cut one pixel past it.
SIZE CutSize(SIZE size, const RECT& area) noexcept
{
    LONG width = area.right - area.left, height = area.bottom - area.top;
    return {size.cx > width ? width + 1 : size.cx, size.cy > height ? height + 1 : size.cy};
}

bool PrintTiles(Grid& grid, HDC dc, IPicture* picture, SIZE size, const RECT& area) noexcept
{
    for (LONG x = area.left; x < area.right; x += size.cx)
        for (LONG y = area.top; y < area.bottom; y += size.cy) {
            RECT tile = SizedRect({x, y}, size);
            RECT cut;
            if (!IntersectRect(&cut, &tile, &area) || !DrawOnce(grid, dc, picture, cut))
                return false;
        }
    return true;
}

// How much of `length` is laid out at once in steps of `tile`.
LONG BlockLength(LONG tile, LONG length) noexcept
{
    return std::min(tile * std::max(1L, TileBlock / tile), length);
}

// Fills a context with copies of a tile, each time as many as there are already.
void RepeatTile(HDC tiles, HBITMAP bitmap, SIZE tile, SIZE block) noexcept
{
    RECT whole = {0, 0, block.cx, block.cy};
    FillRect(tiles, &whole, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    SIZE natural = NaturalSize(bitmap);
    TransparentBlit(tiles, bitmap, 0, 0, {std::min(tile.cx, natural.cx), std::min(tile.cy, natural.cy)});
    for (LONG x = tile.cx; x < block.cx; x *= 2)
        Copy(tiles, x, 0, {std::min(x, block.cx - x), tile.cy}, tiles, 0, 0, SRCCOPY);
    for (LONG y = tile.cy; y < block.cy; y *= 2)
        Copy(tiles, 0, y, {block.cx, std::min(y, block.cy - y)}, tiles, 0, 0, SRCCOPY);
}

// The part of an area that shows in a context; all of it where the context cannot say.
RECT ShownPart(HDC dc, const RECT& area) noexcept
{
    RECT clip, shown = {};
    if (GetClipBox(dc, &clip) == ERROR)
        return area;
    IntersectRect(&shown, &clip, &area);
    return shown;
}

// Tiles go to the screen by the block, and only where they show: one by one, those of a picture of a pixel
// or two would take minutes.
bool DrawTiles(HDC dc, IPicture* picture, SIZE size, const RECT& area) noexcept
{
    HBITMAP bitmap = BitmapOf(picture);
    SIZE block = {BlockLength(size.cx, area.right - area.left), BlockLength(size.cy, area.bottom - area.top)};
    ScreenDC screen;
    MemoryPicture tiles(screen.Get(), block);
    if (!bitmap || !tiles)
        return false;
    RepeatTile(tiles.Get(), bitmap, size, block);
    const RECT shown = ShownPart(dc, area);
    const LONG left = shown.left - (shown.left - area.left) % block.cx;
    const LONG top = shown.top - (shown.top - area.top) % block.cy;
    for (LONG x = left; x < shown.right; x += block.cx)
        for (LONG y = top; y < shown.bottom; y += block.cy)
            BlitWithoutWhite(dc, tiles.Get(), x, y,
                             {std::min(block.cx, area.right - x), std::min(block.cy, area.bottom - y)});
    return true;
}

// The pixels of a bitmap that is selected nowhere, as a packed DIB of 24 bits.
void SendPixels(HDC target, const RECT& to, HDC source, HBITMAP bitmap, SIZE size) noexcept
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, size.cy, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    size_t stride = (static_cast<size_t>(size.cx) * 3 + 3) & ~size_t{3};
    void* pixels = AllocateZeroed(size.cy, stride);
    if (pixels && GetDIBits(source, bitmap, 0, size.cy, pixels, &info, DIB_RGB_COLORS))
        StretchDIBits(target, to.left, to.top, to.right - to.left, to.bottom - to.top, 0, 0, size.cx, size.cy,
                      pixels, &info, DIB_RGB_COLORS, SRCCOPY);
    FreeBlock(pixels);
}
} // namespace

POINT AlignedOrigin(const RECT& area, SIZE size, int alignment) noexcept
{
    LONG spareX = area.right - area.left - size.cx, spareY = area.bottom - area.top - size.cy;
    const LONG acrossShare[] = {0, spareX / 2, spareX};
    const LONG downShare[] = {0, spareY / 2, spareY};
    return {area.left + acrossShare[alignment / 3 % 3], area.top + downShare[alignment % 3]};
}

SIZE PictureSize(IPictureDisp* picture) noexcept
{
    auto known = QueryFor<IPicture>(picture, IID_IPicture);
    return known ? SizeOf(known.Get()) : SIZE{};
}

bool DrawPicture(Grid& grid, HDC dc, IPictureDisp* picture, int alignment, const RECT& rectangle)
{
    auto known = QueryFor<IPicture>(picture, IID_IPicture);
    if (!known || IsRectEmpty(&rectangle))
        return false;
    SIZE size = SizeOf(known.Get());
    if (size.cx < 1 || size.cy < 1)
        return false;
    if (alignment == lorvPicAlignTile)
        return grid.PaintMode & PaintPrinting ? PrintTiles(grid, dc, known.Get(), size, rectangle)
                                              : DrawTiles(dc, known.Get(), size, rectangle);
    if (alignment < 0 || alignment >= lorvPicAlignStretch)
        return DrawOnce(grid, dc, known.Get(), rectangle);
    size = CutSize(size, rectangle);
    return DrawOnce(grid, dc, known.Get(), SizedRect(AlignedOrigin(rectangle, size, alignment), size));
}

void TransparentBlit(HDC dc, HBITMAP bitmap, int x, int y, SIZE size) noexcept
{
    ScreenDC screen;
    if (BorrowedPicture source(screen.Get(), bitmap); source)
        BlitWithoutWhite(dc, source.Get(), x, y, size);
}

void StretchBits(HDC target, const RECT& to, HDC source, SIZE size) noexcept
{
    int width = to.right - to.left, height = to.bottom - to.top;
    if (GetDeviceCaps(target, TECHNOLOGY) == DT_RASDISPLAY &&
        GetDeviceCaps(target, NUMCOLORS) < ColoursOfPalettes) {
        int mode = SetStretchBltMode(target, COLORONCOLOR);
        StretchBlt(target, to.left, to.top, width, height, source, 0, 0, size.cx, size.cy, SRCCOPY);
        SetStretchBltMode(target, mode);
        return;
    }
    // Pixels can be read only from a bitmap that is selected nowhere.
    auto bitmap = static_cast<HBITMAP>(SelectObject(source, StockBitmap()));
    if (!bitmap)
        return;
    SendPixels(target, to, source, bitmap, size);
    SelectObject(source, bitmap);
}
