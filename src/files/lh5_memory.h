#pragma once

#include "files/lh5_format.h"

#include <cstddef>
#include <cstdint>

// The heap that working memory comes from.
struct Lh5Heap {
    void* (*Allocate)(size_t count, size_t size) noexcept; // zeroed; null when there is none
    void (*Free)(void* block) noexcept;
};

// What the encoder works in: about 190 KiB, whatever the size of the file.
class Lh5Memory
{
public:
    explicit Lh5Memory(const Lh5Heap& heap) noexcept : heap_(heap) {}
    Lh5Memory(const Lh5Memory&) = delete;
    Lh5Memory& operator=(const Lh5Memory&) = delete;
    ~Lh5Memory();

    // False when there is not enough of it.
    [[nodiscard]] bool Allocate() noexcept;

    static constexpr int TextSize = 2 * lh5::Window + lh5::LongestMatch;
    static constexpr int NodeCount = lh5::Window + lh5::Literals;
    static constexpr int LinkCount = 2 * lh5::Window;
    // The hash of a parent and a byte begins behind the links of the nodes.
    static constexpr int HashShift = lh5::WindowBits - 9;
    static constexpr int HashLimit = 3 * lh5::Window + (lh5::Window / 512 + 1) * 255;
    static constexpr int NextCount = HashLimit + 1;
    static constexpr int LargestItems = 16384;
    static constexpr int SmallestItems = 4096;

    uint8_t* Items = nullptr;
    int ItemsSize = 0; // bytes: LargestItems, or less where memory is short
    uint8_t* Text = nullptr;
    uint8_t* Level = nullptr;
    uint8_t* Children = nullptr;
    uint16_t* Position = nullptr;
    uint16_t* Parent = nullptr;
    uint16_t* Previous = nullptr;
    uint16_t* Next = nullptr;

private:
    template<class T> T* Take(int count) noexcept
    {
        return static_cast<T*>(heap_.Allocate(static_cast<size_t>(count), sizeof(T)));
    }
    void TakeItems() noexcept;

    Lh5Heap heap_;
};
