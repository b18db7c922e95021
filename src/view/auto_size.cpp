#include "view/auto_size.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/font_pool.h"
#include "core/merge.h"
#include "core/outline_level.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "view/cell_text.h"
#include "view/metrics.h"
#include "view/picture.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace
{
constexpr UINT MeasureFlags = DT_CALCRECT | DT_NOPREFIX | DT_EDITCONTROL | DT_EXPANDTABS;
static_assert(MeasureFlags == 0x2C40);
constexpr int RowPadding = 4; // pixels above and below a text, together
constexpr int CheckBoxSide = 10;
constexpr int TwipsPerPoint = 20;

// The font of the grid, or one of its width when FontWidth asks for that.
class MeasuringFont
{
public:
    explicit MeasuringFont(Grid& grid) noexcept : font_(GridFontHandle(grid))
    {
        LOGFONTW description = {};
        if (grid.FontWidth == 0 || !font_ || !GetObjectW(font_, sizeof(description), &description))
            return;
        int twips = static_cast<int>(grid.FontWidth * TwipsPerPoint);
        description.lfWidth = -MulDiv(LogPixelsY(), twips, 1440);
        pooled_ = AcquirePooledFont(description);
    }
    MeasuringFont(const MeasuringFont&) = delete;
    MeasuringFont& operator=(const MeasuringFont&) = delete;
    ~MeasuringFont() { ReleasePooledFont(pooled_); }
    HFONT Get() const noexcept { return pooled_ ? pooled_ : font_; }

private:
    HFONT font_;
    HFONT pooled_ = nullptr;
};

// How wide a text can be at most, from the widths of its characters: enough to see that it is not the widest,
// at a fraction of what measuring costs.
class WidthLimits
{
public:
    explicit WidthLimits(HDC screen) noexcept
    {
        TEXTMETRICW metrics = {};
        known_ = GetTextMetricsW(screen, &metrics) && metrics.tmCharSet != SYMBOL_CHARSET &&
                 GetCharWidth32W(screen, First, Last, widths_);
        overhang_ = metrics.tmOverhang;
    }

    // Of a text in the font that was selected; Unknown for one that has tabs, line breaks or other scripts.
    int Of(const wchar_t* text) const noexcept
    {
        if (!known_)
            return Unknown;
        int width = overhang_;
        for (; *text && width < Unknown; ++text) {
            if (*text < First || *text > Last)
                return Unknown;
            width += widths_[*text - First];
        }
        return std::min(width, Unknown);
    }

    static constexpr int Unknown = 1 << 24;

private:
    static constexpr wchar_t First = L' ', Last = L'~';

    bool known_ = false;
    int overhang_ = 0;
    int widths_[Last - First + 1] = {};
};

struct Sizing {
    Grid& Sheet;
    HDC Screen;
    const WidthLimits& Limits; // in the font of cells that have none of their own
    int First, Last;
    bool Equal;
    int Extra;
    bool IncludeHidden; // a collapsed outline is sized by all that is in it
};

void BringMergeLinksUpToDate(Grid& grid)
{
    if (!MergesAtAll(grid) || !HasOption(grid, OptionMergeStale))
        return;
    int32_t redraw = std::exchange(grid.Redraw, static_cast<int32_t>(lorvRDBuffered));
    RebuildMergeLinks(grid);
    grid.Redraw = redraw;
    RepaintGrid(grid);
}

// A size that comes out negative is none: the default applies.
int StoredSize(const Sizing& sizing, int best) noexcept
{
    return std::clamp(sizing.Extra + best, UnsetLength, MaxPixels);
}

HFONT CellFont(const CellFormat* format) noexcept
{
    return format ? format->Font : nullptr;
}

int TextLength(const wchar_t* text) noexcept
{
    return static_cast<int>(wcsnlen(text, MaxDrawnText));
}

// Rows by what is in them

// The text that a row's height is measured by; null: the cell has none. Cells of merged ranges count as a
// line.
const wchar_t* TextForHeight(Grid& grid, int row, int col)
{
    if (MergesAtAll(grid) && MergeLinksOf(grid, row, col) != 0)
        return L" ";
    return GetDisplayText(grid, row, col);
}

int CellHeight(const Sizing& sizing, int row, int col)
{
    Grid& grid = sizing.Sheet;
    const CellFormat* format = CellFormatOf(grid, row, col);
    int picture = format && format->Picture ? PictureSize(format->Picture).cy : 0;
    const wchar_t* text = TextForHeight(grid, row, col);
    if (!text)
        return picture;
    SelectedObject font(sizing.Screen, CellFont(format));
    RECT area = CellRect(grid, row, col);
    InflateRect(&area, -TextMarginX, 0);
    TextAreaAdjust(grid, row, col, format, area, false);
    if (area.right <= area.left)
        return picture;
    UINT wrap = HasOption(grid, OptionWordWrap) ? DT_WORDBREAK : DT_SINGLELINE;
    int height = DrawTextW(sizing.Screen, text, TextLength(text), &area, MeasureFlags | wrap);
    return std::max(picture, height + RowPadding);
}

int TallestInRow(const Sizing& sizing, int row, int best)
{
    for (int col = sizing.First; col <= sizing.Last && IsCell(sizing.Sheet, row, col); ++col)
        if (EffectiveColWidth(sizing.Sheet, col) != 0)
            best = std::max(best, CellHeight(sizing, row, col));
    return std::min(best, GetSystemMetrics(SM_CYSCREEN));
}

void SizeRows(const Sizing& sizing)
{
    Grid& grid = sizing.Sheet;
    int best = -1;
    for (int row = 0; row < grid.Rows; ++row) {
        if (!sizing.IncludeHidden && EffectiveRowHeight(grid, row) == 0)
            continue;
        best = TallestInRow(sizing, row, best);
        if (!sizing.Equal && best >= 1 && row < grid.Rows)
            grid.RowTable[row].Height = StoredSize(sizing, std::exchange(best, -1));
    }
    for (int row = 0; sizing.Equal && best >= 1 && row < grid.Rows; ++row)
        if (grid.RowTable[row].Height != 0)
            grid.RowTable[row].Height = StoredSize(sizing, best);
}

// Columns by what is in them

// A cell in a merged range says nothing about its column's width; a text that spills over does.
bool IsMergedAcross(const Grid& grid, int row, int col) noexcept
{
    auto merges = [](int mode) { return mode != 0 && mode != lorvMergeSpill; };
    if (!merges(grid.MergeCells) && !merges(grid.MergeCellsFixed))
        return false;
    bool outline = grid.MergeCells == lorvMergeOutline || grid.MergeCellsFixed == lorvMergeOutline;
    bool marked = grid.RowTable[row].MergeRow != 0 || (outline && IsSubtotalRow(grid, row));
    return marked && MergeLinksOf(grid, row, col) != 0;
}

enum class Width { Measured, AtMost };

int TextWidth(const Sizing& sizing, const CellFormat* format, const wchar_t* text, RECT area, Width kind)
{
    if (kind == Width::AtMost)
        return CellFont(format) ? WidthLimits::Unknown : sizing.Limits.Of(text);
    SelectedObject font(sizing.Screen, CellFont(format));
    DrawTextW(sizing.Screen, text, TextLength(text), &area, MeasureFlags);
    return area.right;
}

int CellWidth(const Sizing& sizing, int row, int col, int margin, int digitWidth, Width kind)
{
    Grid& grid = sizing.Sheet;
    const CellFormat* format = CellFormatOf(grid, row, col);
    RECT area = {0, 0, -margin, EffectiveRowHeight(grid, row)};
    int width = margin + digitWidth;
    const wchar_t* text = GetDisplayText(grid, row, col);
    if (text && *text) {
        area.right = TextWidth(sizing, format, text, area, kind);
        width += area.right;
    }
    RECT left = area;
    TextAreaAdjust(grid, row, col, format, left, !text || !*text);
    int taken = (area.right - area.left) - (left.right - left.left);
    return width + std::max(taken, 0);
}

int WidestInCol(const Sizing& sizing, int col, int digitWidth, int best)
{
    Grid& grid = sizing.Sheet;
    int margin = grid.ColTable[col].Indent + 2 * TextMarginX;
    if (grid.ColTable[col].ColDataType == lorvDTBoolean)
        best = std::max(best, 2 * DpiScale(CheckBoxSide));
    for (int row = 0; row < grid.Rows && IsCol(grid, col); ++row) {
        bool skipped = !sizing.IncludeHidden && EffectiveRowHeight(grid, row) == 0;
        if (skipped || IsMergedAcross(grid, row, col) ||
            CellWidth(sizing, row, col, margin, digitWidth, Width::AtMost) <= best)
            continue;
        if (IsCell(grid, row, col)) // a text source may have changed the grid
            best = std::max(best, CellWidth(sizing, row, col, margin, digitWidth, Width::Measured));
    }
    return std::min(best, GetSystemMetrics(SM_CXSCREEN));
}

void SizeCols(const Sizing& sizing)
{
    Grid& grid = sizing.Sheet;
    SIZE digit = {};
    GetTextExtentPoint32W(sizing.Screen, L"0", 1, &digit);
    int best = digit.cx;
    for (int col = sizing.First; col <= sizing.Last && col < grid.Cols; ++col) {
        best = WidestInCol(sizing, col, digit.cx, best);
        if (!sizing.Equal && col < grid.Cols)
            grid.ColTable[col].Width = StoredSize(sizing, std::exchange(best, static_cast<int>(digit.cx)));
    }
    for (int col = sizing.First; sizing.Equal && col <= sizing.Last && col < grid.Cols; ++col)
        if (grid.ColTable[col].Width != 0)
            grid.ColTable[col].Width = StoredSize(sizing, best);
}

// The font object may have been changed behind the grid's back.
void FollowFont(Grid& grid)
{
    HFONT now = nullptr;
    if (IFont* font = GridFont(grid); font && SUCCEEDED(font->get_hFont(&now)) && now != grid.FontHandle)
        RecalcDefaultRowHeight(grid);
}
} // namespace

void AutoSizeRange(Grid& grid, int first, int last, bool equal, int extra, int mode)
{
    if (!IsCol(grid, first) || !IsCol(grid, last))
        return;
    KeepAlive alive(grid);
    FollowFont(grid); // lays out, so that scroll events fire
    BringMergeLinksUpToDate(grid);
    {
        ScreenDC screen;
        MeasuringFont font(grid);
        SelectedObject selected(screen.Get(), font.Get());
        WidthLimits limits(screen.Get());
        Sizing sizing = {grid, screen.Get(), limits, first, last, equal, extra, ShowsOutline(grid)};
        bool rows = (mode < 0 ? grid.AutoSizeMode : mode) == lorvAutoSizeRowHeight;
        (rows ? SizeRows : SizeCols)(sizing);
    }
    RecalculateLayout(grid);
    RepaintGrid(grid);
    if (SpillsText(grid))
        MarkMergeStale(grid);
}
