#include "files/file_stream.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr DWORD SharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

HANDLE OpenFile(const wchar_t* name, DWORD access, DWORD share, DWORD disposition) noexcept
{
    if (!name || !*name)
        return INVALID_HANDLE_VALUE;
    return CreateFileW(name, access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool SeekFile(HANDLE file, uint64_t position) noexcept
{
    LARGE_INTEGER distance = {};
    distance.QuadPart = static_cast<LONGLONG>(position);
    return SetFilePointerEx(file, distance, nullptr, FILE_BEGIN) != FALSE;
}
} // namespace

FileReader::FileReader(const wchar_t* name, DWORD share) noexcept
    : file_(OpenFile(name, GENERIC_READ, share, OPEN_EXISTING))
{
    if (IsOpen() && GetFileType(file_) != FILE_TYPE_DISK) {
        CloseHandle(file_);
        file_ = INVALID_HANDLE_VALUE;
    }
}

FileReader::~FileReader()
{
    if (IsOpen())
        CloseHandle(file_);
}

size_t FileReader::Read(void* buffer, size_t size) noexcept
{
    DWORD count = 0;
    if (!ReadFile(file_, buffer, static_cast<DWORD>(std::min<size_t>(size, MAXDWORD)), &count, nullptr))
        return 0;
    position_ += count;
    return count;
}

bool FileReader::Seek(uint64_t position) noexcept
{
    if (!SeekFile(file_, position))
        return false;
    position_ = position;
    return true;
}

uint64_t FileReader::Size() const noexcept
{
    LARGE_INTEGER size = {};
    return GetFileSizeEx(file_, &size) ? static_cast<uint64_t>(size.QuadPart) : 0;
}

FILETIME FileReader::LastWriteTime() const noexcept
{
    FILETIME time = {};
    return GetFileTime(file_, nullptr, nullptr, &time) ? time : FILETIME{};
}

FileWriter::FileWriter(const wchar_t* name) noexcept
    : file_(OpenFile(name, GENERIC_WRITE, SharedWithAll, CREATE_ALWAYS))
{
}

FileWriter::~FileWriter()
{
    (void)Close();
}

bool FileWriter::Close() noexcept
{
    HANDLE file = std::exchange(file_, INVALID_HANDLE_VALUE);
    return file == INVALID_HANDLE_VALUE || CloseHandle(file);
}

bool FileWriter::Seek(uint64_t position) noexcept
{
    if (!SeekFile(file_, position))
        return false;
    position_ = position;
    return true;
}

bool FileWriter::Write(const void* bytes, size_t size) noexcept
{
    const auto* from = static_cast<const uint8_t*>(bytes);
    while (size) {
        DWORD count = 0;
        DWORD part = static_cast<DWORD>(std::min<size_t>(size, MAXDWORD));
        if (!WriteFile(file_, from, part, &count, nullptr) || count == 0)
            return false;
        from += count;
        size -= count;
        position_ += count;
    }
    return true;
}
