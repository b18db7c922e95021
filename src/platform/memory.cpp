#include "platform/memory.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace
{
AllocationProbe allocationProbe;

bool MayAllocate() noexcept
{
    ++allocationProbe.Count;
    return allocationProbe.FailAt == 0 || allocationProbe.Count != allocationProbe.FailAt;
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
    return MayAllocate() ? Counted(std::calloc(count, size)) : nullptr;
}

void* ReallocateBlock(void* block, size_t size) noexcept
{
    if (!MayAllocate())
        return nullptr;
    void* moved = std::realloc(block, size);
    return block ? moved : Counted(moved);
}

wchar_t* DuplicateText(const wchar_t* text, size_t length) noexcept
{
    if (!MayAllocate() || length >= static_cast<size_t>(-1) / sizeof(wchar_t))
        return nullptr;
    auto* copy = static_cast<wchar_t*>(Counted(std::malloc((length + 1) * sizeof(wchar_t))));
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
