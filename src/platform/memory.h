#pragma once
// The model's heap: the tables, texts and formats of a grid are blocks from here, so that a test can
// make any one of these allocations fail and see what is left.

#include <cstddef>

// Zeroed room for `count` records of `size` bytes; null when there is none or the product overflows.
[[nodiscard]] void* AllocateZeroed(size_t count, size_t size) noexcept;
// As `realloc`; on failure the old block stays and null is returned. `size` must not be 0.
[[nodiscard]] void* ReallocateBlock(void* block, size_t size) noexcept;
// A terminated copy of the first `length` characters of `text`; the caller frees it with `FreeBlock`.
[[nodiscard]] wchar_t* DuplicateText(const wchar_t* text, size_t length) noexcept;
[[nodiscard]] wchar_t* DuplicateText(const wchar_t* text) noexcept;
void FreeBlock(void* block) noexcept;

// Frees a block and clears the pointer to it.
template<class T> void FreeAndClear(T*& block) noexcept
{
    FreeBlock(block);
    block = nullptr;
}

// The failure switch of the tests. While `FailAt` is above 0, the allocation with that number (the first
// is 1) and none other fails. `Count` counts the allocations asked for, `Live` those not freed.
struct AllocationProbe {
    long FailAt = 0;
    long Count = 0;
    long Live = 0;
};
AllocationProbe& TheAllocationProbe() noexcept;
