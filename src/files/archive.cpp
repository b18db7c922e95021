#include "files/archive.h"

#include "files/archive_name.h"
#include "files/buffered_reader.h"
#include "platform/memory.h"

#include <cwchar>
#include <utility>

namespace
{
using enum ArchiveResult;

// The archive's path up to its first dot, which may be one in the name of a folder: the file lies beside that
// folder then.
OwnedText TemporaryPath(const wchar_t* archivePath) noexcept
{
    return JoinText(archivePath, std::wcscspn(archivePath, L"."), L".@#$");
}

// The archive in the making. Until it replaces the old one, it can vanish without a trace.
class NewArchive
{
public:
    NewArchive(ArchiveFiles& files, const wchar_t* archivePath) noexcept
        : files_(files), archivePath_(archivePath), path_(TemporaryPath(archivePath))
    {
    }
    NewArchive(const NewArchive&) = delete;
    NewArchive& operator=(const NewArchive&) = delete;
    ~NewArchive()
    {
        if (!output_)
            return;
        output_.reset();
        if (!replaced_)
            files_.Remove(path_.get());
    }

    // Neither the archive nor the file to be added may be what the temporary file is made over.
    ArchiveResult Open(const wchar_t* filePath) noexcept
    {
        if (!path_)
            return OutOfMemory;
        if (!IsSamePath(path_.get(), archivePath_) && !IsSamePath(path_.get(), filePath))
            output_ = files_.OpenTarget(path_.get());
        return output_ ? Ok : NotFound;
    }

    ArchiveOutput& Output() noexcept { return *output_; }

    ArchiveResult ReplaceOld() noexcept
    {
        const uint8_t end = 0;
        bool written = output_->Write(&end, 1);
        replaced_ = output_->Close() && written && files_.Replace(archivePath_, path_.get());
        return replaced_ ? Ok : CannotWrite;
    }

private:
    ArchiveFiles& files_;
    const wchar_t* archivePath_;
    OwnedText path_;
    std::unique_ptr<ArchiveTargetFile> output_;
    bool replaced_ = false;
};

// Calls `visit` with each header, which has to take the reader behind the entry and tells whether to go on.
template<class Visit> ArchiveResult ForEntries(ByteReader& archive, const Visit& visit) noexcept
{
    for (;;) {
        ArchiveHeader header;
        bool end = false;
        if (ArchiveResult read = ReadArchiveHeader(archive, header, end); read != Ok || end)
            return read;
        bool goOn = true;
        if (ArchiveResult visited = visit(header, goOn); visited != Ok || !goOn)
            return visited;
    }
}

// Everything but the entries with that name; `dropped` tells whether there were some.
ArchiveResult CopyOthers(ByteReader& archive, const EntryName& name, ByteWriter& output,
                         bool& dropped) noexcept
{
    return ForEntries(archive, [&](const ArchiveHeader& header, bool&) {
        if (!name.Names(header))
            return CopyEntry(archive, header, output);
        dropped = true;
        return SkipEntry(archive, header);
    });
}

ArchiveResult AddToArchive(ArchiveFiles& files, const wchar_t* path, const EntryName& name, bool compress,
                           ArchiveOutput& output, Lh5Memory& memory) noexcept
{
    std::unique_ptr<ArchiveSourceFile> source = files.OpenSource(path);
    if (!source)
        return NotFound;
    ArchiveHeader header;
    if (name.IsTooLong() || !header.Begin(name.Text(), source->ModificationTime()))
        return CannotWrite;
    return name.IsKnown() ? AddEntry(*source, header, compress, output, memory) : NotFound;
}

ArchiveResult ExtractFrom(ArchiveFiles& files, ByteReader& archive, const wchar_t* path,
                          const EntryName& name) noexcept
{
    return ForEntries(archive, [&](const ArchiveHeader& header, bool& goOn) {
        if (!name.Names(header))
            return SkipEntry(archive, header);
        goOn = false;
        std::unique_ptr<ArchiveTargetFile> output = files.OpenTarget(path);
        if (!output)
            return CannotWrite;
        ArchiveResult extracted = ExtractEntry(archive, header, *output);
        return output->Close() || extracted != Ok ? extracted : CannotWrite;
    });
}

// Adding and deleting: everything goes into a new archive, which replaces the old one if that makes a
// difference. A new entry leads the archive.
ArchiveResult Rewrite(ArchiveFiles& files, std::unique_ptr<ArchiveSourceFile> old, const wchar_t* archivePath,
                      const wchar_t* filePath, bool add, bool compress, Lh5Memory& memory) noexcept
{
    EntryName name(filePath);
    NewArchive fresh(files, archivePath);
    if (ArchiveResult opened = fresh.Open(filePath); opened != Ok)
        return opened;
    bool changed = add;
    if (add) {
        ArchiveResult added = AddToArchive(files, filePath, name, compress, fresh.Output(), memory);
        if (added != Ok)
            return added;
    }
    if (old) {
        BufferedReader archive(*old);
        if (ArchiveResult copied = CopyOthers(archive, name, fresh.Output(), changed); copied != Ok)
            return copied;
        old.reset();
    }
    return changed ? fresh.ReplaceOld() : Ok;
}
} // namespace

ArchiveResult RunArchiveCommand(ArchiveFiles& files, const wchar_t* archivePath, const wchar_t* filePath,
                                ArchiveCommand command, bool compress) noexcept
{
    Lh5Memory memory({AllocateZeroed, FreeBlock});
    if (!memory.Allocate())
        return OutOfMemory;
    bool missing = false;
    std::unique_ptr<ArchiveSourceFile> archive = files.OpenArchive(archivePath, missing);
    bool add = command == ArchiveCommand::Add;
    if (!archive && !(add && missing))
        return NotFound;
    if (command != ArchiveCommand::Extract)
        return Rewrite(files, std::move(archive), archivePath, filePath, add, compress, memory);
    BufferedReader reader(*archive);
    return ExtractFrom(files, reader, filePath, EntryName(filePath));
}

ArchiveResult CountEntries(ArchiveFiles& files, const wchar_t* archivePath, int& count) noexcept
{
    count = 0;
    bool missing = false;
    std::unique_ptr<ArchiveSourceFile> archive = files.OpenArchive(archivePath, missing);
    if (!archive)
        return NotFound;
    BufferedReader reader(*archive);
    ArchiveResult walked = ForEntries(reader, [&](const ArchiveHeader& header, bool&) {
        ++count;
        return SkipEntry(reader, header);
    });
    return count > 0 ? Ok : walked;
}

ArchiveResult ReadEntry(ArchiveFiles& files, const wchar_t* archivePath, int index, ArchiveHeader& header,
                        uint32_t& packedSize) noexcept
{
    bool missing = false;
    std::unique_ptr<ArchiveSourceFile> archive = files.OpenArchive(archivePath, missing);
    if (!archive)
        return NotFound;
    BufferedReader reader(*archive);
    bool found = false;
    ArchiveResult walked = ForEntries(reader, [&](const ArchiveHeader& each, bool& goOn) {
        found = index-- == 0;
        goOn = !found;
        if (!found)
            return SkipEntry(reader, each);
        header = each;
        return SkipExtendedHeaders(reader, each, packedSize);
    });
    return found || walked != Ok ? walked : BadArchive;
}
