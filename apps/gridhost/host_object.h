// The named item `Host`: what a script can do with its host. docs/gridhost.md lists the members.
#pragma once

#include "com_owners.h"
#include "container.h"
#include "event_sink.h"
#include "key_text.h"
#include "options.h"
#include "run_state.h"
#include "script_engine.h"
#include <string>
#include <vector>

class HostObject : public ComObject<IDispatch>
{
public:
    HostObject(const Options& options, Container& container, RunState& state)
        : options_(options), container_(container), state_(state)
    {
    }
    void SetEventSink(EventSink* sink) { sink_ = sink; }
    void SetEngine(ScriptEngine* engine) { engine_ = engine; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override;

private:
    class Arguments;
    struct MemberRow;
    static const MemberRow memberRows[];

    HRESULT Pump(const Arguments& arguments, Variant& result);
    HRESULT Screenshot(const Arguments& arguments, Variant& result);
    HRESULT Type(const Arguments& arguments, Variant& result);
    HRESULT Click(const Arguments& arguments, Variant& result);
    HRESULT DoubleClick(const Arguments& arguments, Variant& result);
    HRESULT Drag(const Arguments& arguments, Variant& result);
    HRESULT RestDrag(const Arguments& arguments, Variant& result);
    HRESULT MoveMouse(const Arguments& arguments, Variant& result);
    HRESULT Wheel(const Arguments& arguments, Variant& result);
    HRESULT Title(const Arguments& arguments, Variant& result);
    HRESULT PutTitle(const Arguments& arguments, Variant& result);
    HRESULT Echo(const Arguments& arguments, Variant& result);
    HRESULT Check(const Arguments& arguments, Variant& result);
    HRESULT Quit(const Arguments& arguments, Variant& result);
    HRESULT DataFile(const Arguments& arguments, Variant& result);
    HRESULT Include(const Arguments& arguments, Variant& result);
    HRESULT Argument(const Arguments& arguments, Variant& result);
    HRESULT Resize(const Arguments& arguments, Variant& result);
    HRESULT SetAmbient(const Arguments& arguments, Variant& result);
    HRESULT RemoveAmbient(const Arguments& arguments, Variant& result);
    HRESULT BlockMessage(const Arguments& arguments, Variant& result);
    HRESULT CloseGrid(const Arguments& arguments, Variant& result);
    HRESULT Unadvise(const Arguments& arguments, Variant& result);
    HRESULT Focus(const Arguments& arguments, Variant& result);
    HRESULT PutFocus(const Arguments& arguments, Variant& result);
    HRESULT FrameWindow(const Arguments& arguments, Variant& result);
    HRESULT GridWindow(const Arguments& arguments, Variant& result);
    HRESULT Width(const Arguments& arguments, Variant& result);
    HRESULT Height(const Arguments& arguments, Variant& result);

    POINT ToScreen(const Arguments& arguments, size_t first) const;
    HRESULT ClickTimes(const Arguments& arguments, int times);
    std::wstring PicturePath(const std::wstring& file) const;

    const Options& options_;
    Container& container_;
    RunState& state_;
    EventSink* sink_ = nullptr;
    ScriptEngine* engine_ = nullptr;

    // What the next drag does before the button is released.
    struct DragRest {
        DWORD milliseconds = 0;
        std::wstring picture;
        std::vector<KeyStroke> keys;
    };
    DragRest dragRest_;
};
