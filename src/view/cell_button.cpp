#include "view/cell_button.h"

#include "core/events.h"
#include "view/cell_text.h"
#include "view/picture.h"
#include "view/theme.h"

#include <algorithm>
#include <cwchar>

namespace
{
constexpr int PendingEdit = 666; // the editor state in which a button stays pressed in
constexpr wchar_t Dots[] = L"...";
constexpr UINT DotsFlags = DT_CENTER | DT_VCENTER | DT_EXPANDTABS | DT_NOPREFIX | DT_EDITCONTROL;

bool ShowsButton(const Grid& grid, const PaintedCell& cell, bool current, bool drawFocus) noexcept
{
    if (IsFixedCell(grid, cell.Row, cell.Col))
        return false;
    bool pending = grid.ActiveEditor == PendingEdit;
    switch (grid.ShowComboButton) {
    case lorvSBAlways:
        return true;
    case lorvSBFocus:
        return drawFocus || (current && pending);
    default:
        return drawFocus && pending;
    }
}

// Lets a handler set the list for this cell, without a repaint of what is being painted. True: no button.
bool IsEditRefused(Grid& grid, int row, int col)
{
    int redraw = grid.Redraw;
    grid.Redraw = lorvRDNone;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    event::BeforeEdit(grid, row, col, cancel);
    grid.Redraw = redraw;
    return cancel != VARIANT_FALSE;
}

void DrawDots(const Grid& grid, HDC dc, const RECT& button) noexcept
{
    if (IsRectEmpty(&button))
        return;
    UINT flags = DotsFlags | WrapAndEllipsisFlags(grid, Dots, 3);
    RECT area = button;
    DrawTextW(dc, Dots, 3, &area, flags | DT_CALCRECT);
    int height = std::min(area.bottom - area.top, button.bottom - button.top);
    area = button;
    area.top = (button.top + button.bottom - height) / 2;
    area.bottom = area.top + height;
    DrawTextW(dc, Dots, 3, &area, flags);
}

void DrawDotsButton(Grid& grid, HDC dc, const RECT& button)
{
    DrawThemeButton(grid, dc, button);
    if (grid.CellButtonPicture)
        DrawPicture(grid, dc, grid.CellButtonPicture, lorvPicAlignCenterCenter, button);
    else
        DrawDots(grid, dc, button);
}

void DrawDropButton(Grid& grid, HDC dc, RECT button)
{
    if (HANDLE theme = ThemeOf(grid, ThemeClass::ComboBox))
        DrawThemePart(grid, theme, dc, DropArrowPart, StateNormal, button);
    else
        DrawFrameControl(dc, &button, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
}
} // namespace

ButtonSource FindButton(Grid& grid, const PaintedCell& cell, bool current, bool drawFocus)
{
    if (grid.Editable == 0 || IsFixedCell(grid, grid.Row, grid.Col) || !IsCell(grid, cell.Row, cell.Col) ||
        !ShowsButton(grid, cell, current, drawFocus))
        return ButtonSource::None;
    if (grid.ShowComboButton != lorvSBAlways && grid.ActiveEditor == 0 &&
        IsEditRefused(grid, cell.Row, cell.Col))
        return ButtonSource::None;
    bool columnHasList = IsCol(grid, cell.Col) && *ButtonTextOf(grid, cell.Col, ButtonSource::Column);
    return columnHasList ? ButtonSource::Column : ButtonSource::WholeGrid;
}

const wchar_t* ButtonTextOf(const Grid& grid, int col, ButtonSource source) noexcept
{
    const wchar_t* text = nullptr;
    if (source == ButtonSource::Column && IsCol(grid, col))
        text = grid.ColTable[col].ColComboList;
    else if (source == ButtonSource::WholeGrid)
        text = grid.ComboList;
    return text ? text : L"";
}

bool IsEllipsisButton(const wchar_t* buttonText) noexcept
{
    return std::wcscmp(buttonText, L"...") == 0 || std::wcscmp(buttonText, L"|...") == 0;
}

void DrawCellButton(Grid& grid, HDC dc, const wchar_t* buttonText, RECT& cell, const RECT& textArea)
{
    int width = GetSystemMetrics(SM_CXHSCROLL);
    RECT button = {std::max(cell.left, cell.right - width), cell.top, cell.right, cell.bottom};
    if (HasOption(grid, OptionRightToLeft)) {
        button.left = textArea.right;
        button.right = button.left + width;
    }
    cell.right = button.left;
    if (IsEllipsisButton(buttonText))
        DrawDotsButton(grid, dc, button);
    else
        DrawDropButton(grid, dc, button);
}
