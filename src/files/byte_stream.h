#pragma once
// Bytes from somewhere and to somewhere. Readers and writers of file formats know these interfaces and
// nothing of files, so that tests and fuzzers feed them memory. Both are buffered by whoever uses them: a
// call may be a call of the system.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

class ByteReader
{
public:
    // Reads the next bytes; fewer than asked for only at the end, or when the source fails.
    [[nodiscard]] virtual size_t Read(void* buffer, size_t size) noexcept = 0;
    // Goes to a position from the start; one past the end reads nothing. False when the source fails.
    [[nodiscard]] virtual bool Seek(uint64_t position) noexcept = 0;
    virtual uint64_t Position() const noexcept = 0;
    // Bytes in all.
    virtual uint64_t Size() const noexcept = 0;

protected:
    ~ByteReader() = default;
};

class ByteWriter
{
public:
    // False when not all of the bytes could be written.
    [[nodiscard]] virtual bool Write(const void* bytes, size_t size) noexcept = 0;

protected:
    ~ByteWriter() = default;
};

// Reads memory of the caller.
class MemoryReader final : public ByteReader
{
public:
    MemoryReader(const void* bytes, size_t size) noexcept
        : bytes_(static_cast<const uint8_t*>(bytes)), size_(size)
    {
    }

    size_t Read(void* buffer, size_t size) noexcept override
    {
        size_t left = position_ < size_ ? size_ - position_ : 0;
        size_t count = size < left ? size : left;
        if (count)
            std::memcpy(buffer, bytes_ + position_, count);
        position_ += count;
        return count;
    }
    bool Seek(uint64_t position) noexcept override
    {
        position_ = position < size_ ? static_cast<size_t>(position) : size_;
        return true;
    }
    uint64_t Position() const noexcept override { return position_; }
    uint64_t Size() const noexcept override { return size_; }

private:
    const uint8_t* bytes_;
    size_t size_;
    size_t position_ = 0;
};

// Keeps what is written.
class MemoryWriter final : public ByteWriter
{
public:
    bool Write(const void* bytes, size_t size) noexcept override
    {
        try {
            const auto* first = static_cast<const uint8_t*>(bytes);
            Bytes.insert(Bytes.end(), first, first + size);
            return true;
        } catch (...) {
            return false;
        }
    }

    std::vector<uint8_t> Bytes;
};

// Little-endian numbers in bytes that may lie anywhere.
template<class Number> Number LoadNumber(const uint8_t* bytes) noexcept
{
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}
template<class Number> void StoreNumber(uint8_t* bytes, Number number) noexcept
{
    std::memcpy(bytes, &number, sizeof number);
}
