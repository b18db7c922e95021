#pragma once

#include "files/lh5_bits.h"
#include "files/lh5_huffman.h"
#include "files/lh5_memory.h"

// Collects the items of a block while counting them, and writes the block when its buffer is full.
class Lh5BlockWriter
{
public:
    Lh5BlockWriter(Lh5Memory& memory, ByteWriter& output, uint64_t limit) noexcept;

    void PutLiteral(uint8_t byte) noexcept
    {
        StartItem();
        items_[used_++] = byte;
        ++itemFrequency_[byte];
    }
    // `distance` counts the bytes between the match and the position: 0 is the byte before.
    void PutMatch(int length, unsigned distance) noexcept;
    // Writes the last block and the bits that flush it.
    void Finish() noexcept;

    uint64_t Written() const noexcept { return out_.Written(); }
    bool Full() const noexcept { return out_.Full(); }
    bool Failed() const noexcept { return out_.Failed(); }

private:
    void StartItem() noexcept;
    void WriteBlock() noexcept;
    void WriteItemLengths() noexcept;
    void WriteLengths(const HuffmanCode& code, int count, int countBits, int skipEntry) noexcept;
    void WriteItems() noexcept;
    void WriteDistance(unsigned distance) noexcept;

    // Items lie in groups of eight behind a byte of flags, the first one's highest; a flag marks a match.
    static constexpr int LargestGroup = 3 * 8;
    static constexpr uint8_t FirstFlag = 0x80;

    BitWriter out_;
    uint8_t* items_;
    int size_;
    int used_ = 0;
    int flags_ = 0; // where the flags of the open group stand
    uint8_t flag_ = 0;
    uint16_t itemFrequency_[lh5::ItemCodes] = {};
    uint16_t positionFrequency_[lh5::PositionCodes] = {};
    HuffmanCode item_, position_, length_;
};
