#pragma once

#include "files/byte_stream.h"

// Gathers small writes. A failure is remembered: Finish tells whether everything was written.
class BufferedWriter
{
public:
    explicit BufferedWriter(ByteWriter& target) noexcept : target_(target) {}
    BufferedWriter(const BufferedWriter&) = delete;
    BufferedWriter& operator=(const BufferedWriter&) = delete;

    void Put(uint8_t byte) noexcept
    {
        if (used_ == BlockSize)
            Flush();
        block_[used_++] = byte;
    }

    void Write(const void* bytes, size_t size) noexcept
    {
        if (size > BlockSize - used_)
            Flush();
        if (size > BlockSize) {
            Pass(bytes, size);
            return;
        }
        std::memcpy(block_ + used_, bytes, size);
        used_ += size;
    }

    // Room for `size` bytes, at most BlockSize, which Commit takes.
    uint8_t* Reserve(size_t size) noexcept
    {
        if (size > BlockSize - used_)
            Flush();
        return block_ + used_;
    }
    void Commit(size_t size) noexcept { used_ += size; }

    bool Finish() noexcept
    {
        Flush();
        return !failed_;
    }

    static constexpr size_t BlockSize = 1 << 16;

private:
    void Pass(const void* bytes, size_t size) noexcept { failed_ = failed_ || !target_.Write(bytes, size); }
    void Flush() noexcept
    {
        if (used_)
            Pass(block_, used_);
        used_ = 0;
    }

    ByteWriter& target_;
    size_t used_ = 0;
    bool failed_ = false;
    uint8_t block_[BlockSize];
};
