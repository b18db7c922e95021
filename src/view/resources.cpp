#include "view/resources.h"

#include "platform/dpi.h"
#include "platform/gdi.h"
#include "platform/module.h"
#include "view/resource_art.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace
{
constexpr int CursorCount = static_cast<int>(std::size(CursorArts));
constexpr int CheckImageCount = 5;
enum MarkIcon { AscendingMark, DescendingMark, IndicatorRight, IndicatorLeft, GridMark, MarkIconCount };

struct ModuleResources {
    HCURSOR Cursors[CursorCount];
    HICON Marks[MarkIconCount];
    HBITMAP Checks[CheckImageCount];
    HBRUSH Pattern;
    HBITMAP Stock;
};
ModuleResources resources;

// Gives them back when the module goes.
struct ResourceOwner {
    ~ResourceOwner() { ReleaseModuleResources(); }
} resourceOwner;

bool IsInk(const MarkArt& art, int x, int y) noexcept
{
    return art.Rows[y][x] == '#';
}

// Rows of one bit per pixel, padded to words; `set` says which pixels are 1.
template<class Test> void PackBits(uint8_t* bits, int side, Test set) noexcept
{
    int stride = (side + 15) / 16 * 2;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (set(x, y))
                bits[y * stride + x / 8] |= static_cast<uint8_t>(0x80 >> x % 8);
}

void DrawMark(HDC dc, const MarkArt& art, COLORREF colour) noexcept
{
    for (int y = 0; y < MarkSide; ++y)
        for (int x = 0; x < MarkSide; ++x)
            SetPixelV(dc, x, y, IsInk(art, x, y) ? colour : 0);
}

HICON MakeMark(const MarkArt& art, COLORREF colour) noexcept
{
    uint8_t transparent[MarkSide * 2] = {};
    PackBits(transparent, MarkSide, [&](int x, int y) { return !IsInk(art, x, y); });
    Bitmap mask(CreateBitmap(MarkSide, MarkSide, 1, 1, transparent));
    ScreenDC screen;
    Bitmap ink(CreateCompatibleBitmap(screen.Get(), MarkSide, MarkSide));
    HDC dc = CreateCompatibleDC(screen.Get());
    if (dc) {
        HGDIOBJ previous = SelectObject(dc, ink.Get());
        DrawMark(dc, art, colour);
        SelectObject(dc, previous);
        DeleteDC(dc);
    }
    ICONINFO info = {TRUE, 0, 0, mask.Get(), ink.Get()};
    return CreateIconIndirect(&info);
}

constexpr int MaxCursorSide = 256;

// The art is drawn for cursors of 32 pixels and enlarged by whole steps, so that it stays sharp.
HCURSOR MakeCursor(const CursorArt& art) noexcept
{
    int side = std::clamp(GetSystemMetrics(SM_CXCURSOR), CursorSide, MaxCursorSide);
    int scale = side / CursorSide;
    static uint8_t andBits[MaxCursorSide * MaxCursorSide / 8];
    static uint8_t xorBits[MaxCursorSide * MaxCursorSide / 8];
    std::memset(andBits, 0, sizeof(andBits));
    std::memset(xorBits, 0, sizeof(xorBits));
    auto ink = [&](int x, int y) {
        int column = x / scale, row = y / scale;
        if (row >= static_cast<int>(std::size(art.Rows)) || !art.Rows[row] ||
            column >= static_cast<int>(std::strlen(art.Rows[row])))
            return '.';
        return art.Rows[row][column];
    };
    PackBits(andBits, side, [&](int x, int y) { return ink(x, y) == '.'; });
    PackBits(xorBits, side, [&](int x, int y) { return ink(x, y) == 'o'; });
    return CreateCursor(ModuleInstance(), art.HotX * scale, art.HotY * scale, side, side, andBits, xorBits);
}

void Fill(HDC dc, int left, int top, int right, int bottom, int colour) noexcept
{
    RECT area = {left, top, right, bottom};
    FillRect(dc, &area, GetSysColorBrush(colour));
}

// A hook mark in a square of `side` pixels whose corner is at `at`: down to the knee, then up to the right.
void DrawHook(HDC dc, int at, int side, int colour) noexcept
{
    int knee = (side - 1) / 3, thickness = knee + 1, rise = side - thickness;
    for (int x = 0; x < side; ++x) {
        int y = rise - std::abs(x - knee);
        Fill(dc, at + x, at + y, at + x + 1, at + y + thickness, colour);
    }
}

struct CheckLook {
    int Back;
    int Frame;
    int Hook; // -1: none
};
constexpr CheckLook CheckLooks[CheckImageCount] = {
    {COLOR_WINDOW, COLOR_3DDKSHADOW, COLOR_WINDOWTEXT},
    {COLOR_WINDOW, COLOR_3DDKSHADOW, -1},
    {COLOR_BTNFACE, COLOR_3DDKSHADOW, COLOR_BTNSHADOW},
    {COLOR_BTNFACE, COLOR_BTNSHADOW, COLOR_BTNSHADOW},
    {COLOR_BTNFACE, COLOR_BTNSHADOW, -1},
};

HBITMAP MakeCheckBox(const CheckLook& look) noexcept
{
    int side = CheckBoxSide();
    ScreenDC screen;
    HBITMAP bitmap = CreateCompatibleBitmap(screen.Get(), side, side);
    HDC dc = CreateCompatibleDC(screen.Get());
    if (bitmap && dc) {
        SelectedObject selected(dc, bitmap);
        int frame = std::max(1, side / 11);
        Fill(dc, 0, 0, side, side, look.Frame);
        Fill(dc, frame, frame, side - frame, side - frame, look.Back);
        if (look.Hook >= 0)
            DrawHook(dc, 2 * frame, side - 4 * frame, look.Hook);
    }
    if (dc)
        DeleteDC(dc);
    return bitmap;
}

HICON MarkOf(MarkIcon which) noexcept
{
    HICON& icon = resources.Marks[which];
    if (!icon)
        icon = MakeMark(MarkArts[which],
                        GetSysColor(which <= DescendingMark ? COLOR_3DDKSHADOW : COLOR_BTNTEXT));
    return icon;
}
} // namespace

HCURSOR GridCursorOf(GridCursor which) noexcept
{
    HCURSOR& cursor = resources.Cursors[static_cast<int>(which)];
    if (!cursor)
        cursor = MakeCursor(CursorArts[static_cast<int>(which)]);
    return cursor;
}

HICON SortMarkIcon(bool ascending) noexcept
{
    return MarkOf(ascending ? AscendingMark : DescendingMark);
}

HICON RowIndicatorIcon(bool rightToLeft) noexcept
{
    return MarkOf(rightToLeft ? IndicatorLeft : IndicatorRight);
}

HICON ControlIcon() noexcept
{
    return MarkOf(GridMark);
}

void DrawMarkIcon(HDC dc, int x, int y, HICON icon) noexcept
{
    DrawIconEx(dc, x, y, icon, MarkSide, MarkSide, 0, nullptr, DI_NORMAL);
}

HBITMAP CheckBoxBitmap(CheckImage which) noexcept
{
    HBITMAP& bitmap = resources.Checks[static_cast<int>(which)];
    if (!bitmap)
        bitmap = MakeCheckBox(CheckLooks[static_cast<int>(which)]);
    return bitmap;
}

int CheckBoxSide() noexcept
{
    return DpiScale(10) / 2 * 2 + 1;
}

HBRUSH PatternBrush() noexcept
{
    if (!resources.Pattern) {
        static constexpr WORD Dots[8] = {0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55};
        Bitmap bitmap(CreateBitmap(8, 8, 1, 1, Dots));
        resources.Pattern = CreatePatternBrush(bitmap.Get());
    }
    return resources.Pattern;
}

HBITMAP StockBitmap() noexcept
{
    if (!resources.Stock)
        resources.Stock = CreateBitmap(1, 1, 1, 1, nullptr);
    return resources.Stock;
}

void ReleaseModuleResources() noexcept
{
    for (HCURSOR cursor : resources.Cursors)
        if (cursor)
            DestroyCursor(cursor);
    for (HICON icon : resources.Marks)
        if (icon)
            DestroyIcon(icon);
    for (HBITMAP bitmap : resources.Checks)
        if (bitmap)
            DeleteObject(bitmap);
    for (HGDIOBJ object : {static_cast<HGDIOBJ>(resources.Pattern), static_cast<HGDIOBJ>(resources.Stock)})
        if (object)
            DeleteObject(object);
    resources = {};
}
