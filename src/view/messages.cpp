#include "view/messages.h"

#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "view/focus.h"
#include "view/keyboard.h"
#include "view/mouse.h"
#include "view/paint.h"
#include "view/scroll.h"
#include "view/size_box.h"
#include "view/theme.h"
#include "view/wheel.h"
#include "view/window_life.h"

namespace
{
bool OnPaint(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    PAINTSTRUCT paint = {};
    HWND window = grid.Window;
    HDC context = BeginPaint(window, &paint);
    if (!context)
        return true;
    RECT client = {};
    GetClientRect(window, &client);
    OnDraw(grid, {context, context, client});
    EndPaint(window, &paint);
    return true;
}

// The grid paints every pixel itself.
bool OnEraseBackground(Grid&, WPARAM, LPARAM, LRESULT& result)
{
    result = 1;
    return true;
}

bool OnSystemColors(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    SetOption(grid, OptionGdiStale, true);
    RepaintGrid(grid);
    return true;
}

bool OnPosChanged(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    auto* position = reinterpret_cast<const WINDOWPOS*>(lParam);
    if (position && position->flags & SWP_FRAMECHANGED)
        SetOption(grid, OptionGdiStale, true);
    return false;
}

bool IsReturnKey(LPARAM lParam) noexcept
{
    auto* message = reinterpret_cast<const MSG*>(lParam);
    return message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

// The Enter that opens the editor must not go to a dialog's default button.
bool OnGetDialogCode(Grid& grid, WPARAM, LPARAM lParam, LRESULT& result)
{
    bool wantsAll = grid.TabBehavior == lorvTabCells || (grid.Editable && IsReturnKey(lParam));
    result = wantsAll ? DLGC_WANTALLKEYS : DLGC_WANTARROWS | DLGC_WANTCHARS;
    return true;
}

bool OnCancelMode(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    DropMouseDrag(grid);
    return true;
}

bool OnMouseActivate(Grid&, WPARAM, LPARAM, LRESULT& result)
{
    result = MA_ACTIVATE;
    return true;
}

bool OnSize(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    RecalcDefaultRowHeight(grid);
    event::Resize(grid);
    return true;
}

bool OnThemeChanged(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    ThemeReopen(grid, grid.Window);
    return true;
}

bool OnPrintMessage(Grid&, WPARAM wParam, LPARAM, LRESULT& result)
{
    result = wParam ? PrintMessageSign : 0;
    return true;
}

bool OnIdentify(Grid& grid, WPARAM wParam, LPARAM, LRESULT& result)
{
    result = wParam == IdentifyVersion ? reinterpret_cast<LRESULT>(&grid) : 0;
    return true;
}

bool OnReserved(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return true;
}

// A handler of the scroll events that runs a message loop must not scroll again from in there. As every
// gesture, this is one for all grids of the process.
struct ScrollGuards {
    bool Vertical, Horizontal;
};
ScrollGuards scrollGuards;

void ScrollByMessage(Grid& grid, bool& guard, void (*scroll)(Grid&, int, int, bool), WPARAM wParam)
{
    if (guard)
        return;
    guard = true;
    scroll(grid, LOWORD(wParam), static_cast<short>(HIWORD(wParam)), false);
    guard = false;
}

void ScrollRows(Grid& grid, int code, int position, bool force)
{
    ScrollVertical(grid, code, position, force);
    UpdateScrollTip(grid, code);
}

bool OnVScroll(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    ScrollByMessage(grid, scrollGuards.Vertical, ScrollRows, wParam);
    return true;
}

bool OnHScroll(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    ScrollByMessage(grid, scrollGuards.Horizontal, ScrollHorizontal, wParam);
    return true;
}

bool OnGetObject(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    return AnswerAccessibilityRequest(grid, wParam, lParam, result);
}

bool OnReportSelection(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    FireSelectionEvents(grid);
    return true;
}

bool OnCommand(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    return OnEditorCommand(grid, LOWORD(wParam), HIWORD(wParam));
}

bool OnControlColor(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    return OnEditorColor(grid, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam), result);
}

bool OnDrawItem(Grid& grid, WPARAM, LPARAM lParam, LRESULT&)
{
    auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    return item && OnEditorDrawItem(grid, *item);
}

bool OnStartEdit(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    ReopenEditor(grid, wParam != 0);
    return true;
}

bool OnEditTextChanged(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    OnEditChanged(grid);
    return true;
}

constexpr struct {
    UINT Message;
    bool (*Handle)(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);
} messageMap[] = {
    {WM_PAINT, OnPaint},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_SETCURSOR, OnSetCursor},
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_SYSCOLORCHANGE, OnSystemColors},
    {WM_PALETTECHANGED, OnSystemColors},
    {WM_WINDOWPOSCHANGED, OnPosChanged},
    {WM_GETDLGCODE, OnGetDialogCode},
    {WM_CANCELMODE, OnCancelMode},
    {WM_CAPTURECHANGED, OnCaptureChanged},
    {WM_NCPAINT, OnFramePaint},
    {WM_LBUTTONDOWN, OnLeftButtonDown},
    {WM_LBUTTONUP, OnLeftButtonUp},
    {WM_MBUTTONDOWN, OnMiddleButtonDown},
    {WM_RBUTTONDOWN, OnRightButtonDown},
    {WM_MBUTTONUP, OnMiddleButtonUp},
    {WM_RBUTTONUP, OnRightButtonUp},
    {WM_LBUTTONDBLCLK, OnLeftDoubleClick},
    {WM_RBUTTONDBLCLK, OnRightDoubleClick},
    {WM_MOUSEACTIVATE, OnMouseActivate},
    {WM_MOUSELEAVE, OnMouseLeave},
    {WM_MOUSEWHEEL, OnMouseWheel},
    {WM_VSCROLL, OnVScroll},
    {WM_HSCROLL, OnHScroll},
    {WM_TIMER, OnDragTimer},
    {WM_SIZE, OnSize},
    {WM_CREATE, OnCreate},
    {WM_DESTROY, OnDestroy},
    {WM_KEYDOWN, OnKeyDown},
    {WM_KEYUP, OnKeyUp},
    {WM_SYSKEYDOWN, OnSysKeyDown},
    {WM_SYSKEYUP, OnSysKeyUp},
    {WM_CHAR, OnChar},
    {WM_COMMAND, OnCommand},
    {WM_CTLCOLOREDIT, OnControlColor},
    {WM_CTLCOLORLISTBOX, OnControlColor},
    {WM_CTLCOLORSTATIC, OnControlColor},
    {WM_DRAWITEM, OnDrawItem},
    {MessagePrint, OnPrintMessage},
    {MessageIdentify, OnIdentify},
    {MessageStartEdit, OnStartEdit},
    {MessageReserved, OnReserved},
    {MessageEditChanged, OnEditTextChanged},
    {MessageReportSelection, OnReportSelection},
    {MessageReserved2, OnReserved},
    {WM_IME_STARTCOMPOSITION, OnStartComposition},
    {WM_GETOBJECT, OnGetObject},
    {WM_THEMECHANGED, OnThemeChanged},
};
} // namespace

bool ProcessWindowMessage(Grid& grid, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    for (const auto& entry : messageMap)
        if (entry.Message == message)
            return entry.Handle(grid, wParam, lParam, result);
    return message == WheelMessage() && OnMouseWheel(grid, wParam, lParam, result);
}
