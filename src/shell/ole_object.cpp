#include "shell/ole_object.h"

#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/variant.h"
#include "shell/control.h"

HRESULT OleObject::SetClientSite(IOleClientSite* site)
{
    clientSite_ = ComPtr<IOleClientSite>(site);
    frameSite_ = QueryFor<ISimpleFrameSite>(site, IID_ISimpleFrameSite);
    auto ambient = QueryFor<IDispatch>(site, IID_IDispatch);
    ReplaceReference(grid_.AmbientProperties, ambient.Get());
    if (!site)
        return S_OK;
    OnAmbientPropertyChange(DISPID_AMBIENT_PALETTE);
    OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
    if (!grid_.Font)
        TakeAmbientFont();
    return S_OK;
}

// Without a font of the host's the grid makes its own.
void OleObject::TakeAmbientFont()
{
    OwnedVariant value;
    if (ReadAmbient(grid_, DISPID_AMBIENT_FONT, value.Get()) &&
        (value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN))
        if (auto font = QueryFor<IFont>(value.Get().punkVal, IID_IFont))
            font->Clone(&grid_.Font);
    if (GridFont(grid_))
        FontChanged(grid_);
}

HRESULT OleObject::GetClientSite(IOleClientSite** site)
{
    if (!site)
        return E_POINTER;
    *site = ComPtr<IOleClientSite>(clientSite_).Detach();
    return S_OK;
}

HRESULT OleObject::Close(DWORD saveOption)
{
    KeepAlive alive(grid_);
    ControlOf(grid_).InPlace.InPlaceDeactivate();
    bool saves = saveOption == OLECLOSE_SAVEIFDIRTY || saveOption == OLECLOSE_PROMPTSAVE;
    if (saves && grid_.RequiresSave) {
        if (ComPtr<IOleClientSite> site(clientSite_); site)
            site->SaveObject();
        if (ComPtr<IOleAdviseHolder> holder(advise_); holder)
            holder->SendOnSave();
    }
    if (ComPtr<IOleAdviseHolder> holder(advise_); holder)
        holder->SendOnClose();
    return S_OK;
}

bool OleObject::IsOwnSite(IOleClientSite* site) const noexcept
{
    if (site == clientSite_.Get())
        return true;
    auto own = QueryFor<IUnknown>(clientSite_.Get(), IID_IUnknown);
    auto given = QueryFor<IUnknown>(site, IID_IUnknown);
    return own && own.Get() == given.Get();
}

HRESULT OleObject::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent, LPCRECT position)
{
    if (!IsOwnSite(site))
        return E_UNEXPECTED;
    KeepAlive alive(grid_);
    switch (verb) {
    case OLEIVERB_PRIMARY:
        return IsDesignMode(grid_) ? ShowPropertyPages(parent, position)
                                   : ControlOf(grid_).InPlace.Activate(OLEIVERB_INPLACEACTIVATE, position);
    case OLEIVERB_SHOW:
    case OLEIVERB_UIACTIVATE:
    case OLEIVERB_INPLACEACTIVATE:
        return ControlOf(grid_).InPlace.Activate(verb, position);
    case OLEIVERB_HIDE:
        return Hide();
    case OLEIVERB_OPEN:
    case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
    case OLEIVERB_PROPERTIES:
        return ShowPropertyPages(parent, position);
    default:
        return E_NOTIMPL;
    }
}

HRESULT OleObject::Hide()
{
    ControlOf(grid_).InPlace.UIDeactivate();
    if (grid_.Window)
        ShowWindow(grid_.Window, SW_HIDE);
    return S_OK;
}

// The host may have a frame of its own for the pages of its extended control.
HRESULT OleObject::ShowPropertyPages(HWND parent, LPCRECT position)
{
    auto site = QueryFor<IOleControlSite>(clientSite_.Get(), IID_IOleControlSite);
    if (site && site->ShowPropertyFrame() == S_OK)
        return S_OK;
    CAUUID pages = {};
    if (HRESULT result = ControlOf(grid_).Browsing.GetPages(&pages); FAILED(result))
        return result;
    IUnknown* object = grid_.Outer;
    LPOLESTR title = nullptr;
    GetUserType(USERCLASSTYPE_SHORT, &title);
    HRESULT result =
        OleCreatePropertyFrame(parent, position ? position->left : 0, position ? position->top : 0, title, 1,
                               &object, pages.cElems, pages.pElems, LOCALE_USER_DEFAULT, 0, nullptr);
    CoTaskMemFree(title);
    CoTaskMemFree(pages.pElems);
    return result;
}

HRESULT OleObject::EnumVerbs(IEnumOLEVERB** verbs)
{
    return verbs ? OleRegEnumVerbs(CLSID_LorvGridL, verbs) : E_POINTER;
}

HRESULT OleObject::GetUserClassID(CLSID* id)
{
    if (!id)
        return E_POINTER;
    *id = CLSID_LorvGridL;
    return S_OK;
}

HRESULT OleObject::GetUserType(DWORD form, LPOLESTR* name)
{
    return name ? OleRegGetUserType(CLSID_LorvGridL, form, name) : E_POINTER;
}

HRESULT OleObject::SetExtent(DWORD aspect, SIZEL* extent)
{
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    if (!extent)
        return E_POINTER;
    if (extent->cx == grid_.Extent.cx && extent->cy == grid_.Extent.cy)
        return S_OK;
    KeepAlive alive(grid_);
    grid_.Extent = *extent;
    if (!grid_.Window)
        RecalculateLayout(grid_);
    ControlOf(grid_).Data.SendDataChange();
    RepaintGrid(grid_);
    return S_OK;
}

HRESULT OleObject::GetExtent(DWORD aspect, SIZEL* extent)
{
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    if (!extent)
        return E_POINTER;
    *extent = grid_.Extent;
    return S_OK;
}

HRESULT OleObject::Advise(IAdviseSink* sink, DWORD* cookie)
{
    if (!advise_)
        if (HRESULT result = CreateOleAdviseHolder(advise_.Put()); FAILED(result))
            return result;
    return advise_->Advise(sink, cookie);
}

HRESULT OleObject::Unadvise(DWORD cookie)
{
    return advise_ ? advise_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT OleObject::EnumAdvise(IEnumSTATDATA** enumerator)
{
    if (!enumerator)
        return E_POINTER;
    *enumerator = nullptr;
    return advise_ ? advise_->EnumAdvise(enumerator) : E_FAIL;
}

HRESULT OleObject::GetMiscStatus(DWORD aspect, DWORD* status)
{
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? ControlMiscStatus : 0;
    return S_OK;
}

HRESULT OleObject::OnAmbientPropertyChange(DISPID dispid)
{
    KeepAlive alive(grid_);
    switch (dispid) {
    case DISPID_AMBIENT_PALETTE:
        SetOption(grid_, OptionGdiStale, true);
        RepaintGrid(grid_);
        break;
    case DISPID_AMBIENT_UIDEAD:
        ReadUIDead();
        break;
    case DISPID_AMBIENT_USERMODE:
        ReadUserMode();
        break;
    }
    return S_OK;
}

void OleObject::ReadUIDead()
{
    OwnedVariant value;
    uiDead_ = ReadAmbient(grid_, DISPID_AMBIENT_UIDEAD, value.Get()) && value.Type() == VT_BOOL &&
              value.Get().boolVal != VARIANT_FALSE;
}

// A host that does not answer leaves the mode as it was known.
void OleObject::ReadUserMode()
{
    OwnedVariant value;
    if (ReadAmbient(grid_, DISPID_AMBIENT_USERMODE, value.Get()) && value.Type() == VT_BOOL)
        grid_.DesignModeCache = value.Get().boolVal == VARIANT_FALSE;
}

HRESULT OleObject::FreezeEvents(BOOL freeze)
{
    frozenEvents_ += freeze ? 1 : -1;
    return S_OK;
}
