#include "view/paint.h"

#include "core/events.h"
#include "core/font_pool.h"
#include "core/merge.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "view/cell_paint.h"
#include "view/grid_lines.h"
#include "view/metrics.h"
#include "view/paint_buffer.h"
#include "view/picture.h"

#include <algorithm>
#include <cstdlib>

namespace
{
long drawCount;

constexpr int SheetBorderOverhang = 5; // pixels by which the sheet's border leaves the window
constexpr int MaxFontWidth = 1000;

bool IsPrinting(const Grid& grid) noexcept
{
    return (grid.PaintMode & PaintPrinting) != 0;
}

bool IsRightToLeft(const Grid& grid) noexcept
{
    return HasOption(grid, OptionRightToLeft);
}

// The host's palette in a context, for the length of a scope; it leaves as a background palette.
class SelectedPalette
{
public:
    SelectedPalette(HDC dc, HPALETTE palette) noexcept : dc_(dc)
    {
        if (!palette)
            return;
        previous_ = SelectPalette(dc, palette, TRUE);
        RealizePalette(dc);
    }
    SelectedPalette(const SelectedPalette&) = delete;
    SelectedPalette& operator=(const SelectedPalette&) = delete;
    ~SelectedPalette()
    {
        if (previous_)
            SelectPalette(dc_, previous_, TRUE);
    }

private:
    HDC dc_;
    HPALETTE previous_ = nullptr;
};

void DrawOnScreen(Grid& grid, HDC dc, const RECT& bounds)
{
    // A form designer sees its grid at all times.
    if (grid.Redraw == lorvRDNone && !IsDesignMode(grid))
        return;
    RECT clip = bounds;
    int kind = GetClipBox(dc, &clip);
    if (kind == NULLREGION)
        return;
    if (kind == ERROR)
        clip = bounds;
    BufferedPaint buffer(grid, dc, bounds, clip);
    SelectedPalette palette(buffer.Get(), grid.Palette);
    PaintGrid(grid, buffer.Get(), bounds, &clip);
}

bool IsMetafile(HDC dc) noexcept
{
    DWORD type = GetObjectType(dc);
    return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

// For a metafile or another device: the client area as a picture.
void DrawForHost(Grid& grid, const DrawInfo& info)
{
    ScreenDC screen;
    HDC device = IsMetafile(info.Target) ? screen.Get() : info.Target;
    RECT client = ClientRectOf(grid);
    HDC memory = CreateCompatibleDC(device);
    if (!memory)
        return;
    if (Bitmap bitmap(CreateCompatibleBitmap(device, client.right, client.bottom)); bitmap) {
        SelectedObject selected(memory, bitmap.Get());
        PaintGrid(grid, memory, client, nullptr);
        RECT edge = client;
        if (grid.BorderStyle != lorvBorderNone)
            DrawEdge(memory, &edge, EDGE_SUNKEN, BF_RECT);
        StretchBits(info.Context, info.Bounds, memory, {client.right, client.bottom});
    }
    DeleteDC(memory);
}

// The fonts of the grid while it paints, with the width that the grid asks for.
class PaintFont
{
public:
    PaintFont(Grid& grid, HDC dc) noexcept : dc_(dc)
    {
        HFONT font = GridFontHandle(grid);
        if (grid.FontWidth != 0)
            font = own_ = WidenedFont(grid, font);
        if (font)
            previous_ = SelectObject(dc, font);
    }
    PaintFont(const PaintFont&) = delete;
    PaintFont& operator=(const PaintFont&) = delete;
    ~PaintFont()
    {
        if (previous_)
            SelectObject(dc_, previous_);
        ReleasePooledFont(own_);
    }

private:
    static HFONT WidenedFont(const Grid& grid, HFONT font) noexcept
    {
        LOGFONTW description = {};
        GetObjectW(font, sizeof(description), &description);
        int width = MulDiv(LogPixelsY(), static_cast<int>(grid.FontWidth * 20), 1440);
        description.lfWidth = std::min(std::abs(width), MaxFontWidth);
        return AcquirePooledFont(description);
    }

    HDC dc_;
    HFONT own_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

// What the cells are painted with is made anew where it is out of date.
void RefreshForPaint(Grid& grid)
{
    if (MergesAtAll(grid) && HasOption(grid, OptionMergeStale)) {
        RebuildMergeLinks(grid);
        if (!HasOption(grid, OptionMergeStale))
            RepaintGrid(grid);
    }
    HFONT handle = nullptr;
    IFont* font = GridFont(grid);
    if (font && SUCCEEDED(font->get_hFont(&handle)) && handle != grid.FontHandle) {
        grid.FontHandle = handle;
        RecalcDefaultRowHeight(grid);
    }
    if (HasOption(grid, OptionGdiStale)) {
        RebuildGdi(grid, -1);
        SetOption(grid, OptionGdiStale, false);
    }
}

// A page ends with the last column that fits on it.
void NarrowToWholeCols(const Grid& grid, RECT& bounds) noexcept
{
    int x = bounds.left;
    for (int col = 0; col < grid.Cols; ++col) {
        if (col < grid.LeftCol && col >= FrozenEndCol(grid))
            col = grid.LeftCol;
        int width = EffectiveColWidth(grid, col);
        if (col > grid.PrintStartCol && x + width > bounds.right)
            break;
        x += width;
    }
    bounds.right = std::min<LONG>(bounds.right, x);
}

void DrawWallPaper(Grid& grid, HDC dc, const RECT& bounds)
{
    if (!grid.WallPaper)
        return;
    if (!IsPrinting(grid))
        FillRect(dc, &bounds, grid.Drawing.Back);
    DrawPicture(grid, dc, grid.WallPaper, grid.WallPaperAlignment, bounds);
}

// The sheet as painted: `cursor` is the rectangle of its last cell.
RECT SheetOf(const Grid& grid, const RECT& bounds, const RECT& cursor) noexcept
{
    return IsRightToLeft(grid) ? RECT{cursor.left, bounds.top, bounds.right, cursor.bottom}
                               : RECT{bounds.left, bounds.top, cursor.right, cursor.bottom};
}

void DrawPageBorder(const Grid& grid, HDC dc, const RECT& page) noexcept
{
    if (grid.GridLines != lorvGridNone || grid.GridLinesFixed != lorvGridNone) {
        SelectObject(dc, grid.Drawing.DarkPen);
        if (grid.GridLines != lorvGridNone)
            DrawEdgeLines(dc, page, EdgeShape::BottomRight);
        DrawEdgeLines(dc, page, EdgeShape::LeftTop);
    }
    MoveToEx(dc, page.left, page.bottom, nullptr);
}

// The background and the border are left to the part of the bounds that no cell covers.
void DrawAroundSheet(Grid& grid, HDC dc, const RECT& bounds, const RECT& sheet)
{
    bool fills = sheet.bottom >= bounds.bottom && sheet.right >= bounds.right && sheet.left <= bounds.left;
    if (fills || grid.WallPaper)
        return;
    bool rightToLeft = IsRightToLeft(grid);
    ExcludeClipRect(dc, rightToLeft ? sheet.left : 0, 0, sheet.right, sheet.bottom);
    FillRect(dc, &bounds, grid.Drawing.Background);
    if (grid.GridLines == lorvGridNone && grid.GridLinesFixed == lorvGridNone)
        return;
    RECT border = {-SheetBorderOverhang, -SheetBorderOverhang, sheet.right + 1, sheet.bottom + 1};
    if (rightToLeft)
        border.left = sheet.left - 1, border.right = bounds.right + SheetBorderOverhang;
    PaintCellLines(grid, dc, -1, -1, border);
}

void PaintSheet(Grid& grid, HDC dc, RECT bounds, const RECT* clip)
{
    bool printing = IsPrinting(grid);
    if (printing)
        NarrowToWholeCols(grid, bounds);
    DrawWallPaper(grid, dc, bounds);
    RECT cursor = {bounds.left, bounds.top, bounds.left, bounds.top};
    if (IsRightToLeft(grid))
        cursor.left = cursor.right = bounds.right;
    int frozenEnd = FrozenEndRow(grid);
    int scrolled = std::max(grid.TopRow, frozenEnd);
    PaintBand(grid, dc, bounds, clip, cursor, 0, frozenEnd);
    PaintBand(grid, dc, bounds, clip, cursor, scrolled, grid.Rows);
    RECT sheet = SheetOf(grid, bounds, cursor);
    if (printing)
        DrawPageBorder(grid, dc, sheet);
    else
        DrawAroundSheet(grid, dc, bounds, sheet);
}

// The cells of one row, from the leading edge on.
class RowWalk
{
public:
    RowWalk(Grid& grid, HDC dc, const RECT& bounds, const RECT* clip, RECT& cursor, bool metafile) noexcept
        : grid_(grid), dc_(dc), bounds_(bounds), clip_(clip), cursor_(cursor),
          testsVisible_(!metafile && !IsPrinting(grid))
    {
    }

    void Paint(int row)
    {
        if (IsRightToLeft(grid_))
            cursor_.left = bounds_.right;
        else
            cursor_.right = bounds_.left;
        int col = 0;
        for (; col < grid_.Cols && row < grid_.Rows; ++col) {
            if (col < grid_.LeftCol && col >= FrozenEndCol(grid_))
                col = grid_.LeftCol;
            if (int width = EffectiveColWidth(grid_, col); width != 0 && !PaintNext(row, col, width))
                break;
        }
        if (IsPrinting(grid_))
            grid_.PrintNextCol = col;
    }

private:
    // False at the end of the row.
    bool PaintNext(int row, int col, int width)
    {
        Advance(col, width);
        if (IsPrinting(grid_)) {
            if (col > grid_.PrintStartCol && !FitsPage()) {
                PullBack();
                return false;
            }
        } else {
            if (IsPastBounds() || IsPastClip())
                return false;
            if (IsBeforeClip())
                return true;
        }
        RECT cell = cursor_;
        cell.right = std::min<LONG>(cell.right, MaxPixels);
        cell.bottom = std::min<LONG>(cell.bottom, MaxPixels);
        if (!testsVisible_ || RectVisible(dc_, &cell))
            PaintCell(grid_, dc_, row, col, cell, &bounds_);
        return !grid_.Closing;
    }

    void Advance(int col, int width) noexcept
    {
        bool last = IsLastVisibleCol(grid_, col);
        if (IsRightToLeft(grid_)) {
            cursor_.right = cursor_.left;
            cursor_.left = last ? bounds_.left : cursor_.right - width;
        } else {
            cursor_.left = cursor_.right;
            cursor_.right = last ? bounds_.right : cursor_.left + width;
        }
    }

    bool FitsPage() const noexcept
    {
        return IsRightToLeft(grid_) ? cursor_.left >= bounds_.left : cursor_.right <= bounds_.right;
    }
    void PullBack() noexcept
    {
        if (IsRightToLeft(grid_))
            cursor_.left = cursor_.right;
        else
            cursor_.right = cursor_.left;
    }
    bool IsPastBounds() const noexcept
    {
        return IsRightToLeft(grid_) ? cursor_.right <= bounds_.left : cursor_.left >= bounds_.right;
    }
    bool IsPastClip() const noexcept
    {
        return clip_ && (IsRightToLeft(grid_) ? cursor_.right < clip_->left : cursor_.left > clip_->right);
    }
    bool IsBeforeClip() const noexcept
    {
        return clip_ && (IsRightToLeft(grid_) ? cursor_.left > clip_->right : cursor_.right < clip_->left);
    }

    Grid& grid_;
    HDC dc_;
    const RECT& bounds_;
    const RECT* clip_;
    RECT& cursor_;
    bool testsVisible_;
};

enum class RowFate { Paint, Skip, Stop };

// Moves the cursor to the next row and says what becomes of it.
RowFate AdvanceRow(const Grid& grid, const RECT& bounds, const RECT* clip, RECT& cursor, int row,
                   int height) noexcept
{
    cursor.top = cursor.bottom;
    cursor.bottom = cursor.top + height;
    if (IsPrinting(grid)) {
        // A row higher than the page is cut; any other that does not fit goes to the next page.
        if (row == grid.TopRow)
            cursor.bottom = std::min(cursor.bottom, bounds.bottom);
        return cursor.bottom > bounds.bottom ? RowFate::Stop : RowFate::Paint;
    }
    if (cursor.top >= bounds.bottom || (clip && cursor.top > clip->bottom))
        return RowFate::Stop;
    return clip && cursor.bottom < clip->top ? RowFate::Skip : RowFate::Paint;
}
} // namespace

void PaintBand(Grid& grid, HDC dc, const RECT& bounds, const RECT* clip, RECT& cursor, int first, int end)
{
    RowWalk walk(grid, dc, bounds, clip, cursor, IsMetafile(dc));
    int row = std::max(first, 0);
    // A handler of a cell's events may take rows away while they are painted.
    for (; row < std::min(end, grid.Rows) && !grid.Closing; ++row) {
        int height = EffectiveRowHeight(grid, row);
        if (height == 0)
            continue;
        RECT before = cursor;
        RowFate fate = AdvanceRow(grid, bounds, clip, cursor, row, height);
        if (fate == RowFate::Stop) {
            if (IsPrinting(grid))
                cursor = before;
            break;
        }
        if (fate == RowFate::Paint)
            walk.Paint(row);
    }
    if (!IsPrinting(grid))
        return;
    grid.PrintNextRow = row;
    MoveToEx(dc, cursor.left, cursor.bottom, nullptr);
}

void PaintGrid(Grid& grid, HDC dc, RECT bounds, const RECT* clip)
{
    KeepAlive alive(grid);
    RefreshForPaint(grid);
    SetBkMode(dc, TRANSPARENT);
    SelectedObject pen(dc, grid.Drawing.GridPen);
    PaintFont font(grid, dc);
    if (!IsPrinting(grid))
        return PaintSheet(grid, dc, bounds, clip);
    int16_t highLight = grid.HighLight;
    grid.HighLight = lorvHighlightNever;
    PaintSheet(grid, dc, bounds, clip);
    grid.HighLight = highLight;
}

void OnDraw(Grid& grid, const DrawInfo& info)
{
    KeepAlive alive(grid);
    ++drawCount;
    bool focused = grid.Window && GetFocus() == grid.Window;
    grid.PaintMode = focused ? grid.PaintMode | PaintHasFocus : grid.PaintMode & ~uint32_t{PaintHasFocus};
    if (info.Context == info.Target && !IsMetafile(info.Context))
        DrawOnScreen(grid, info.Context, info.Bounds);
    else
        DrawForHost(grid, info);
}

long DrawCount() noexcept
{
    return drawCount;
}
