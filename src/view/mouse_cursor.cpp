#include "view/mouse_cursor.h"

#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "view/mouse.h"
#include "view/resources.h"

namespace
{
struct SystemPointer {
    int Pointer;
    WORD Resource; // of the system, as MAKEINTRESOURCE takes it
};
constexpr SystemPointer systemPointers[] = {
    {lorvArrow, 32512},   {lorvCross, 32515},          {lorvIBeam, 32513},         {lorvIcon, 32641},
    {lorvSize, 32646},    {lorvSizeNESW, 32643},       {lorvSizeNS, 32645},        {lorvSizeNWSE, 32642},
    {lorvSizeEW, 32644},  {lorvUpArrow, 32516},        {lorvHourglass, 32514},     {lorvNoDrop, 32648},
    {lorvSizeAll, 32646}, {lorvArrowHourGlass, 32650}, {lorvArrowQuestion, 32651},
};

struct OwnPointer {
    int Pointer;
    GridCursor Cursor;
};
constexpr OwnPointer ownPointers[] = {
    {lorvPointerCopy, GridCursor::Copy},   {lorvPointerMove, GridCursor::Move},
    {lorvSizeHorz, GridCursor::ResizeCol}, {lorvSizeVert, GridCursor::ResizeRow},
    {lorvHand, GridCursor::Hand},
};

HCURSOR HostCursor(const Grid& grid)
{
    auto picture = QueryFor<IPicture>(grid.MouseIcon, IID_IPicture);
    OLE_HANDLE handle = 0;
    if (!picture || FAILED(picture->get_Handle(&handle)))
        return nullptr;
    return reinterpret_cast<HCURSOR>(static_cast<LONG_PTR>(static_cast<int>(handle)));
}

HCURSOR CursorOf(const Grid& grid)
{
    for (const SystemPointer& each : systemPointers)
        if (each.Pointer == grid.MousePointer)
            return LoadCursorW(nullptr, MAKEINTRESOURCEW(each.Resource));
    for (const OwnPointer& each : ownPointers)
        if (each.Pointer == grid.MousePointer)
            return GridCursorOf(each.Cursor);
    return grid.MousePointer == lorvCustom ? HostCursor(grid) : nullptr;
}

// Asks the window as the system does when the mouse moves, so that a new pointer shows while it rests.
void RefreshMouseCursor(Grid& grid)
{
    HWND window = grid.Window;
    POINT at = {};
    if (!window || !GetCursorPos(&at))
        return;
    LRESULT hit = SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    if (IsWindow(window))
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(hit, WM_MOUSEMOVE));
}
} // namespace

bool OnSetCursor(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (reinterpret_cast<HWND>(wParam) != grid.Window || LOWORD(lParam) != HTCLIENT || IsDesignMode(grid))
        return false;
    HCURSOR cursor = CursorOf(grid);
    if (!cursor)
        return false;
    SetCursor(cursor);
    result = TRUE;
    return true;
}

void SetMousePointer(Grid& grid, int pointer)
{
    KeepAlive alive(grid);
    grid.MousePointer = static_cast<int16_t>(pointer);
    RefreshMouseCursor(grid);
    MarkDirtyAndNotify(grid, DISPID_MOUSEPOINTER);
}
