#pragma once

#include "files/byte_stream.h"

#include <windows.h>

// A file on disk, open for reading. A device is none: it could go on for ever.
class FileReader final : public ByteReader
{
public:
    // `share` tells what others may do meanwhile.
    explicit FileReader(const wchar_t* name, DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE) noexcept;
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;
    ~FileReader();

    bool IsOpen() const noexcept { return file_ != INVALID_HANDLE_VALUE; }
    size_t Read(void* buffer, size_t size) noexcept override;
    bool Seek(uint64_t position) noexcept override;
    uint64_t Position() const noexcept override { return position_; }
    uint64_t Size() const noexcept override;
    // UTC; 0 when it is not known.
    FILETIME LastWriteTime() const noexcept;

private:
    HANDLE file_;
    uint64_t position_ = 0;
};

// A new file, or an old one emptied.
class FileWriter final : public ByteWriter
{
public:
    explicit FileWriter(const wchar_t* name) noexcept;
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;
    ~FileWriter();

    bool IsOpen() const noexcept { return file_ != INVALID_HANDLE_VALUE; }
    bool Write(const void* bytes, size_t size) noexcept override;
    [[nodiscard]] bool Seek(uint64_t position) noexcept;
    uint64_t Position() const noexcept { return position_; }
    // False when not everything that was written arrived.
    [[nodiscard]] bool Close() noexcept;

private:
    HANDLE file_;
    uint64_t position_ = 0;
};
