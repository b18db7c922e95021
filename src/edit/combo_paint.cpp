// The items of the drop-down, which the grid draws itself.

#include "core/cell_store.h"
#include "core/property_frame.h"
#include "edit/cell_editor.h"
#include "edit/combo_editor.h"
#include "edit/combo_list.h"
#include "edit/list_text.h"
#include "platform/gdi.h"
#include "platform/window_text.h"
#include "view/cell_text.h"
#include "view/drawing_objects.h"

#include <algorithm>

namespace
{
constexpr int TextInset = 4; // pixels at each side of a text
constexpr UINT DrawActions = ODA_DRAWENTIRE | ODA_SELECT | ODA_FOCUS;

// On a single screen, a list that reaches past its right edge moves back in.
void KeepListOnScreen(HDC dc, HWND comboBox)
{
    HWND drawn = WindowFromDC(dc);
    if (GetSystemMetrics(SM_CMONITORS) >= 2 || !drawn || drawn == comboBox)
        return;
    RECT area = {};
    GetWindowRect(drawn, &area);
    int excess = area.right - GetSystemMetrics(SM_CXSCREEN);
    if (excess > 0)
        SetWindowPos(drawn, nullptr, area.left - excess, area.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

class ItemPainter
{
public:
    ItemPainter(Grid& grid, const DRAWITEMSTRUCT& item) noexcept
        : grid_(grid), item_(item), dc_(item.hDC), selected_((item.itemState & ODS_SELECTED) != 0)
    {
    }

    void Run()
    {
        FillBackground();
        if (item_.itemID == static_cast<UINT>(-1))
            return;
        SetBkMode(dc_, TRANSPARENT);
        // The box beside the list has the chosen text alone.
        if (item_.rcItem.left > 0 || grid_.EditorList.ColumnCount == 1)
            DrawText(ComboItemText(grid_.ComboWindow, static_cast<int>(item_.itemID)).Text(), item_.rcItem);
        else
            DrawColumns();
    }

private:
    void FillBackground()
    {
        LRESULT brush = 0;
        OnEditorColor(grid_, dc_, grid_.ComboWindow, brush);
        FillRect(dc_, &item_.rcItem, selected_ ? grid_.Drawing.Selection : reinterpret_cast<HBRUSH>(brush));
        SetTextColor(dc_, TranslatedColor(grid_, selected_ ? grid_.ForeColorSel : grid_.EditTextColor));
    }

    void DrawText(const wchar_t* text, const RECT& cell)
    {
        RECT area = {cell.left + TextInset, cell.top, cell.right - TextInset, cell.bottom};
        int alignment = HasOption(grid_, OptionRightToLeft) ? lorvAlignRightCenter : lorvAlignLeftCenter;
        DrawCellText(grid_, dc_, text, area, alignment, lorvTextFlat, false);
    }

    void DrawColumns()
    {
        Bstr text = ItemText();
        if (!text.Get())
            return;
        SelectedObject font(dc_, GridFontHandle(grid_));
        SelectedObject pen(dc_, grid_.Drawing.GridPen);
        const int columns = grid_.EditorList.ColumnCount;
        RECT cell = item_.rcItem;
        wchar_t* at = text.Get();
        for (int column = 0; at && column < columns; ++column) {
            wchar_t* tab = std::find(at, at + std::wcslen(at), L'\t');
            bool ends = *tab == 0;
            *tab = 0;
            cell.right = cell.left + grid_.EditorList.ColumnWidth[column];
            DrawColumn(column, at, cell);
            if (column + 1 < columns)
                DrawLine(cell);
            cell.left = cell.right;
            at = ends ? nullptr : tab + 1;
        }
    }

    Bstr ItemText() const
    {
        const wchar_t* list = grid_.EditorList.ListText;
        TextSpan span = list ? DrawnItemText(list, static_cast<int>(item_.itemID)) : TextSpan();
        Bstr text;
        if (span.Begin)
            *text.Put() = SysAllocStringLen(span.Begin, static_cast<UINT>(span.Length()));
        if (text.Get())
            RestoreBars(text.Get());
        return text;
    }

    void DrawColumn(int column, const wchar_t* text, RECT cell)
    {
        DrawText(text, cell);
        const ComboListState& list = grid_.EditorList;
        if (column != list.KeyColumn)
            return;
        if (list.KeyColumnBackColor && !selected_) {
            RECT filled = cell;
            if (column + 1 == list.ColumnCount)
                filled.right = MaxPixels;
            Brush brush(CreateSolidBrush(TranslatedColor(grid_, list.KeyColumnBackColor)));
            FillRect(dc_, &filled, brush.Get());
            DrawText(text, cell);
        }
        if (list.ComboBits & ComboBoldKeyColumn) {
            OffsetRect(&cell, 1, 0);
            DrawText(text, cell);
        }
    }

    void DrawLine(const RECT& cell)
    {
        MoveToEx(dc_, cell.right - 1, cell.top, nullptr);
        LineTo(dc_, cell.right - 1, cell.bottom);
    }

    Grid& grid_;
    const DRAWITEMSTRUCT& item_;
    HDC dc_;
    bool selected_;
};
} // namespace

bool OnEditorDrawItem(Grid& grid, const DRAWITEMSTRUCT& item)
{
    if (item.CtlID != EditorCombo || !IsShown(grid.ComboWindow) || !(item.itemAction & DrawActions))
        return false;
    KeepAlive alive(grid);
    HWND comboBox = grid.ComboWindow;
    KeepListOnScreen(item.hDC, comboBox);
    event::ComboItem told = {grid.EditCol, grid.EditRow, static_cast<int>(item.itemID),
                             static_cast<int>(item.itemAction), static_cast<int>(item.itemState)};
    if (event::ComboDrawItem(grid, told, item.hDC, item.rcItem))
        return true;
    if (!grid.Closing && grid.ComboWindow == comboBox && IsWindow(comboBox))
        ItemPainter(grid, item).Run();
    return true;
}
