#include "control_factory.h"

#include <objbase.h>

static bool IsControlClass(ITypeLib* library, UINT index, CLSID& classId)
{
    TYPEKIND kind;
    ComPtr<ITypeInfo> type;
    if (FAILED(library->GetTypeInfoType(index, &kind)) || kind != TKIND_COCLASS ||
        FAILED(library->GetTypeInfo(index, type.Put())))
        return false;
    TYPEATTR* attributes;
    if (FAILED(type->GetTypeAttr(&attributes)))
        return false;
    const WORD wanted = TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL;
    const bool fits = (attributes->wTypeFlags & wanted) == wanted;
    classId = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    return fits;
}

// The class id of the control that the module's type library describes.
static HRESULT FindControlClass(const wchar_t* module, CLSID& classId)
{
    ComPtr<ITypeLib> library;
    const HRESULT hr = LoadTypeLibEx(module, REGKIND_NONE, library.Put());
    if (FAILED(hr))
        return hr;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i)
        if (IsControlClass(library.Get(), i, classId))
            return S_OK;
    return REGDB_E_CLASSNOTREG;
}

static HRESULT CreateFromModule(const wchar_t* module, ComPtr<IUnknown>& control)
{
    CLSID classId;
    HRESULT hr = FindControlClass(module, classId);
    if (FAILED(hr))
        return hr;
    // The module stays loaded: windows of its classes may outlive the last object.
    HMODULE loaded = LoadLibraryW(module);
    if (!loaded)
        return HRESULT_FROM_WIN32(GetLastError());
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(loaded, "DllGetClassObject")));
    if (!getClassObject)
        return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    ComPtr<IClassFactory> factory;
    hr = getClassObject(classId, __uuidof(IClassFactory), factory.PutVoid());
    if (FAILED(hr))
        return hr;
    return factory->CreateInstance(nullptr, __uuidof(IUnknown), control.PutVoid());
}

HRESULT CreateControl(const Options& options, ComPtr<IUnknown>& control)
{
    if (!options.dll.empty())
        return CreateFromModule(options.dll.c_str(), control);
    CLSID classId;
    const HRESULT hr = CLSIDFromProgID(options.progId.c_str(), &classId);
    if (FAILED(hr))
        return hr;
    return CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown), control.PutVoid());
}
