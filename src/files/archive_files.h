#pragma once
// The files that a command on an archive works with. Tests have their own, which fail when told to.

#include "files/archive_entry.h"

#include <memory>

// A file open for reading.
class ArchiveSourceFile : public ByteReader
{
public:
    virtual ~ArchiveSourceFile() = default;
    // Of the last change: seconds since 1970, UTC.
    virtual uint32_t ModificationTime() const noexcept = 0;
};

// A new file, or an old one emptied.
class ArchiveTargetFile : public ArchiveOutput
{
public:
    virtual ~ArchiveTargetFile() = default;
    // False when not everything that was written arrived.
    [[nodiscard]] virtual bool Close() noexcept = 0;
};

class ArchiveFiles
{
public:
    // Null when the file cannot be opened; `missing` tells that there is none. While it is open nobody can
    // write to it: an entry is not extracted over its own archive.
    virtual std::unique_ptr<ArchiveSourceFile> OpenArchive(const wchar_t* path, bool& missing) noexcept = 0;
    // Null when the file cannot be opened.
    virtual std::unique_ptr<ArchiveSourceFile> OpenSource(const wchar_t* path) noexcept = 0;
    // Null when the file cannot be made.
    virtual std::unique_ptr<ArchiveTargetFile> OpenTarget(const wchar_t* path) noexcept = 0;
    virtual void Remove(const wchar_t* path) noexcept = 0;
    // `path` becomes the file `replacement`; on failure both are as they were.
    [[nodiscard]] virtual bool Replace(const wchar_t* path, const wchar_t* replacement) noexcept = 0;

protected:
    ~ArchiveFiles() = default;
};

// The files on disk.
ArchiveFiles& DiskFiles() noexcept;
