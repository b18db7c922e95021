#pragma once

#include "files/byte_stream.h"

// Reads a source in blocks, so that small reads and short seeks forward cost no call of the system. Whole
// blocks go past the buffer.
class BufferedReader final : public ByteReader
{
public:
    explicit BufferedReader(ByteReader& source) noexcept : source_(source) {}
    BufferedReader(const BufferedReader&) = delete;
    BufferedReader& operator=(const BufferedReader&) = delete;

    size_t Read(void* buffer, size_t size) noexcept override
    {
        auto* to = static_cast<uint8_t*>(buffer);
        size_t kept = TakeKept(to, size);
        if (kept == size)
            return kept;
        used_ = filled_ = 0;
        if (size - kept >= BlockSize)
            return kept + source_.Read(to + kept, size - kept);
        filled_ = source_.Read(block_, BlockSize);
        return kept + TakeKept(to + kept, size - kept);
    }
    bool Seek(uint64_t position) noexcept override
    {
        uint64_t blockStart = source_.Position() - filled_;
        if (position >= blockStart && position <= source_.Position()) {
            used_ = static_cast<size_t>(position - blockStart);
            return true;
        }
        used_ = filled_ = 0;
        return source_.Seek(position);
    }
    uint64_t Position() const noexcept override { return source_.Position() - (filled_ - used_); }
    uint64_t Size() const noexcept override { return source_.Size(); }

    static constexpr size_t BlockSize = 4096;

private:
    size_t TakeKept(uint8_t* to, size_t size) noexcept
    {
        size_t count = size < filled_ - used_ ? size : filled_ - used_;
        if (count)
            std::memcpy(to, block_ + used_, count);
        used_ += count;
        return count;
    }

    ByteReader& source_;
    size_t used_ = 0, filled_ = 0;
    uint8_t block_[BlockSize];
};
