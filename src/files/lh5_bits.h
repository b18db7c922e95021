#pragma once
// Bits, the highest of a byte first.

#include "files/byte_stream.h"

#include <bit>
#include <cstdint>
#include <cstring>

// The eight bytes as a number, the first one highest.
inline uint64_t LoadHighFirst(const uint8_t* bytes) noexcept
{
    static_assert(std::endian::native == std::endian::little);
    return __builtin_bswap64(LoadNumber<uint64_t>(bytes));
}

// Writes whole bytes up to a limit. What comes after the limit, or after a failure, is dropped.
class BitWriter
{
public:
    BitWriter(ByteWriter& writer, uint64_t limit) noexcept : writer_(writer), limit_(limit) {}

    // The lowest `count` bits of `value`, at most 16, which has no others.
    void Put(unsigned value, int count) noexcept
    {
        pending_ = pending_ << count | value;
        pendingBits_ += count;
        if (pendingBits_ < 32)
            return;
        pendingBits_ -= 32;
        StoreNumber(buffer_ + used_, __builtin_bswap32(static_cast<uint32_t>(pending_ >> pendingBits_)));
        used_ += 4;
        if (used_ == sizeof buffer_)
            Flush();
    }
    // Writes what is pending; bits that make no whole byte are dropped.
    void Finish() noexcept;

    uint64_t Written() const noexcept { return written_; } // as far as flushed
    bool Full() const noexcept { return written_ == limit_; }
    bool Failed() const noexcept { return failed_; }

private:
    void Flush() noexcept;

    ByteWriter& writer_;
    uint64_t limit_;
    uint64_t written_ = 0;
    uint64_t pending_ = 0;
    int pendingBits_ = 0;
    uint32_t used_ = 0;
    bool failed_ = false;
    uint8_t buffer_[4096];
};

// The next bits of a stream, small enough for a hot loop to keep a copy of.
struct BitCursor {
    uint64_t Bits = 0; // from the highest down
    int Count = 0;     // how many of them are good, at most 63
    const uint8_t* Next = nullptr;
    const uint8_t* End = nullptr;

    bool CanRefill() const noexcept { return End - Next >= 8; }
    // Makes sure of 56 bits. The bits behind `Count` are those of the bytes at `Next`, so that taking them
    // twice does no harm.
    void Refill() noexcept
    {
        Bits |= LoadHighFirst(Next) >> Count;
        Next += (63 - Count) >> 3;
        Count |= 56;
    }
    // At least 1 and at most 16 of the bits made sure of.
    unsigned Peek(int count) const noexcept { return static_cast<unsigned>(Bits >> (64 - count)); }
    void Skip(int count) noexcept
    {
        Bits <<= count;
        Count -= count;
    }
    // At most 16, and 0 is good too.
    unsigned Take(int count) noexcept
    {
        auto value = static_cast<unsigned>(Bits >> 1 >> (63 - count));
        Skip(count);
        return value;
    }
};

// Reads `size` bytes of a reader ahead, and zeros behind them.
class BitReader
{
public:
    BitReader(ByteReader& reader, uint64_t size) noexcept : reader_(reader), left_(size) {}
    BitReader(const BitReader&) = delete;
    BitReader& operator=(const BitReader&) = delete;

    // A hot loop takes a copy of the cursor, refills that, and gives it back.
    BitCursor Cursor;
    [[nodiscard]] BitCursor Refilled(BitCursor cursor) noexcept;

    unsigned Take(int count) noexcept
    {
        Cursor = Refilled(Cursor);
        return Cursor.Take(count);
    }

    // Whether bits were taken that are not there.
    bool Exhausted() const noexcept { return padding_ > static_cast<uint64_t>(Cursor.Count); }
    // Whether the reader ended before the size that was promised.
    bool SourceEnded() const noexcept { return sourceEnded_; }

private:
    void ReadAhead(BitCursor& cursor) noexcept;

    ByteReader& reader_;
    uint64_t left_;        // bytes to be read from the reader
    uint64_t padding_ = 0; // zero bits put behind the end
    bool sourceEnded_ = false;
    uint8_t buffer_[4096];
};
