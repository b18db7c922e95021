#pragma once
// How many GDI objects the process holds. Wine's GetGuiResources always says none; there the objects are
// counted in the table that every process has mapped.

#include <windows.h>

#include <cstdint>

inline int GdiObjectCount()
{
    if (DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(count);
    struct Entry {
        uint64_t Object;
        uint16_t Process, Lock, Unique;
        uint8_t Type, Flags; // a free entry has no type
        uint64_t UserPointer;
    };
    constexpr size_t TableOfProcessBlock = 0xF8; // of a 64-bit process
    using GetProcessBlock = const uint8_t*(WINAPI*)();
    auto get = reinterpret_cast<GetProcessBlock>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    const uint8_t* process = get();
    auto* table = *reinterpret_cast<const Entry* const*>(process + TableOfProcessBlock);
    int count = 0;
    for (int index = 0; table && index < 0x10000; ++index)
        count += table[index].Type != 0;
    return count;
}
