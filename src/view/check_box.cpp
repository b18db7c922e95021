#include "view/check_box.h"

#include "core/check_state.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "view/cell_text.h"
#include "view/metrics.h"
#include "view/picture.h"
#include "view/resources.h"
#include "view/theme.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr int BoxSide = 10; // pixels at 96 dpi
constexpr int TextMargin = 4;

int BoxAlignment(const Grid& grid, int row, int col) noexcept
{
    const CellFormat* format = FormatForPaint(grid, row, col);
    if (format && format->PictureAlignment != Unset)
        return format->PictureAlignment;
    return IsBooleanCell(grid, row, col) && col >= grid.FixedCols ? lorvPicAlignCenterCenter
                                                                  : lorvPicAlignLeftCenter;
}

bool IsLeft(int alignment) noexcept
{
    return alignment >= lorvPicAlignLeftTop && alignment <= lorvPicAlignLeftBottom;
}
bool IsRight(int alignment) noexcept
{
    return alignment >= lorvPicAlignRightTop && alignment <= lorvPicAlignRightBottom;
}

void PlaceAcross(RECT& box, const RECT& cell, int alignment, int side, int offset) noexcept
{
    if (IsLeft(alignment)) {
        box.left = cell.left + offset;
        box.right = box.left + side + 1;
    } else if (IsRight(alignment)) {
        box.right = cell.right - offset;
        box.left = box.right - side - 1;
    } else {
        int centre = (cell.left + cell.right) / 2;
        box.left = centre - side / 2 - 1;
        box.right = centre + side / 2;
    }
}

// At the top or bottom the box keeps a margin, if the cell is high enough for one.
void PlaceDown(RECT& box, const RECT& cell, int alignment) noexcept
{
    int shift = (cell.bottom - cell.top - (box.bottom - box.top)) / 2 - TextMargin;
    if (shift < 1 || alignment > lorvPicAlignRightBottom || alignment % 3 == 1)
        return;
    OffsetRect(&box, 0, alignment % 3 == 0 ? -shift : shift);
}

// By CellCheckedSettings: the state of the theme's part, of the classic control, and our own picture.
struct BoxLook {
    int ThemeState;
    UINT FrameState;
    CheckImage Image;
};
constexpr BoxLook BoxLooks[] = {
    {1, 0, CheckImage::Unchecked},
    {5, DFCS_CHECKED, CheckImage::Checked},
    {1, 0, CheckImage::Unchecked},
    {5, DFCS_CHECKED, CheckImage::Checked},
    {1, 0, CheckImage::Unchecked},
    {9, DFCS_CHECKED | DFCS_BUTTON3STATE, CheckImage::Grayed},
    {8, DFCS_CHECKED, CheckImage::DisabledChecked},
    {4, 0, CheckImage::DisabledUnchecked},
};

void DrawThemedBox(Grid& grid, HDC dc, RECT box, const BoxLook& look) noexcept
{
    InflateRect(&box, 1, 1);
    if (HANDLE theme = ThemeOf(grid, ThemeClass::Button))
        DrawThemePart(grid, theme, dc, CheckBoxPart, look.ThemeState, box);
    else
        DrawFrameControl(dc, &box, DFC_BUTTON, DFCS_FLAT | look.FrameState);
}

void DrawClassicBox(HDC dc, const RECT& box, const BoxLook& look) noexcept
{
    HDC source = CreateCompatibleDC(dc);
    if (!source)
        return;
    {
        SelectedObject selected(source, CheckBoxBitmap(look.Image));
        StretchBits(dc, box, source, {CheckBoxSide(), CheckBoxSide()});
    }
    DeleteDC(source);
}
} // namespace

RECT CheckBoxRect(Grid& grid, int row, int col, const RECT* cell)
{
    RECT area = cell ? *cell : CellRect(grid, row, col);
    int tree = std::max(0, TreeIndent(grid, row, col) - TextMargin);
    (HasOption(grid, OptionRightToLeft) ? area.right : area.left) +=
        HasOption(grid, OptionRightToLeft) ? -tree : tree;
    int side = DpiScale(BoxSide);
    int centre = (area.top + area.bottom) / 2;
    int alignment = BoxAlignment(grid, row, col);
    RECT box = {0, centre - side / 2 - 1, 0, centre + side / 2};
    PlaceAcross(box, area, alignment, side, grid.ColTable[col].Indent + TextMargin);
    PlaceDown(box, area, alignment);
    return box;
}

void DrawCheckBox(Grid& grid, HDC dc, const PaintedCell& cell)
{
    int row = cell.ContentRow(), col = cell.ContentCol();
    int state = CheckStateOf(grid, row, col);
    if (state <= lorvNoCheckbox || state >= static_cast<int>(std::size(BoxLooks)) ||
        !IsCell(grid, row, col) || grid.ColTable[col].ColFormat)
        return;
    RECT box = CheckBoxRect(grid, row, col, &cell.Area), shared;
    if (!IntersectRect(&shared, &box, &cell.Area))
        return;
    if (IsThemed(grid))
        DrawThemedBox(grid, dc, box, BoxLooks[state]);
    else
        DrawClassicBox(dc, box, BoxLooks[state]);
}
