#include "shell/safety.h"

#include "platform/com_ptr.h"

namespace
{
constexpr DWORD SupportedOptions = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
}

HRESULT ObjectSafety::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled)
{
    if (!supported || !enabled)
        return E_POINTER;
    bool known = static_cast<bool>(QueryFor<IUnknown>(grid_.Outer, iid));
    *supported = known ? SupportedOptions : 0;
    *enabled = known ? grid_.SafetyOptions : 0;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT ObjectSafety::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD options)
{
    if (!QueryFor<IUnknown>(grid_.Outer, iid))
        return E_NOINTERFACE;
    if (mask & ~SupportedOptions)
        return E_FAIL;
    if (!AllowSafetyChange())
        return E_ACCESSDENIED;
    grid_.SafetyOptions = (grid_.SafetyOptions & ~mask) | (options & mask);
    return S_OK;
}
