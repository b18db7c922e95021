#include "view/cell_text.h"

#include "core/check_state.h"
#include "core/outline_level.h"
#include "core/value_format.h"
#include "platform/dpi.h"
#include "view/cell_background.h"
#include "view/picture.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr int BoxSide = 10; // of a check box, pixels at 96 dpi
constexpr UINT BaseFlags = DT_EXPANDTABS | DT_NOPREFIX | DT_EDITCONTROL;

enum class GeneralSide { Right, Left, ByText };

// What a column's type says about the side of its values.
GeneralSide SideOfType(int type) noexcept
{
    switch (type) {
    case lorvDTShort:
    case lorvDTLong:
    case lorvDTSingle:
    case lorvDTDouble:
    case lorvDTCurrency:
    case lorvDTDate:
    case lorvDTDecimal:
    case lorvDTLong8:
        return GeneralSide::Right;
    case lorvDTString:
    case lorvDTStringC:
    case lorvDTStringW:
    case lorvDTBoolean:
        return GeneralSide::Left;
    default:
        return GeneralSide::ByText;
    }
}

int AskedAlignment(const ColRecord& column, bool fixedRow, const CellFormat* format) noexcept
{
    if (format && format->Alignment != Unset)
        return format->Alignment;
    if (fixedRow && static_cast<uint8_t>(column.FixedAlignment) != Unset)
        return column.FixedAlignment;
    return column.Alignment;
}

int ResolveGeneral(const ColRecord& column, const wchar_t* text, int alignment) noexcept
{
    GeneralSide side = SideOfType(column.ColDataType);
    // Values picked from a list are words as often as numbers; texts go to the left all the same.
    bool listed = column.ColComboList && *column.ColComboList;
    if (side == GeneralSide::ByText || (side == GeneralSide::Right && listed))
        side = IsNumericText(text) ? GeneralSide::Right : GeneralSide::Left;
    int across = side == GeneralSide::Right ? lorvAlignRightTop : lorvAlignLeftTop;
    int down = alignment == lorvAlignGeneralTop ? 0 : alignment == lorvAlignGeneralBottom ? 2 : 1;
    return across + down;
}

bool HasCheckBox(Grid& grid, int row, int col)
{
    return CheckStateOf(grid, row, col) != lorvNoCheckbox && IsCell(grid, row, col) &&
           !grid.ColTable[col].ColFormat;
}

int LengthForDrawing(const wchar_t* text) noexcept
{
    return static_cast<int>(wcsnlen(text, MaxDrawnText));
}

// One text on its way to the screen: how it is measured and drawn.
struct TextRun {
    HDC Context;
    const wchar_t* Text;
    int Length;
    RECT Area;
    int Alignment;
    UINT Flags;
    bool Plain; // one line without control characters, which needs no layout
    SIZE Size;
};

bool HasControlCharacters(const wchar_t* text, int length) noexcept
{
    return std::any_of(text, text + length, [](wchar_t c) { return c < L' '; });
}

UINT AlignmentFlags(int alignment) noexcept
{
    constexpr UINT Across[] = {DT_LEFT, DT_CENTER, DT_RIGHT};
    constexpr UINT Down[] = {DT_TOP, DT_VCENTER, DT_BOTTOM};
    return Across[alignment / 3 % 3] | Down[alignment % 3];
}

UINT FlagsOf(const Grid& grid, const TextRun& run) noexcept
{
    UINT flags = BaseFlags | AlignmentFlags(run.Alignment) | WrapAndEllipsisFlags(grid, run.Text, run.Length);
    if (HasOption(grid, OptionRightToLeft) && !IsNumericText(run.Text))
        flags |= DT_RTLREADING;
    if (flags & DT_WORDBREAK) {
        TEXTMETRICW metrics = {};
        GetTextMetricsW(run.Context, &metrics);
        if (run.Area.right - run.Area.left + 1 <= metrics.tmMaxCharWidth)
            flags &= ~DT_EDITCONTROL;
    }
    return flags;
}

int FirstLineWidth(const TextRun& run) noexcept
{
    const wchar_t* end =
        std::find_if(run.Text, run.Text + run.Length, [](wchar_t c) { return c == L'\r' || c == L'\n'; });
    SIZE size = {};
    GetTextExtentPoint32W(run.Context, run.Text, static_cast<int>(end - run.Text), &size);
    return size.cx;
}

// The common case, a single line that fits or is simply cut, needs neither DrawText's layout nor its two
// passes; both ways put the same pixels.
bool MeasurePlain(TextRun& run) noexcept
{
    if ((run.Flags & DT_RTLREADING) || HasControlCharacters(run.Text, run.Length))
        return false;
    if (!GetTextExtentPoint32W(run.Context, run.Text, run.Length, &run.Size))
        return false;
    bool lays = (run.Flags & (DT_WORDBREAK | DT_END_ELLIPSIS | DT_PATH_ELLIPSIS)) != 0;
    return !lays || run.Size.cx <= run.Area.right - run.Area.left;
}

void Measure(TextRun& run) noexcept
{
    run.Plain = MeasurePlain(run);
    if (run.Plain)
        return;
    RECT area = run.Area;
    DrawTextW(run.Context, run.Text, run.Length, &area, run.Flags | DT_CALCRECT);
    run.Size = {area.right - area.left, area.bottom - area.top};
}

RECT DrawRectOf(const TextRun& run) noexcept
{
    const RECT& area = run.Area;
    LONG height = std::min(run.Size.cy, area.bottom - area.top);
    LONG top = area.top;
    if (run.Alignment % 3 == 1)
        top = (area.top + area.bottom - height) / 2;
    else if (run.Alignment % 3 == 2)
        top = area.bottom - height;
    return {area.left, top, area.right, top + height};
}

void DrawPlain(const TextRun& run, const RECT& at) noexcept
{
    int spare = at.right - at.left - run.Size.cx;
    int x = at.left;
    if (IsCenterAligned(run.Alignment))
        x += spare / 2;
    else if (IsRightAligned(run.Alignment))
        x += spare;
    bool cut = spare < 0 || run.Size.cy > at.bottom - at.top;
    ExtTextOutW(run.Context, x, at.top, cut && !(run.Flags & DT_NOCLIP) ? ETO_CLIPPED : 0, &at, run.Text,
                run.Length, nullptr);
}

void DrawRun(const TextRun& run, RECT at, int shift) noexcept
{
    OffsetRect(&at, shift, shift);
    if (run.Plain)
        DrawPlain(run, at);
    else
        DrawTextW(run.Context, run.Text, run.Length, &at, run.Flags);
}

// The copies of a text style, drawn before the text: their offsets and colours.
struct StyleCopy {
    int Shift;
    int Colour;
};
struct StyleLook {
    int Count;
    StyleCopy Copies[2];
};
constexpr StyleLook StyleLooks[] = {
    {0, {}},
    {2, {{1, COLOR_BTNSHADOW}, {-1, COLOR_BTNHIGHLIGHT}}},
    {2, {{1, COLOR_BTNHIGHLIGHT}, {-1, COLOR_BTNSHADOW}}},
    {1, {{-1, COLOR_BTNHIGHLIGHT}}},
    {1, {{1, COLOR_BTNHIGHLIGHT}}},
};

void DrawStyled(const TextRun& run, const RECT& at, int style) noexcept
{
    const StyleLook& look =
        StyleLooks[style > 0 && style < static_cast<int>(std::size(StyleLooks)) ? style : 0];
    COLORREF colour = GetTextColor(run.Context);
    for (int i = 0; i < look.Count; ++i) {
        SetTextColor(run.Context, GetSysColor(look.Copies[i].Colour));
        DrawRun(run, at, look.Copies[i].Shift);
    }
    if (look.Count != 0)
        SetTextColor(run.Context, colour);
    DrawRun(run, at, 0);
    if (look.Count == 1)
        SetTextColor(run.Context, GetSysColor(COLOR_BTNSHADOW));
}

bool EndsInDigit(const TextRun& run) noexcept
{
    wchar_t last = run.Text[run.Length - 1];
    return last >= L'0' && last <= L'9';
}

int WidthOfParenthesis(HDC dc) noexcept
{
    SIZE size = {};
    GetTextExtentPoint32W(dc, L")", 1, &size);
    return size.cx;
}
} // namespace

int TreeIndent(const Grid& grid, int row, int col) noexcept
{
    if (!ShowsOutline(grid) || col != grid.OutlineCol || !IsRow(grid, row))
        return 0;
    int step = DpiScale(OutlineStep);
    bool complete =
        grid.OutlineBar == lorvOutlineBarComplete || grid.OutlineBar == lorvOutlineBarCompleteLeaf;
    if (complete && grid.FixedRows > 0 && row == grid.FixedRows - 1)
        return step * grid.OutlineLevelCount;
    return (RowLevelIndex(grid, row) + 1) * step;
}

void TextAreaAdjust(Grid& grid, int row, int col, const CellFormat* format, RECT& rectangle, bool textAbsent)
{
    int tree = TreeIndent(grid, row, col);
    if (HasOption(grid, OptionRightToLeft))
        rectangle.right -= tree;
    else
        rectangle.left += tree;
    int alignment = format && format->PictureAlignment != Unset ? format->PictureAlignment
                                                                : static_cast<int>(lorvPicAlignLeftCenter);
    IPictureDisp* picture = format && !HasOption(grid, OptionPicturesOver) ? format->Picture : nullptr;
    int width = picture ? PictureSize(picture).cx : 0;
    if (HasCheckBox(grid, row, col)) {
        int room = DpiScale(BoxSide) + TextMarginX;
        if (IsLeftAligned(alignment)) {
            rectangle.left += room;
            return;
        }
        if (IsRightAligned(alignment)) {
            rectangle.right -= room;
            return;
        }
    }
    if (IsLeftAligned(alignment))
        rectangle.left += width;
    else if (IsRightAligned(alignment) || textAbsent)
        rectangle.right -= width;
}

int EffectiveAlignment(const Grid& grid, const wchar_t* text, int row, int col,
                       const CellFormat* format) noexcept
{
    if (!text || !*text)
        return lorvAlignLeftTop;
    const ColRecord& column = grid.ColTable[col];
    int alignment = AskedAlignment(column, row < grid.FixedRows, format);
    if (alignment >= lorvAlignGeneral || alignment < 0)
        alignment = ResolveGeneral(column, text, alignment);
    return alignment;
}

UINT WrapAndEllipsisFlags(const Grid& grid, const wchar_t* text, int length) noexcept
{
    UINT flags = HasOption(grid, OptionWordWrap) ? DT_WORDBREAK : 0;
    if (grid.Ellipsis == lorvNoEllipsis || std::find(text, text + length, L'\n') != text + length)
        return flags;
    return flags | (grid.Ellipsis == lorvEllipsisEnd ? DT_END_ELLIPSIS : DT_PATH_ELLIPSIS);
}

int DrawCellText(Grid& grid, HDC dc, const wchar_t* text, const RECT& rectangle, int alignment, int style,
                 bool parenColumn)
{
    if (!text || !*text || IsRectEmpty(&rectangle))
        return 0;
    TextRun run = {dc, text, LengthForDrawing(text), rectangle, alignment, 0, false, {}};
    run.Flags = FlagsOf(grid, run);
    if ((grid.PaintMode & PaintPrinting) && IsRightAligned(alignment) &&
        FirstLineWidth(run) < rectangle.right - rectangle.left)
        run.Flags |= DT_NOCLIP;
    Measure(run);
    RECT at = DrawRectOf(run);
    if (parenColumn && IsRightAligned(alignment) && EndsInDigit(run))
        at.right -= WidthOfParenthesis(dc);
    DrawStyled(run, at, style);
    return run.Size.cx;
}
