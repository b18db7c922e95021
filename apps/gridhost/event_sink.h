// Receives the control's events and calls the script's procedures for them.
#pragma once

#include "com_owners.h"
#include "run_state.h"
#include "script_engine.h"
#include <map>
#include <ocidl.h>
#include <string>

class EventSink : public ComObject<IDispatch>
{
public:
    EventSink(ScriptEngine& engine, RunState& state) : engine_(engine), state_(state) {}

    // Connects to the control's default outgoing interface.
    HRESULT Connect(IUnknown* control);
    void Disconnect();
    // The type library that describes the control's events, once connected.
    ITypeLib* Library() const { return library_.Get(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) override;

protected:
    void* FindInterface(REFIID iid) override;

private:
    HRESULT FindSourceInterface(IUnknown* control, ComPtr<ITypeInfo>& events);
    void ReadEventNames(ITypeInfo* events);

    ScriptEngine& engine_;
    RunState& state_;
    IID source_ = {};
    std::map<DISPID, std::wstring> procedures_; // DISPID of the event -> "Grid_CellChanged"
    ComPtr<ITypeLib> library_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};
