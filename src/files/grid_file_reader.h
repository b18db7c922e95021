#pragma once

#include "files/byte_stream.h"

// Longest text that a file's strings are read to, in UTF-16 units; the rest of a longer one is the next text.
constexpr size_t MaxFileText = 65536;

// Reads records and texts one after the other. Past the end of the file records keep what they hold, and
// texts are empty: a file that ends early is no failure.
class GridFileReader
{
public:
    explicit GridFileReader(ByteReader& source) noexcept : source_(source) {}
    GridFileReader(const GridFileReader&) = delete;
    GridFileReader& operator=(const GridFileReader&) = delete;

    // False when the end came first; the bytes that were there are read.
    template<class Record> bool ReadRecord(Record& record) noexcept
    {
        return ReadBytes(&record, sizeof(Record));
    }

    // The bytes up to the next zero, each as one unit. Good until the next text is read.
    struct Text {
        const wchar_t* Units; // terminated
        int Length;
    };
    Text ReadText() noexcept;

    // Whether a read came to the end.
    bool Ended() const noexcept { return ended_; }
    uint64_t FileSize() const noexcept { return source_.Size(); }

private:
    bool ReadBytes(void* target, size_t size) noexcept;
    bool Fill() noexcept;
    bool TakeText(size_t& length, size_t room) noexcept;

    static constexpr size_t BlockSize = 1 << 16;

    ByteReader& source_;
    size_t at_ = 0, end_ = 0;
    bool ended_ = false;
    uint8_t block_[BlockSize];
    wchar_t text_[MaxFileText + 1];
};
