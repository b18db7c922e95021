#include "edit/text_editor.h"

#include "core/cell_store.h"
#include "core/value_format.h"
#include "edit/cell_editor.h"
#include "edit/mask.h"
#include "platform/bstr.h"
#include "platform/gdi.h"
#include "platform/window_text.h"
#include "view/cell_text.h"
#include "view/editor_place.h"

#include <algorithm>

namespace
{
constexpr int RowPadding = 4;      // what DefaultRowHeight adds to the height of the text
constexpr int ButtonClearance = 3; // a cell narrower than the button and this leaves it no room
constexpr int EscapeKey = 27;
constexpr int FirstTypedKey = 33;
constexpr DWORD BareStyle = 0x56000000; // for a handler that takes every style away

int TextHeightOf(Grid& grid, int row, int col)
{
    const CellFormat* format = CellFormatOf(grid, row, col);
    if (!format || !format->Font)
        return grid.DefaultRowHeight - RowPadding;
    HDC dc = GetDC(grid.Window);
    SIZE size = {};
    {
        SelectedObject selected(dc, format->Font);
        GetTextExtentPoint32W(dc, L"Hj", 2, &size);
    }
    ReleaseDC(grid.Window, dc);
    return size.cy;
}

RECT TextEditorRect(Grid& grid, int row, int col, bool hasButton)
{
    RECT area = InsideGridLines(grid, CellRect(grid, row, col));
    int tree = EditorTreeIndent(grid, row, col);
    if (HasOption(grid, OptionRightToLeft))
        area.right -= tree;
    else
        area.left += tree;
    int height = TextHeightOf(grid, row, col);
    if (area.bottom - area.top < height)
        area.bottom = area.top + height - 1;
    int button = GetSystemMetrics(SM_CXHSCROLL);
    if (hasButton && area.right - area.left > button + ButtonClearance)
        area.right -= button;
    return area;
}

// A number is edited as it is stored, everything else as it is shown.
Bstr TextToEdit(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    if (text && IsNumericText(text))
        return Bstr(text);
    return Bstr(GetDisplayText(grid, row, col));
}

// An empty cell stands as its text will: it is not drawn at the left for want of one.
int AlignmentOf(Grid& grid, int row, int col)
{
    Bstr text = TextToEdit(grid, row, col);
    if (!IsCell(grid, row, col))
        return 0;
    const wchar_t* aligned = *text.Text() ? text.Text() : L" ";
    return EffectiveAlignment(grid, aligned, row, col, CellFormatOf(grid, row, col));
}

LONG AlignmentStyle(const Grid& grid, int alignment) noexcept
{
    if (HasOption(grid, OptionRightToLeft) || IsLeftAligned(alignment))
        return 0;
    return IsCenterAligned(alignment) ? ES_CENTER : ES_RIGHT;
}

int IndentOf(const Grid& grid, int col) noexcept
{
    return grid.ColTable[col].Indent + TextMarginX;
}

void SetMargins(const Grid& grid, HWND window, int alignment, int col) noexcept
{
    constexpr WPARAM both = EC_LEFTMARGIN | EC_RIGHTMARGIN;
    SendMessageW(window, EM_SETMARGINS, both, 0);
    if ((grid.Flags & lorvCFNoEditIndent) || IsCenterAligned(alignment))
        return;
    int left = IndentOf(grid, col), right = TextMarginX;
    if (IsRightAligned(alignment))
        std::swap(left, right);
    SendMessageW(window, EM_SETMARGINS, both, MAKELPARAM(left, right));
}

// Asks SetupEditStyle and makes the window. False when there is none or the cell has gone meanwhile.
bool CreateEditor(Grid& grid, int alignment)
{
    constexpr LONG base = WS_CHILD | ES_MULTILINE | ES_AUTOVSCROLL | ES_NOHIDESEL;
    static_assert(base == 0x40000144);
    LONG style = HasOption(grid, OptionWordWrap) ? base : base | ES_AUTOHSCROLL, styleEx = 0;
    CompileMask(nullptr);
    if (!(grid.Flags & lorvCFNoEditIndent))
        style |= AlignmentStyle(grid, alignment);
    event::SetupEditStyle(grid, grid.EditRow, grid.EditCol, false, style, styleEx);
    int row = grid.EditRow, col = grid.EditCol;
    if (grid.Closing || !grid.Window || !IsCell(grid, row, col) || grid.ActiveEditor != EditorText ||
        IsShown(grid.EditBoxWindow))
        return false;
    HWND window =
        CMyEdit::Create(grid, style ? static_cast<DWORD>(style) : BareStyle, static_cast<DWORD>(styleEx));
    if (!window)
        return false;
    SetMargins(grid, window, alignment, col);
    SendMessageW(window, EM_SETLIMITTEXT, 0, 0);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(FontOfCell(grid, row, col)), FALSE);
    const RECT& area = grid.EditRect;
    MoveWindow(window, area.left, area.top, area.right - area.left, area.bottom - area.top, FALSE);
    return true;
}

// Whether the handlers have left the edit open: one that pumps messages can end it or begin another.
bool IsEditing(const Grid& grid, HWND window) noexcept
{
    return !grid.Closing && grid.ActiveEditor == EditorText && grid.EditBoxWindow == window &&
           IsWindow(window);
}

void LoadText(Grid& grid, HWND window, int alignment)
{
    SetWindowTextW(window, TextToEdit(grid, grid.EditRow, grid.EditCol).Text());
    LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    LONG_PTR aligned = style | AlignmentStyle(grid, alignment);
    if (aligned != style)
        SetWindowLongPtrW(window, GWL_STYLE, aligned);
}

// A mask takes the place of the limit.
void ApplyMaskOrLimit(Grid& grid, HWND window)
{
    if (CompileCellMask(grid) != 0)
        ApplyMaskAndNotify(grid, false);
    else if (grid.EditMaxLength > 0)
        SendMessageW(window, EM_SETLIMITTEXT, static_cast<WPARAM>(grid.EditMaxLength), 0);
}

void Select(HWND window, int start, int end) noexcept
{
    SendMessageW(window, EM_SETSEL, static_cast<WPARAM>(start), end);
}

void PutCaretUnderMouse(const Grid& grid, HWND window) noexcept
{
    POINT point = {};
    RECT client = {};
    GetCursorPos(&point);
    ScreenToClient(window, &point);
    GetClientRect(window, &client);
    if (!PtInRect(&client, point) || !IsCol(grid, grid.EditCol))
        return Select(window, 0, -1);
    int x = std::max<int>(0, point.x - IndentOf(grid, grid.EditCol));
    int at = LOWORD(SendMessageW(window, EM_CHARFROMPOS, 0, MAKELPARAM(x, point.y)));
    Select(window, at, at);
}

// A typed character takes the place of the text: it comes as a message, once the text is selected.
void PlaceCaret(const Grid& grid, HWND window, int key) noexcept
{
    int length = GetWindowTextLengthW(window);
    if (key == EditByMouse)
        return PutCaretUnderMouse(grid, window);
    if (key == EditSelectAll)
        return Select(window, 0, -1);
    if (key < FirstTypedKey)
        return Select(window, length, length);
    Select(window, MaskFirstInput(), length);
    PostMessageW(window, WM_CHAR, static_cast<WPARAM>(key), 0);
}
} // namespace

bool OpenTextEditor(Grid& grid, int key, bool hasButton)
{
    if (key == EscapeKey)
        return false;
    int alignment = AlignmentOf(grid, grid.EditRow, grid.EditCol);
    if (!IsCell(grid, grid.EditRow, grid.EditCol))
        return false;
    grid.EditRect = TextEditorRect(grid, grid.EditRow, grid.EditCol, hasButton);
    if (!CreateEditor(grid, alignment))
        return false;
    HWND window = grid.EditBoxWindow;
    grid.LastKeyWasBackspace = false;
    LoadText(grid, window, alignment);
    ApplyMaskOrLimit(grid, window);
    if (!IsEditing(grid, window))
        return false;
    PlaceCaret(grid, window, key);
    event::SetupEditWindow(grid, grid.EditRow, grid.EditCol, window, false);
    if (!IsEditing(grid, window))
        return false;
    ShowWindow(window, SW_SHOW);
    SetFocus(window);
    PostMessageW(window, EM_SCROLLCARET, 0, 0);
    grid.EditCancel = VARIANT_FALSE;
    return true;
}
