// Hosts one control in the client area of the frame window, as a form designer would.
#pragma once

#include "ambient.h"
#include "com_owners.h"
#include "control_site.h"
#include <oleidl.h>
#include <set>

class Container
{
public:
    explicit Container(bool designMode) : ambients_(designMode) {}
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container() { Close(); }

    // Sites the control, initialises it, gives it the client area of `frame` and activates it.
    HRESULT Open(HWND frame, IUnknown* control);
    // Takes the control down again; what the caller holds of it is then the last reference.
    void Close();
    bool IsOpen() const { return bool(object_); }

    // Puts a field of text beneath the control, so that the focus has somewhere else to go: Tab moves it
    // between the two as in a dialog.
    void AddField();
    HWND Field() const { return field_; }

    HRESULT UIActivate();
    void FitControl(); // after the client area has changed
    bool TranslateKey(MSG& message);
    HRESULT SetAmbient(DISPID id, const VARIANT* value); // null: the host no longer has it
    void BlockMessage(UINT message, bool on);

    HWND Frame() const { return frame_; }
    HWND ControlWindow() const; // null while the control is not active
    IUnknown* Control() const { return control_.Get(); }
    RECT ControlRect() const;
    bool HasFocus() const { return focus_; }

    // For the site objects.
    AmbientProperties& Ambients() { return ambients_; }
    IOleInPlaceFrame* InPlaceFrameObject() const { return frameObject_.Get(); }
    void SetActiveObject(IOleInPlaceActiveObject* active)
    {
        active_ = ComPtr<IOleInPlaceActiveObject>(active);
    }
    bool IsBlocked(UINT message) const { return blocked_.count(message) != 0; }
    void NoteFocus(bool got) { focus_ = got; }

private:
    HRESULT SiteAndInitialise();
    HRESULT SetExtent();
    HRESULT DoVerb(LONG verb);
    void Advise();
    bool MoveFocusByTab(MSG& message);

    AmbientProperties ambients_;
    HWND frame_ = nullptr;
    HWND field_ = nullptr;
    ComPtr<IUnknown> control_;
    ComPtr<IOleObject> object_;
    ComPtr<IOleInPlaceObject> inPlace_;
    ComPtr<IOleInPlaceActiveObject> active_;
    ComPtr<ControlSite> site_;
    ComPtr<InPlaceFrame> frameObject_;
    std::set<UINT> blocked_;
    DWORD adviseCookie_ = 0;
    bool focus_ = false;
};
