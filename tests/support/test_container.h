#pragma once
// A container for one control, on a hidden window: it says what a test wants it to say, and writes down
// what the control tells it.

#include "platform/com_ptr.h"
#include "platform/variant.h"
#include "support/local_object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

class TestFrame : public LocalObject<IOleInPlaceFrame>
{
public:
    ComPtr<IOleInPlaceActiveObject> Active;

    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) override
    {
        Active = ComPtr<IOleInPlaceActiveObject>(active);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }
};

class TestSite
    : public LocalObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, ISimpleFrameSite, IDispatch>
{
public:
    TestFrame Frame;
    HWND Parent = nullptr;
    RECT Position = {10, 20, 310, 220};
    RECT Clip = {0, 0, 2000, 2000};
    bool FiltersMessages = false;
    HRESULT CanActivate = S_OK;
    std::map<DISPID, VARIANT> Ambients;
    std::set<UINT> Blocked;          // messages that end at the host
    std::vector<UINT> Before, After; // messages seen by the filter
    std::vector<std::string> Calls;
    std::function<void(const std::string& call)> OnCall;

    int Count(const char* call) const
    {
        return static_cast<int>(std::count(Calls.begin(), Calls.end(), call));
    }
    void SetUserMode(bool on)
    {
        VARIANT value = {};
        value.vt = VT_BOOL;
        value.boolVal = on ? VARIANT_TRUE : VARIANT_FALSE;
        Ambients[DISPID_AMBIENT_USERMODE] = value;
    }

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() override { return Note("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return Note("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override
    {
        *window = Parent;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return CanActivate; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return Note("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return Note("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO) override
    {
        Frame.AddRef();
        *frame = &Frame;
        *document = nullptr;
        *position = Position;
        *clip = Clip;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override
    {
        return Note("TranslateAccelerator");
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL got) override { return Note(got ? "GotFocus" : "LostFocus"); }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return Note("ShowPropertyFrame"); }

    // ISimpleFrameSite
    HRESULT STDMETHODCALLTYPE PreMessageFilter(HWND, UINT message, WPARAM, LPARAM, LRESULT* result,
                                               DWORD*) override
    {
        Before.push_back(message);
        bool blocked = Blocked.count(message) != 0;
        if (blocked)
            *result = 77;
        return blocked ? S_FALSE : S_OK;
    }
    HRESULT STDMETHODCALLTYPE PostMessageFilter(HWND, UINT message, WPARAM, LPARAM, LRESULT*, DWORD) override
    {
        After.push_back(message);
        return S_OK;
    }

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID dispid, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) override
    {
        auto ambient = Ambients.find(dispid);
        return ambient == Ambients.end() ? DISP_E_MEMBERNOTFOUND : VariantCopy(result, &ambient->second);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        if (IsEqualIID(iid, IID_ISimpleFrameSite) && !FiltersMessages) {
            *out = nullptr;
            return E_NOINTERFACE;
        }
        return LocalObject::QueryInterface(iid, out);
    }

private:
    HRESULT Note(const char* call)
    {
        Calls.push_back(call);
        if (OnCall)
            OnCall(call);
        return S_OK;
    }
};
