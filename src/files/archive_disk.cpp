#include "files/archive_files.h"
#include "files/file_stream.h"

#include <algorithm>
#include <new>

namespace
{
class DiskSource final : public ArchiveSourceFile
{
public:
    DiskSource(const wchar_t* path, DWORD share) noexcept : file_(path, share) {}
    bool IsOpen() const noexcept { return file_.IsOpen(); }

    size_t Read(void* buffer, size_t size) noexcept override { return file_.Read(buffer, size); }
    bool Seek(uint64_t position) noexcept override { return file_.Seek(position); }
    uint64_t Position() const noexcept override { return file_.Position(); }
    uint64_t Size() const noexcept override { return file_.Size(); }
    uint32_t ModificationTime() const noexcept override
    {
        constexpr int64_t unitsPerSecond = 10000000, secondsTo1970 = 11644473600;
        FILETIME written = file_.LastWriteTime();
        int64_t units = static_cast<int64_t>(written.dwHighDateTime) << 32 | written.dwLowDateTime;
        int64_t seconds = units / unitsPerSecond - secondsTo1970;
        return static_cast<uint32_t>(std::clamp<int64_t>(seconds, 0, UINT32_MAX));
    }

private:
    FileReader file_;
};

class DiskTarget final : public ArchiveTargetFile
{
public:
    explicit DiskTarget(const wchar_t* path) noexcept : file_(path) {}
    bool IsOpen() const noexcept { return file_.IsOpen(); }

    bool Write(const void* bytes, size_t size) noexcept override { return file_.Write(bytes, size); }
    uint64_t Position() const noexcept override { return file_.Position(); }
    bool Seek(uint64_t position) noexcept override { return file_.Seek(position); }
    bool Close() noexcept override { return file_.Close(); }

private:
    FileWriter file_;
};

template<class File> std::unique_ptr<File> OnlyOpen(std::unique_ptr<File> file) noexcept
{
    if (file && !file->IsOpen())
        file.reset();
    return file;
}

std::unique_ptr<DiskSource> OpenShared(const wchar_t* path, DWORD share) noexcept
{
    return OnlyOpen(std::unique_ptr<DiskSource>(new (std::nothrow) DiskSource(path, share)));
}

class Disk final : public ArchiveFiles
{
public:
    std::unique_ptr<ArchiveSourceFile> OpenArchive(const wchar_t* path, bool& missing) noexcept override
    {
        SetLastError(0);
        auto file = OpenShared(path, FILE_SHARE_READ);
        missing = !file && GetLastError() == ERROR_FILE_NOT_FOUND;
        return file;
    }
    std::unique_ptr<ArchiveSourceFile> OpenSource(const wchar_t* path) noexcept override
    {
        return OpenShared(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    }
    std::unique_ptr<ArchiveTargetFile> OpenTarget(const wchar_t* path) noexcept override
    {
        return OnlyOpen(std::unique_ptr<DiskTarget>(new (std::nothrow) DiskTarget(path)));
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
