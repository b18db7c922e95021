#pragma once
// The module as its objects and its exports see it.

#include <oaidl.h>
#include <windows.h>

// Held by every object that hosts can reach; while one is held the module stays loaded.
void LockModule() noexcept;
void UnlockModule() noexcept;
LONG ModuleLocks() noexcept;

class ModuleLock
{
public:
    ModuleLock() noexcept { LockModule(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
    ~ModuleLock() { UnlockModule(); }
};

// The path of the module's file; empty when it does not fit.
struct ModulePath {
    wchar_t Text[1024];
};
ModulePath GetModulePath() noexcept;

// The type library in the module's own resources: nothing needs to be registered.
HRESULT LoadOwnTypeLibrary(ITypeLib** library) noexcept;
// The description of a type of it; read once per module and kept. The caller releases it.
HRESULT GetOwnTypeInfo(REFGUID id, ITypeInfo** info) noexcept;
// Gives up what GetOwnTypeInfo keeps.
void ReleaseTypeInfoCache() noexcept;
