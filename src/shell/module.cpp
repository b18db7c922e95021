#include "shell/module.h"

#include "shell/control.h"
#include "shell/registration.h"
#include "shell/window.h"

namespace
{
LONG moduleLocks = 0;

// The factory of the control. It lives as long as the module, whatever its clients hold.
class ControlFactory final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        if (!out)
            return E_POINTER;
        bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory);
        *out = known ? static_cast<IClassFactory*>(this) : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override
    {
        LockModule();
        return 2;
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        UnlockModule();
        return 1;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override
    {
        return CLorvArrayCtrl::Create(outer, iid, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        lock ? LockModule() : UnlockModule();
        return S_OK;
    }
};

ControlFactory factory;
} // namespace

void LockModule() noexcept
{
    InterlockedIncrement(&moduleLocks);
}

void UnlockModule() noexcept
{
    InterlockedDecrement(&moduleLocks);
}

LONG ModuleLocks() noexcept
{
    return moduleLocks;
}

STDAPI DllCanUnloadNow()
{
    return ModuleLocks() == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID id, REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    return IsEqualCLSID(id, CLSID_LorvGridL) ? factory.QueryInterface(iid, out) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllRegisterServer()
{
    return RegisterControl();
}

STDAPI DllUnregisterServer()
{
    return UnregisterControl();
}

// At the end of a process the system's libraries may be gone already, and nothing needs to be given back.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* processEnds)
{
    if (reason == DLL_PROCESS_ATTACH)
        DisableThreadLibraryCalls(module);
    if (reason == DLL_PROCESS_DETACH && !processEnds) {
        ReleaseTypeInfoCache();
        UnregisterControlWindowClass();
    }
    return TRUE;
}
