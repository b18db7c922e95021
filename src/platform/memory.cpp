#include "platform/memory.h"

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace
{
AllocationProbe allocationProbe;

constexpr size_t HugeBlock = size_t{1} << 28;

// Some systems hand out more address space than they can back. A wild count must fail here, not later, when
// the block is filled.
bool IsBacked(size_t size) noexcept
{
    if (size < HugeBlock)
        return true;
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    return !GlobalMemoryStatusEx(&status) || size < status.ullAvailPageFile;
}

bool MayAllocate(size_t size) noexcept
{
    ++allocationProbe.Count;
    return (allocationProbe.FailAt == 0 || allocationProbe.Count != allocationProbe.FailAt) && IsBacked(size);
}

void* Counted(void* block) noexcept
{
    allocationProbe.Live += block != nullptr;
    return block;
}
} // namespace

AllocationProbe& TheAllocationProbe() noexcept
{
    return allocationProbe;
}

void* AllocateZeroed(size_t count, size_t size) noexcept
{
    bool overflows = size != 0 && count > SIZE_MAX / size;
    return MayAllocate(overflows ? SIZE_MAX : count * size) ? Counted(std::calloc(count, size)) : nullptr;
}

void* ReallocateBlock(void* block, size_t size) noexcept
{
    if (!MayAllocate(size))
        return nullptr;
    void* moved = std::realloc(block, size);
    return block ? moved : Counted(moved);
}

wchar_t* DuplicateText(const wchar_t* text, size_t length) noexcept
{
    bool overflows = length >= SIZE_MAX / sizeof(wchar_t);
    size_t size = overflows ? SIZE_MAX : (length + 1) * sizeof(wchar_t);
    if (!MayAllocate(size) || overflows)
        return nullptr;
    auto* copy = static_cast<wchar_t*>(Counted(std::malloc(size)));
    if (copy) {
        std::memcpy(copy, text, length * sizeof(wchar_t));
        copy[length] = 0;
    }
    return copy;
}

wchar_t* DuplicateText(const wchar_t* text) noexcept
{
    return DuplicateText(text, std::wcslen(text));
}

void FreeBlock(void* block) noexcept
{
    allocationProbe.Live -= block != nullptr;
    std::free(block);
}
