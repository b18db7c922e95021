#include "platform/com_ptr.h"
#include "platform/module.h"
#include "shell/module.h"

#include "lorv8l.h"

#include <iterator>

namespace
{
// The types that calls go through. Anything else is asked of the library each time.
const GUID* const cachedTypes[] = {&IID_ILorvGrid, &CLSID_LorvGridL, &IID_ILorvNode, &IID_ILorvDataObject};

struct TypeInfoCache {
    CRITICAL_SECTION Section;
    ITypeInfo* Types[std::size(cachedTypes)] = {};

    TypeInfoCache() noexcept { InitializeCriticalSection(&Section); }
    TypeInfoCache(const TypeInfoCache&) = delete;
    TypeInfoCache& operator=(const TypeInfoCache&) = delete;
    ~TypeInfoCache() { DeleteCriticalSection(&Section); }
};

TypeInfoCache& Cache() noexcept
{
    static TypeInfoCache cache;
    return cache;
}

class Locked
{
public:
    Locked() noexcept { EnterCriticalSection(&Cache().Section); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { LeaveCriticalSection(&Cache().Section); }
};

HRESULT LoadType(REFGUID id, ITypeInfo** info) noexcept
{
    ComPtr<ITypeLib> library;
    HRESULT result = LoadOwnTypeLibrary(library.Put());
    return SUCCEEDED(result) ? library->GetTypeInfoOfGuid(id, info) : result;
}

ITypeInfo** CacheSlot(REFGUID id) noexcept
{
    for (size_t slot = 0; slot < std::size(cachedTypes); ++slot)
        if (IsEqualGUID(*cachedTypes[slot], id))
            return &Cache().Types[slot];
    return nullptr;
}
} // namespace

ModulePath GetModulePath() noexcept
{
    ModulePath path = {};
    constexpr DWORD capacity = static_cast<DWORD>(std::size(path.Text));
    DWORD length = GetModuleFileNameW(ModuleInstance(), path.Text, capacity);
    if (length >= capacity)
        path.Text[0] = 0;
    return path;
}

HRESULT LoadOwnTypeLibrary(ITypeLib** library) noexcept
{
    ModulePath path = GetModulePath();
    return LoadTypeLibEx(path.Text, REGKIND_NONE, library);
}

HRESULT GetOwnTypeInfo(REFGUID id, ITypeInfo** info) noexcept
{
    if (!info)
        return E_POINTER;
    *info = nullptr;
    ITypeInfo** slot = CacheSlot(id);
    if (!slot)
        return LoadType(id, info);
    Locked lock;
    if (!*slot)
        if (HRESULT result = LoadType(id, slot); FAILED(result))
            return result;
    *info = *slot;
    (*info)->AddRef();
    return S_OK;
}

void ReleaseTypeInfoCache() noexcept
{
    Locked lock;
    for (ITypeInfo*& type : Cache().Types)
        ReplaceReference<ITypeInfo>(type, nullptr);
}
