#include "container.h"

#include <algorithm>
#include <ocidl.h>

namespace
{
constexpr int himetricPerInch = 2540;
constexpr int fieldHeight = 24; // pixels

// Connected for the protocol's sake: a control must cope with an advise holder that is in use.
class AdviseSink : public ComObject<IAdviseSink>
{
public:
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override {}
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}
};
} // namespace

HRESULT Container::Open(HWND frame, IUnknown* control)
{
    frame_ = frame;
    control_ = ComPtr<IUnknown>(control);
    object_ = control_.As<IOleObject>();
    if (!object_)
        return E_NOINTERFACE;
    site_ = ComPtr<ControlSite>::Adopt(new ControlSite(this));
    frameObject_ = ComPtr<InPlaceFrame>::Adopt(new InPlaceFrame(this));
    HRESULT hr = SiteAndInitialise();
    if (FAILED(hr))
        return hr;
    Advise();
    SetExtent();
    hr = DoVerb(OLEIVERB_INPLACEACTIVATE);
    inPlace_ = control_.As<IOleInPlaceObject>();
    return hr;
}

// The control says by its status whether it wants its site before or after its state.
HRESULT Container::SiteAndInitialise()
{
    DWORD status = 0;
    object_->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool siteFirst = status & OLEMISC_SETCLIENTSITEFIRST;
    HRESULT hr = siteFirst ? object_->SetClientSite(site_.Get()) : S_OK;
    if (FAILED(hr))
        return hr;
    if (const auto stream = control_.As<IPersistStreamInit>())
        hr = stream->InitNew();
    else if (const auto bag = control_.As<IPersistPropertyBag>())
        hr = bag->InitNew();
    if (FAILED(hr) && hr != E_NOTIMPL)
        return hr;
    hr = siteFirst ? S_OK : object_->SetClientSite(site_.Get());
    object_->SetHostNames(L"gridhost", L"Grid");
    return hr;
}

void Container::Advise()
{
    const auto sink = ComPtr<IAdviseSink>::Adopt(new AdviseSink);
    if (FAILED(object_->Advise(sink.Get(), &adviseCookie_)))
        adviseCookie_ = 0;
    if (const auto view = control_.As<IViewObject>())
        view->SetAdvise(DVASPECT_CONTENT, 0, sink.Get());
}

RECT Container::ControlRect() const
{
    RECT client = {};
    GetClientRect(frame_, &client);
    if (field_)
        client.bottom = std::max(client.bottom - fieldHeight, 0L);
    return client;
}

void Container::AddField()
{
    field_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                             frame_, nullptr, GetModuleHandleW(nullptr), nullptr);
    FitControl();
}

HRESULT Container::SetExtent()
{
    const RECT rect = ControlRect();
    HDC screen = GetDC(nullptr);
    SIZEL extent = {MulDiv(rect.right, himetricPerInch, GetDeviceCaps(screen, LOGPIXELSX)),
                    MulDiv(rect.bottom, himetricPerInch, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return object_->SetExtent(DVASPECT_CONTENT, &extent);
}

HRESULT Container::DoVerb(LONG verb)
{
    const RECT rect = ControlRect();
    return object_->DoVerb(verb, nullptr, site_.Get(), 0, frame_, &rect);
}

HRESULT Container::UIActivate()
{
    return object_ ? DoVerb(OLEIVERB_UIACTIVATE) : E_UNEXPECTED;
}

void Container::FitControl()
{
    const RECT rect = ControlRect();
    if (field_)
        MoveWindow(field_, 0, rect.bottom, rect.right, fieldHeight, TRUE);
    if (!inPlace_)
        return;
    const auto inPlace = inPlace_; // a Resize handler may close the control
    SetExtent();
    inPlace->SetObjectRects(&rect, &rect);
}

bool Container::MoveFocusByTab(MSG& message)
{
    if (!field_ || message.message != WM_KEYDOWN || message.wParam != VK_TAB)
        return false;
    if (message.hwnd == field_) {
        SetFocus(ControlWindow());
        return true;
    }
    const LRESULT wanted =
        SendMessageW(message.hwnd, WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&message));
    if (wanted & (DLGC_WANTALLKEYS | DLGC_WANTTAB))
        return false;
    SetFocus(field_);
    return true;
}

bool Container::TranslateKey(MSG& message)
{
    if (MoveFocusByTab(message))
        return true;
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST || !active_)
        return false;
    const auto active = active_;
    return active->TranslateAccelerator(&message) == S_OK;
}

HWND Container::ControlWindow() const
{
    HWND window = nullptr;
    if (inPlace_ && FAILED(inPlace_->GetWindow(&window)))
        window = nullptr;
    return window;
}

HRESULT Container::SetAmbient(DISPID id, const VARIANT* value)
{
    if (value)
        ambients_.Set(id, *value);
    else
        ambients_.Remove(id);
    const auto control = control_.As<IOleControl>();
    return control ? control->OnAmbientPropertyChange(id) : S_FALSE;
}

void Container::BlockMessage(UINT message, bool on)
{
    if (on)
        blocked_.insert(message);
    else
        blocked_.erase(message);
}

void Container::Close()
{
    const auto object = std::move(object_);
    const auto inPlace = std::move(inPlace_);
    if (inPlace) {
        inPlace->UIDeactivate();
        inPlace->InPlaceDeactivate();
    }
    if (object) {
        object->Close(OLECLOSE_NOSAVE);
        if (adviseCookie_)
            object->Unadvise(adviseCookie_);
        if (const auto view = control_.As<IViewObject>())
            view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
        object->SetClientSite(nullptr);
    }
    adviseCookie_ = 0;
    active_.Reset();
    if (site_)
        site_->Disconnect();
    if (frameObject_)
        frameObject_->Disconnect();
    site_.Reset();
    frameObject_.Reset();
    control_.Reset();
}
