#pragma once

#include "platform/com_ptr.h"
#include "shell/com_base.h"

// What the class says of itself to a container, see IOleObject::GetMiscStatus: recompose on resize, cannot
// link inside, inside out, activate when visible, alignable, simple frame, client site first.
constexpr DWORD ControlMiscStatus = 229777;

// The control as an embedded object: its site, its verbs and its extent.
class OleObject final : public ControlPart<IOleObject, IOleControl>
{
public:
    using ControlPart::ControlPart;

    // IOleObject
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                     LPCRECT position) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
    HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* extent) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* extent) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** enumerator) override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleControl
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID dispid) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

    IOleClientSite* ClientSite() const noexcept { return clientSite_.Get(); }
    // The host's filter of the window's messages; null when it has none.
    ISimpleFrameSite* FrameSite() const noexcept { return frameSite_.Get(); }
    // Kept for hosts that look at it; events go out frozen or not.
    LONG FrozenEvents() const noexcept { return frozenEvents_; }
    bool UIDead() const noexcept { return uiDead_; }

private:
    void ReadUserMode();
    void ReadUIDead();
    void TakeAmbientFont();
    bool IsOwnSite(IOleClientSite* site) const noexcept;
    HRESULT ShowPropertyPages(HWND parent, LPCRECT position);
    HRESULT Hide();

    ComPtr<IOleClientSite> clientSite_;
    ComPtr<ISimpleFrameSite> frameSite_;
    ComPtr<IOleAdviseHolder> advise_;
    LONG frozenEvents_ = 0;
    bool uiDead_ = false;
};
