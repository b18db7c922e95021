// The site objects that a hosted control talks to. They only pass on to the container, and a
// control that keeps them past its shutdown finds them disconnected.
#pragma once

#include "com_owners.h"
#include <ocidl.h>
#include <oleidl.h>

class Container;

class ControlSite
    : public ComObject<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, ISimpleFrameSite, IDispatch>
{
public:
    explicit ControlSite(Container* container) : container_(container) {}
    void Disconnect() { container_ = nullptr; }

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return S_FALSE; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT position) override;

    // IOleInPlaceSiteEx
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL) override { return S_OK; }
    STDMETHODIMP RequestUIActivate() override { return S_OK; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** extended) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL got) override;
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // ISimpleFrameSite
    STDMETHODIMP PreMessageFilter(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result,
                                  DWORD* cookie) override;
    STDMETHODIMP PostMessageFilter(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result,
                                   DWORD cookie) override;

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;

protected:
    void* FindInterface(REFIID iid) override;

private:
    Container* container_;
};

// The frame window as an in-place active control sees it: no tool space, no menus.
class InPlaceFrame : public ComObject<IOleInPlaceFrame>
{
public:
    explicit InPlaceFrame(Container* container) : container_(container) {}
    void Disconnect() { container_ = nullptr; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

protected:
    void* FindInterface(REFIID iid) override;

private:
    Container* container_;
};
