#include "control_site.h"

#include "container.h"

static constexpr double himetricPerInch = 2540, pointsPerInch = 72;

void* ControlSite::FindInterface(REFIID iid)
{
    const bool known = iid == __uuidof(IOleWindow) || iid == __uuidof(IOleInPlaceSite);
    return known ? static_cast<IOleInPlaceSiteEx*>(this) : nullptr;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container)
{
    if (!container)
        return E_POINTER;
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window)
{
    if (!window)
        return E_POINTER;
    *window = container_ ? container_->Frame() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info)
{
    if (!frame || !document || !position || !clip || !info)
        return E_POINTER;
    *frame = nullptr;
    *document = nullptr;
    if (!container_)
        return E_FAIL;
    *frame = container_->InPlaceFrameObject();
    (*frame)->AddRef();
    *position = *clip = container_->ControlRect();
    info->fMDIApp = FALSE;
    info->hwndFrame = container_->Frame();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT position)
{
    if (!position)
        return E_POINTER;
    if (container_)
        container_->FitControl(); // the control fills the client area whatever it asks for
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD)
{
    if (noRedraw)
        *noRedraw = FALSE;
    return S_OK;
}

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** extended)
{
    if (extended)
        *extended = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags)
{
    if (!himetric || !container)
        return E_POINTER;
    const double scale = pointsPerInch / himetricPerInch;
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        container->x = float(himetric->x * scale);
        container->y = float(himetric->y * scale);
    } else {
        himetric->x = LONG(container->x / scale);
        himetric->y = LONG(container->y / scale);
    }
    return S_OK;
}

STDMETHODIMP ControlSite::OnFocus(BOOL got)
{
    if (container_)
        container_->NoteFocus(got != FALSE);
    return S_OK;
}

STDMETHODIMP ControlSite::PreMessageFilter(HWND, UINT message, WPARAM, LPARAM, LRESULT* result, DWORD* cookie)
{
    if (cookie)
        *cookie = 0;
    if (!container_ || !container_->IsBlocked(message))
        return S_OK;
    if (result)
        *result = 0;
    return S_FALSE; // the message ends here
}

STDMETHODIMP ControlSite::PostMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT*, DWORD)
{
    return S_FALSE; // the result stays as the control left it
}

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    if (!names || !ids)
        return E_POINTER;
    for (UINT i = 0; i < count; ++i)
        ids[i] = i == 0 ? AmbientProperties::IdOf(names[0]) : DISPID_UNKNOWN;
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ControlSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                 EXCEPINFO*, UINT*)
{
    const VARIANT* value = container_ ? container_->Ambients().Find(id) : nullptr;
    if (!value || !(flags & DISPATCH_PROPERTYGET))
        return DISP_E_MEMBERNOTFOUND;
    if (!result)
        return E_POINTER;
    VariantInit(result);
    return CopyVariant(result, *value);
}

void* InPlaceFrame::FindInterface(REFIID iid)
{
    const bool known = iid == __uuidof(IOleWindow) || iid == __uuidof(IOleInPlaceUIWindow);
    return known ? static_cast<IOleInPlaceFrame*>(this) : nullptr;
}

STDMETHODIMP InPlaceFrame::GetWindow(HWND* window)
{
    if (!window)
        return E_POINTER;
    *window = container_ ? container_->Frame() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP InPlaceFrame::SetBorderSpace(LPCBORDERWIDTHS widths)
{
    static constexpr BORDERWIDTHS none = {};
    return !widths || !memcmp(widths, &none, sizeof(none)) ? S_OK : OLE_E_INVALIDRECT;
}

STDMETHODIMP InPlaceFrame::SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR)
{
    if (container_)
        container_->SetActiveObject(active);
    return S_OK;
}
