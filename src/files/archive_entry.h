#pragma once
// What is done with one entry of an archive. The readers stand behind the entry's header.

#include "files/archive_header.h"
#include "files/lh5_memory.h"

// An archive being written: headers are filled in once the data is there.
class ArchiveOutput : public ByteWriter
{
public:
    virtual uint64_t Position() const noexcept = 0;
    [[nodiscard]] virtual bool Seek(uint64_t position) noexcept = 0;

protected:
    ~ArchiveOutput() = default;
};

// Chunks that data is copied and decoded in.
constexpr int ArchiveChunk = lh5::Window;

// Writes an entry with the data of `source`; `header` has name and time. Data that does not shrink is stored
// as it is.
[[nodiscard]] ArchiveResult AddEntry(ByteReader& source, ArchiveHeader header, bool compress,
                                     ArchiveOutput& archive, Lh5Memory& memory) noexcept;
// Writes what the entry was made of. What was written stays, even if the CRC then differs.
[[nodiscard]] ArchiveResult ExtractEntry(ByteReader& archive, const ArchiveHeader& header,
                                         ByteWriter& output) noexcept;
// Copies header, extended headers and data as they are.
[[nodiscard]] ArchiveResult CopyEntry(ByteReader& archive, const ArchiveHeader& header,
                                      ByteWriter& output) noexcept;
[[nodiscard]] ArchiveResult SkipEntry(ByteReader& archive, const ArchiveHeader& header) noexcept;
