#include "edit/combo_editor.h"

#include "core/value_format.h"
#include "edit/cell_editor.h"
#include "edit/combo_list.h"
#include "edit/combo_search.h"
#include "edit/combo_window.h"
#include "edit/list_text.h"
#include "edit/mask.h"
#include "platform/gdi.h"
#include "platform/window_text.h"

#include <algorithm>

namespace
{
constexpr int ButtonClearance = 5; // room for text beside the button
constexpr int DropRoom = 200;      // the window's height holds that of the open list
constexpr int EscapeKey = 27;
constexpr int FirstTypedKey = 33;
constexpr DWORD BareStyle = 0x56000000; // for a handler that takes every style away
constexpr LONG BaseStyle = WS_CHILD | WS_VSCROLL | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;
static_assert(BaseStyle == 0x40200210);

bool TakesFreeText(const Grid& grid) noexcept
{
    return (grid.EditorList.ComboBits & ComboEditableList) != 0;
}

LRESULT Send(const Grid& grid, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendMessageW(grid.ComboWindow, message, wParam, lParam);
}

RECT ComboRect(Grid& grid)
{
    RECT area = CellRect(grid, grid.EditRow, grid.EditCol);
    area.right = std::max<LONG>(area.right, area.left + ButtonClearance + GetSystemMetrics(SM_CXHSCROLL));
    InflateRect(&area, 1, 1);
    int tree = EditorTreeIndent(grid, grid.EditRow, grid.EditCol);
    if (HasOption(grid, OptionRightToLeft))
        area.right -= tree;
    else
        area.left += tree;
    return area;
}

void ForgetLastEdit(Grid& grid, const wchar_t* list) noexcept
{
    constexpr int cleared = ComboLastKeyWasBackspace | ComboFreeText | ComboEditableList;
    uint8_t& bits = grid.EditorList.ComboBits;
    bits &= static_cast<uint8_t>(~cleared);
    if (IsEditableList(list))
        bits |= ComboEditableList;
    CompileMask(nullptr);
    EndComboSearch();
}

// Asks SetupEditStyle and makes the window. False when there is none or the cell has gone meanwhile.
bool CreateCombo(Grid& grid, const wchar_t* list, HFONT font)
{
    ForgetLastEdit(grid, list);
    LONG style = BaseStyle | (TakesFreeText(grid) ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST);
    LONG styleEx = 0;
    event::SetupEditStyle(grid, grid.EditRow, grid.EditCol, true, style, styleEx);
    if (grid.Closing || !grid.Window || !IsCell(grid, grid.EditRow, grid.EditCol) ||
        grid.ActiveEditor != EditorCombo || IsShown(grid.ComboWindow))
        return false;
    HWND window =
        CMyCombo::Create(grid, style ? static_cast<DWORD>(style) : BareStyle, static_cast<DWORD>(styleEx));
    for (HWND part : {window, grid.ComboEditBox})
        if (part)
            SendMessageW(part, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return window != nullptr;
}

// A list that is not being drawn takes many items without counting its pages after each.
class QuietList
{
public:
    explicit QuietList(HWND comboBox) noexcept
    {
        COMBOBOXINFO info = {};
        info.cbSize = sizeof(info);
        if (GetComboBoxInfo(comboBox, &info))
            list_ = info.hwndList;
        Draw(FALSE);
    }
    QuietList(const QuietList&) = delete;
    QuietList& operator=(const QuietList&) = delete;
    ~QuietList() { Draw(TRUE); }

private:
    void Draw(WPARAM on) const noexcept
    {
        if (list_)
            SendMessageW(list_, WM_SETREDRAW, on, 0);
    }
    HWND list_ = nullptr;
};

// A context in memory measures as that of the window does.
void LoadList(Grid& grid, const wchar_t* list, HFONT font)
{
    HDC dc = CreateCompatibleDC(nullptr);
    {
        QuietList quiet(grid.ComboWindow);
        SelectedObject selected(dc, font);
        ParseComboList(grid.EditorList, list, dc, grid.ComboWindow);
    }
    DeleteDC(dc);
}

// The frame around the text of the selected item.
int FieldFrame() noexcept
{
    static const int frame = LOBYTE(LOWORD(GetVersion())) == 3 ? 1 : 5;
    return frame;
}

// A mask takes the place of the limit.
void ApplyMaskOrLimit(Grid& grid)
{
    if (CompileCellMask(grid) != 0)
        ApplyMaskToCombo(grid, false);
    else if (grid.EditMaxLength > 0)
        Send(grid, CB_LIMITTEXT, static_cast<WPARAM>(grid.EditMaxLength));
}

int FindItem(const Grid& grid, UINT message, const wchar_t* text)
{
    return static_cast<int>(Send(grid, message, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text)));
}

// An item that the text begins only stands for it where nothing else can be typed.
void LoadText(Grid& grid)
{
    Bstr shown(GetDisplayText(grid, grid.EditRow, grid.EditCol));
    if (!shown.Get() || !grid.ComboWindow)
        return;
    auto text = reinterpret_cast<LPARAM>(shown.Text());
    int exact = FindItem(grid, CB_FINDSTRINGEXACT, shown.Text());
    int item = exact >= 0 ? exact : FindItem(grid, CB_FINDSTRING, shown.Text());
    bool selected = item >= 0 && Send(grid, CB_SELECTSTRING, static_cast<WPARAM>(item - 1), text) >= 0;
    if (!selected) {
        SetWindowTextW(grid.ComboWindow, shown.Text());
        int end = GetWindowTextLengthW(grid.ComboWindow);
        Send(grid, CB_SETEDITSEL, 0, MAKELPARAM(end, end));
    }
    if (TakesFreeText(grid) && exact < 0)
        SetWindowTextW(grid.ComboWindow, shown.Text());
}

void SelectForTyping(const Grid& grid)
{
    Send(grid, CB_SETEDITSEL, 0, MAKELPARAM(MaskFirstInput(), -1));
}

// A box that gets the focus selects all of its text, but a typed character goes behind the literals that its
// mask begins with.
void TakeFocus(const Grid& grid, HWND window, int key)
{
    SetFocus(window);
    if (key >= FirstTypedKey && grid.ComboWindow == window)
        SelectForTyping(grid);
}

void PostTypedKey(const Grid& grid, int key)
{
    HWND target = grid.ComboEditBox ? grid.ComboEditBox : grid.ComboWindow;
    if (target)
        PostMessageW(target, WM_CHAR, static_cast<WPARAM>(key), 0);
}

// Whether the handlers have left the edit open: one that pumps messages can end it or begin another.
bool IsEditing(const Grid& grid, HWND window) noexcept
{
    return !grid.Closing && grid.ActiveEditor == EditorCombo && grid.ComboWindow == window &&
           IsWindow(window);
}

bool DropsAtOnce(int key) noexcept
{
    return key == EditByMouse || key == EscapeKey || key == EditPlain;
}

bool IsDropped(const Grid& grid)
{
    return Send(grid, CB_GETDROPPEDSTATE) != 0;
}

// Taking the list back can change the item.
void KeepTextOverClosing(Grid& grid)
{
    if (int item = static_cast<int>(Send(grid, CB_GETCURSEL)); item >= 0) {
        Send(grid, CB_SETCURSEL, static_cast<WPARAM>(item));
        return;
    }
    HWND window = grid.ComboWindow;
    Bstr text = WindowText(window);
    Send(grid, CB_SHOWDROPDOWN, FALSE);
    if (grid.ComboWindow != window)
        return;
    SetWindowTextW(window, text.Text());
    grid.EditorList.ComboBits |= ComboFreeText;
}

// A handler that is done with the edit ends it as Enter does.
void OnCloseUp(Grid& grid)
{
    HWND window = grid.ComboWindow;
    VARIANT_BOOL finishEdit = VARIANT_FALSE;
    event::ComboCloseUp(grid, grid.EditRow, grid.EditCol, finishEdit);
    if (finishEdit && IsEditing(grid, window))
        PostMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
}

void PostChange(const Grid& grid)
{
    MSG queued;
    if (!PeekMessageW(&queued, grid.ComboWindow, MessageComboChanged, MessageComboChanged, PM_NOREMOVE))
        PostMessageW(grid.ComboWindow, MessageComboChanged, 0, 0);
}
} // namespace

bool OpenComboEditor(Grid& grid, int key)
{
    KeepAlive alive(grid);
    Bstr list(ListOfCell(grid, grid.EditCol));
    grid.EditRect = ComboRect(grid);
    if (!CreateCombo(grid, list.Text(), FontOfCell(grid, grid.EditRow, grid.EditCol)))
        return false;
    HWND window = grid.ComboWindow;
    LoadList(grid, list.Text(), FontOfCell(grid, grid.EditRow, grid.EditCol));
    PlaceComboWindow(grid);
    ApplyMaskOrLimit(grid);
    LoadText(grid);
    if (key >= FirstTypedKey && IsEditing(grid, window)) {
        SelectForTyping(grid);
        PostTypedKey(grid, key);
    }
    event::SetupEditWindow(grid, grid.EditRow, grid.EditCol, window, true);
    if (!IsEditing(grid, window))
        return false;
    ShowWindow(window, SW_SHOW);
    TakeFocus(grid, window, key);
    if (DropsAtOnce(key) && IsEditing(grid, window))
        Send(grid, CB_SHOWDROPDOWN, TRUE);
    grid.EditCancel = VARIANT_FALSE;
    return true;
}

void PlaceComboWindow(Grid& grid)
{
    HWND window = grid.ComboWindow;
    if (!window)
        return;
    const RECT area = grid.EditRect;
    const int width = area.right - area.left, height = area.bottom - area.top;
    const ComboListState& list = grid.EditorList;
    MoveWindow(window, area.left, area.top, width, height + DropRoom, TRUE);
    int listWidth = std::max(list.TotalWidth + 2 + GetSystemMetrics(SM_CXVSCROLL), width);
    Send(grid, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(listWidth));
    Send(grid, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(height - FieldFrame(), 1));
    if (HWND inner = grid.ComboEditBox) {
        RECT field = {};
        GetWindowRect(inner, &field);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&field), 2);
        InflateRect(&field, 1, 1);
        MoveWindow(inner, field.left, field.top, field.right - field.left, field.bottom - field.top, TRUE);
    }
    Send(grid, CB_SETITEMHEIGHT, 0, list.ItemHeight);
}

void SettleComboEdit(Grid& grid)
{
    HWND window = grid.ComboWindow;
    if (!window || !IsShown(window))
        return;
    if (IsDropped(grid)) {
        if (EditGuard guard(TheEditGuards().CloseUpGuard); guard) {
            VARIANT_BOOL finishEdit = VARIANT_TRUE;
            event::ComboCloseUp(grid, grid.EditRow, grid.EditCol, finishEdit);
        }
    }
    // Twice, since the first time takes the list back.
    for (int time = 0; time < 2 && TakesFreeText(grid) && IsEditing(grid, window); ++time)
        KeepTextOverClosing(grid);
}

const wchar_t* ComboKeyToStore(const Grid& grid)
{
    const wchar_t* list = IsCol(grid, grid.EditCol) ? grid.ColTable[grid.EditCol].ColComboList : nullptr;
    if (!list || !*list)
        return nullptr;
    return ComboKeyOf(grid.EditorList, ComboIndexOf(grid));
}

void OnComboCommand(Grid& grid, int notification)
{
    if (grid.ActiveEditor != EditorCombo || !IsShown(grid.ComboWindow))
        return;
    KeepAlive alive(grid);
    switch (notification) {
    case CBN_SELCHANGE:
    case CBN_EDITUPDATE:
        return ApplyMaskToCombo(grid, true);
    case CBN_SELENDOK:
        return PostChange(grid);
    case CBN_DROPDOWN:
        ShowEditedCell(grid);
        return event::ComboDropDown(grid, grid.EditRow, grid.EditCol);
    case CBN_CLOSEUP:
        return OnCloseUp(grid);
    default:
        return;
    }
}

int ComboCountOf(const Grid& grid) noexcept
{
    return grid.ComboWindow ? static_cast<int>(Send(grid, CB_GETCOUNT)) : -1;
}

int ComboIndexOf(const Grid& grid) noexcept
{
    if (!grid.ComboWindow || (grid.EditorList.ComboBits & ComboFreeText))
        return -1;
    return static_cast<int>(Send(grid, CB_GETCURSEL));
}

// An open list shows the new item when it drops again.
void SelectComboItem(Grid& grid, int item)
{
    KeepAlive alive(grid);
    HWND window = grid.ComboWindow;
    bool dropped = IsDropped(grid);
    if (dropped)
        Send(grid, CB_SHOWDROPDOWN, FALSE);
    if (grid.ComboWindow != window)
        return;
    Send(grid, CB_SETCURSEL, static_cast<WPARAM>(item));
    if (dropped)
        Send(grid, CB_SHOWDROPDOWN, TRUE);
}

Bstr ComboItemText(HWND comboBox, int item)
{
    Bstr text;
    auto index = static_cast<WPARAM>(item);
    LRESULT length = SendMessageW(comboBox, CB_GETLBTEXTLEN, index, 0);
    if (item < 0 || length < 0)
        return text;
    BSTR buffer = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (buffer && SendMessageW(comboBox, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(buffer)) < 0)
        buffer[0] = 0;
    *text.Put() = buffer;
    return text;
}

void DropStaleComboWindow(Grid& grid)
{
    if (grid.ActiveEditor != EditorCombo)
        ReleaseEditorList(grid);
}

void ReleaseEditorList(Grid& grid)
{
    ClearComboList(grid.EditorList, grid.ComboWindow);
    CMyCombo::Destroy(grid);
}
