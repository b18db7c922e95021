#include "files/archive_files.h"

#include <windows.h>

#include <algorithm>
#include <new>

namespace
{
// Owner of a file's handle.
class DiskFile
{
public:
    explicit DiskFile(HANDLE handle) noexcept : handle_(handle) {}
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;
    ~DiskFile() { (void)Close(); }

    // A device could go on for ever.
    bool IsGood() const noexcept
    {
        return handle_ != INVALID_HANDLE_VALUE && GetFileType(handle_) == FILE_TYPE_DISK;
    }
    HANDLE Get() const noexcept { return handle_; }
    bool Close() noexcept
    {
        HANDLE handle = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle);
    }
    bool Seek(uint64_t position) const noexcept
    {
        LARGE_INTEGER to = {};
        to.QuadPart = static_cast<LONGLONG>(position);
        return SetFilePointerEx(handle_, to, nullptr, FILE_BEGIN) != FALSE;
    }

private:
    HANDLE handle_;
};

class DiskSource final : public ArchiveSourceFile
{
public:
    explicit DiskSource(HANDLE handle) noexcept : file_(handle) {}
    bool IsGood() const noexcept { return file_.IsGood(); }

    size_t Read(void* buffer, size_t size) noexcept override
    {
        DWORD count = 0;
        if (!ReadFile(file_.Get(), buffer, static_cast<DWORD>(std::min<size_t>(size, MAXDWORD)), &count,
                      nullptr))
            return 0;
        position_ += count;
        return count;
    }
    bool Seek(uint64_t position) noexcept override
    {
        if (!file_.Seek(position))
            return false;
        position_ = position;
        return true;
    }
    uint64_t Position() const noexcept override { return position_; }
    uint64_t Size() const noexcept override
    {
        LARGE_INTEGER size = {};
        return GetFileSizeEx(file_.Get(), &size) ? static_cast<uint64_t>(size.QuadPart) : 0;
    }
    uint32_t ModificationTime() const noexcept override
    {
        FILETIME written = {};
        if (!GetFileTime(file_.Get(), nullptr, nullptr, &written))
            return 0;
        constexpr int64_t unitsPerSecond = 10000000, secondsTo1970 = 11644473600;
        int64_t units = static_cast<int64_t>(written.dwHighDateTime) << 32 | written.dwLowDateTime;
        return static_cast<uint32_t>(
            std::clamp<int64_t>(units / unitsPerSecond - secondsTo1970, 0, UINT32_MAX));
    }

private:
    DiskFile file_;
    uint64_t position_ = 0;
};

class DiskTarget final : public ArchiveTargetFile
{
public:
    explicit DiskTarget(HANDLE handle) noexcept : file_(handle) {}
    bool IsGood() const noexcept { return file_.IsGood(); }

    bool Write(const void* bytes, size_t size) noexcept override
    {
        DWORD count = 0;
        if (size > MAXDWORD || !WriteFile(file_.Get(), bytes, static_cast<DWORD>(size), &count, nullptr) ||
            count != size)
            return false;
        position_ += size;
        return true;
    }
    uint64_t Position() const noexcept override { return position_; }
    bool Seek(uint64_t position) noexcept override
    {
        if (!file_.Seek(position))
            return false;
        position_ = position;
        return true;
    }
    bool Close() noexcept override { return file_.Close(); }

private:
    DiskFile file_;
    uint64_t position_ = 0;
};

// The object over a handle, which it owns; null when it is no good.
template<class File> std::unique_ptr<File> Wrap(HANDLE handle) noexcept
{
    std::unique_ptr<File> file(new (std::nothrow) File(handle));
    if (!file && handle != INVALID_HANDLE_VALUE)
        CloseHandle(handle);
    if (file && !file->IsGood())
        file.reset();
    return file;
}

HANDLE OpenFile(const wchar_t* path, DWORD access, DWORD share, DWORD disposition) noexcept
{
    return CreateFileW(path, access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

class Disk final : public ArchiveFiles
{
public:
    std::unique_ptr<ArchiveSourceFile> OpenArchive(const wchar_t* path, bool& missing) noexcept override
    {
        HANDLE handle = OpenFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        missing = handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_NOT_FOUND;
        return Wrap<DiskSource>(handle);
    }
    std::unique_ptr<ArchiveSourceFile> OpenSource(const wchar_t* path) noexcept override
    {
        constexpr DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        return Wrap<DiskSource>(OpenFile(path, GENERIC_READ, all, OPEN_EXISTING));
    }
    std::unique_ptr<ArchiveTargetFile> OpenTarget(const wchar_t* path) noexcept override
    {
        return Wrap<DiskTarget>(OpenFile(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS));
    }
    void Remove(const wchar_t* path) noexcept override { DeleteFileW(path); }
    bool Replace(const wchar_t* path, const wchar_t* replacement) noexcept override
    {
        return MoveFileExW(replacement, path, MOVEFILE_REPLACE_EXISTING) != FALSE;
    }
};
} // namespace

ArchiveFiles& DiskFiles() noexcept
{
    static Disk disk;
    return disk;
}
