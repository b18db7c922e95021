#pragma once

#include "platform/com_ptr.h"
#include "shell/com_base.h"

// The control among the host's windows. It always has a window of its own; it is in-place active while
// `Grid::InPlaceSite` is set.
class InPlaceObject final : public ControlPart<IOleInPlaceObjectWindowless, IOleInPlaceActiveObject>
{
public:
    using ControlPart::ControlPart;

    // Activates in place, and in the user interface too when the verb asks for it. Without a rectangle the
    // one that the site gives.
    HRESULT Activate(LONG verb, LPCRECT position);
    void DestroyControlWindow() noexcept;

    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // IOleInPlaceObject
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return E_NOTIMPL; }

    // IOleInPlaceObjectWindowless
    HRESULT STDMETHODCALLTYPE OnWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget** target) override;

    // IOleInPlaceActiveObject
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }

private:
    // What the site tells of the place to be active in.
    struct Place {
        ComPtr<IOleInPlaceFrame> Frame;
        ComPtr<IOleInPlaceUIWindow> Document;
        RECT Position = {};
        RECT Clip = {};
    };

    HRESULT EnterSite();
    HRESULT AskPlace(Place& place) const;
    HRESULT ShowWindowAt(const RECT& position);
    HRESULT ActivateInterface(Place& place);
    void OfferAsActiveObject(Place& place, bool active);

    bool uiActive_ = false;
    bool leaving_ = false; // the window is being destroyed
};
