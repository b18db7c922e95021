#include "view/focus.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "view/mouse.h"
#include "view/selection.h"

#include <utility>

namespace
{
ComPtr<IOleClientSite> ClientSite(Grid& grid)
{
    ComPtr<IOleClientSite> site;
    if (auto object = QueryFor<IOleObject>(grid.Outer, IID_IOleObject))
        object->GetClientSite(site.Put());
    return site;
}

void TellSite(IOleClientSite* site, bool hasFocus)
{
    if (auto control = QueryFor<IOleControlSite>(site, IID_IOleControlSite))
        control->OnFocus(hasFocus);
}

// A control that gets the focus becomes the host's active object.
void ActivateInHost(Grid& grid)
{
    if (!grid.InPlaceSite)
        return;
    auto object = QueryFor<IOleObject>(grid.Outer, IID_IOleObject);
    auto site = ClientSite(grid);
    if (object)
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, grid.Window, nullptr);
    TellSite(site.Get(), true);
}

void LeaveHost(Grid& grid)
{
    HWND focus = ::GetFocus();
    if (grid.InPlaceSite && !IsChild(grid.Window, focus))
        TellSite(ClientSite(grid).Get(), false);
}

void RepaintFocusChange(Grid& grid)
{
    if (grid.HighLight != lorvHighlightWithFocus)
        RepaintCell(grid, grid.Row, grid.Col);
    else if (grid.SelectionMode == lorvSelectionListBox)
        RepaintGrid(grid);
    else
        RepaintSelection(grid);
    RepaintSelectionHeaders(grid);
}

bool IsInside(HWND window, HWND other) noexcept
{
    return other && (other == window || IsChild(window, other));
}

// A drag over the rows of a list box that loses the focus takes effect.
void FinishListDrag(Grid& grid)
{
    if (!(grid.PaintMode & PaintListDragAdds))
        return;
    grid.PaintMode &= ~static_cast<uint32_t>(PaintListDragAdds);
    SetRowsSelected(grid, grid.Row, grid.RowSel, true, false);
    RepaintGrid(grid);
}

void ForgetSearchText(Grid& grid) noexcept
{
    if (grid.IsSearching)
        grid.SearchLength = 0;
}

// The editor keeps the keyboard while it is open.
void HandToEditor(const Grid& grid) noexcept
{
    HWND editor = grid.EditBoxWindow;
    if (editor && IsWindowVisible(editor) && ::GetFocus() != editor)
        ::SetFocus(editor);
}
} // namespace

bool OnSetFocus(Grid& grid, WPARAM, LPARAM, LRESULT&)
{
    int32_t redraw = std::exchange(grid.Redraw, static_cast<int32_t>(lorvRDNone));
    ActivateInHost(grid);
    grid.Redraw = redraw;
    RepaintFocusChange(grid);
    HandToEditor(grid);
    event::SetFocus(grid);
    return false;
}

bool OnKillFocus(Grid& grid, WPARAM wParam, LPARAM, LRESULT&)
{
    if (grid.ActiveEditor && !IsInside(grid.Window, reinterpret_cast<HWND>(wParam)))
        CommitEdit(grid);
    StopDragTimer(grid);
    if (DropMouseDrag(grid) && grid.Window)
        InvalidateRect(grid.Window, nullptr, TRUE);
    FinishListDrag(grid);
    ForgetSearchText(grid);
    RepaintFocusChange(grid);
    LeaveHost(grid);
    event::KillFocus(grid);
    return false;
}
