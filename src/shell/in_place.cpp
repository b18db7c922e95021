#include "shell/in_place.h"

#include "core/events.h"
#include "shell/control.h"
#include "shell/window.h"

#include <utility>

HRESULT InPlaceObject::Activate(LONG verb, LPCRECT position)
{
    KeepAlive alive(grid_);
    ComPtr<IOleClientSite> clientSite(ControlOf(grid_).Ole.ClientSite());
    if (!clientSite || (verb == OLEIVERB_UIACTIVATE && uiActive_))
        return S_OK;
    if (HRESULT result = EnterSite(); FAILED(result))
        return result;
    Place place;
    if (HRESULT result = AskPlace(place); FAILED(result))
        return result;
    if (position)
        place.Position = *position;
    if (HRESULT result = ShowWindowAt(place.Position); FAILED(result))
        return result;
    SetObjectRects(&place.Position, &place.Clip);
    if (verb == OLEIVERB_UIACTIVATE && grid_.InPlaceSite)
        if (HRESULT result = ActivateInterface(place); FAILED(result))
            return result;
    clientSite->ShowObject();
    return S_OK;
}

// Asks the site whether the control may be active in it, and tells it so. Once, until the deactivation.
HRESULT InPlaceObject::EnterSite()
{
    if (grid_.InPlaceSite)
        return S_OK;
    auto site = QueryFor<IOleInPlaceSite>(ControlOf(grid_).Ole.ClientSite(), IID_IOleInPlaceSite);
    if (!site)
        return E_FAIL;
    if (HRESULT result = site->CanInPlaceActivate(); result != S_OK)
        return SUCCEEDED(result) ? E_FAIL : result;
    auto extended = QueryFor<IOleInPlaceSiteEx>(site.Get(), IID_IOleInPlaceSiteEx);
    BOOL keepsPicture = FALSE;
    HRESULT result = extended ? extended->OnInPlaceActivateEx(&keepsPicture, 0) : site->OnInPlaceActivate();
    if (FAILED(result))
        return result;
    ReplaceReference(grid_.InPlaceSite, site.Get());
    return S_OK;
}

HRESULT InPlaceObject::AskPlace(Place& place) const
{
    OLEINPLACEFRAMEINFO info = {sizeof(info), FALSE, nullptr, nullptr, 0};
    ComPtr<IOleInPlaceSite> site(grid_.InPlaceSite);
    return site ? site->GetWindowContext(place.Frame.Put(), place.Document.Put(), &place.Position,
                                         &place.Clip, &info)
                : E_UNEXPECTED;
}

HRESULT InPlaceObject::ShowWindowAt(const RECT& position)
{
    if (grid_.Window) {
        ShowWindow(grid_.Window, SW_SHOWNA);
        return S_OK;
    }
    HWND parent = nullptr;
    if (!grid_.InPlaceSite || FAILED(grid_.InPlaceSite->GetWindow(&parent)))
        return E_FAIL;
    return CreateControlWindow(grid_, parent, position) ? S_OK : E_FAIL;
}

HRESULT InPlaceObject::ActivateInterface(Place& place)
{
    if (uiActive_)
        return S_OK;
    if (leaving_)
        return E_UNEXPECTED;
    uiActive_ = true;
    ComPtr<IOleInPlaceSite> site(grid_.InPlaceSite);
    if (HRESULT result = site->OnUIActivate(); FAILED(result)) {
        uiActive_ = false;
        return result;
    }
    HWND focus = GetFocus();
    if (grid_.Window && focus != grid_.Window && !IsChild(grid_.Window, focus))
        ::SetFocus(grid_.Window);
    if (uiActive_)
        OfferAsActiveObject(place, true);
    return S_OK;
}

void InPlaceObject::OfferAsActiveObject(Place& place, bool active)
{
    IOleInPlaceActiveObject* object = active ? this : nullptr;
    if (place.Frame) {
        place.Frame->SetActiveObject(object, nullptr);
        if (active)
            place.Frame->SetBorderSpace(nullptr);
    }
    if (place.Document) {
        place.Document->SetActiveObject(object, nullptr);
        if (active)
            place.Document->SetBorderSpace(nullptr);
    }
}

HRESULT InPlaceObject::UIDeactivate()
{
    if (!uiActive_)
        return S_OK;
    KeepAlive alive(grid_);
    uiActive_ = false;
    Place place;
    if (SUCCEEDED(AskPlace(place)))
        OfferAsActiveObject(place, false);
    if (ComPtr<IOleInPlaceSite> site(grid_.InPlaceSite); site)
        site->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT InPlaceObject::InPlaceDeactivate()
{
    if (!grid_.InPlaceSite)
        return S_OK;
    KeepAlive alive(grid_);
    UIDeactivate();
    DestroyControlWindow();
    ComPtr<IOleInPlaceSite> site(grid_.InPlaceSite);
    ReplaceReference<IOleInPlaceSite>(grid_.InPlaceSite, nullptr);
    if (site)
        site->OnInPlaceDeactivate();
    return S_OK;
}

// An open editor that goes away hands its focus to the grid, which must not become the active object by it.
void InPlaceObject::DestroyControlWindow() noexcept
{
    if (!grid_.Window)
        return;
    bool leaving = std::exchange(leaving_, true);
    DestroyWindow(grid_.Window);
    leaving_ = leaving;
}

HRESULT InPlaceObject::GetWindow(HWND* window)
{
    if (!window)
        return E_POINTER;
    *window = grid_.Window;
    return grid_.Window ? S_OK : E_FAIL;
}

namespace
{
// The part of the window outside the host's clip rectangle is cut away by a region.
void ClipWindow(HWND window, const RECT& position, const RECT& clip) noexcept
{
    RECT shown = {};
    IntersectRect(&shown, &position, &clip);
    HRGN region = nullptr;
    if (!EqualRect(&shown, &position)) {
        OffsetRect(&shown, -position.left, -position.top);
        region = CreateRectRgnIndirect(&shown);
    }
    SetWindowRgn(window, region, TRUE); // the window owns the region from here on
}
} // namespace

HRESULT InPlaceObject::SetObjectRects(LPCRECT position, LPCRECT clip)
{
    if (!position || !clip)
        return E_POINTER;
    if (!grid_.Window)
        return S_OK;
    KeepAlive alive(grid_);
    ClipWindow(grid_.Window, *position, *clip);
    SetWindowPos(grid_.Window, nullptr, position->left, position->top, position->right - position->left,
                 position->bottom - position->top, SWP_NOZORDER | SWP_NOACTIVATE);
    return S_OK;
}

HRESULT InPlaceObject::GetDropTarget(IDropTarget** target)
{
    if (!target)
        return E_POINTER;
    *target = nullptr;
    return E_NOTIMPL;
}

// Keys of the host's own go through its site, which says S_OK when it has used one.
HRESULT InPlaceObject::TranslateAccelerator(LPMSG message)
{
    auto site = QueryFor<IOleControlSite>(ControlOf(grid_).Ole.ClientSite(), IID_IOleControlSite);
    if (!site)
        return S_FALSE;
    constexpr struct {
        int Key;
        DWORD Modifier;
    } modifiers[] = {{VK_SHIFT, 1}, {VK_CONTROL, 2}, {VK_MENU, 4}};
    DWORD held = 0;
    for (auto [key, modifier] : modifiers)
        if (GetKeyState(key) < 0)
            held |= modifier;
    return site->TranslateAccelerator(message, held) == S_OK ? S_OK : S_FALSE;
}
