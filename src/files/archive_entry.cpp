#include "files/archive_entry.h"

#include "files/crc16.h"
#include "files/lh5_decoder.h"
#include "files/lh5_encoder.h"

#include <algorithm>

namespace
{
using enum ArchiveResult;

constexpr uint64_t LargestSize = UINT32_MAX;

// The source as it is; what was read replaces the results of the encoder.
ArchiveResult StoreRaw(ByteReader& source, ByteWriter& archive, Lh5Encoded& stored) noexcept
{
    stored = {};
    uint8_t chunk[ArchiveChunk];
    for (;;) {
        size_t size = source.Read(chunk, sizeof chunk);
        if (size == 0)
            return Ok;
        if (!archive.Write(chunk, size))
            return CannotWrite;
        stored.Crc = UpdateCrc16(stored.Crc, chunk, size);
        stored.SourceSize = stored.PackedSize += size;
    }
}

// Hands `size` bytes to `take` in chunks; `fill` gets each from somewhere and returns it, or a failure.
template<class Fill, class Take>
ArchiveResult ForChunks(uint32_t size, const Fill& fill, const Take& take) noexcept
{
    while (size > 0) {
        int count = static_cast<int>(std::min<uint32_t>(size, ArchiveChunk));
        const uint8_t* chunk = nullptr;
        if (ArchiveResult filled = fill(count, chunk); filled != Ok)
            return filled;
        if (!take(chunk, static_cast<size_t>(count)))
            return CannotWrite;
        size -= static_cast<uint32_t>(count);
    }
    return Ok;
}

template<class Take> ArchiveResult ForRawChunks(ByteReader& archive, uint32_t size, const Take& take) noexcept
{
    uint8_t buffer[ArchiveChunk];
    auto fill = [&](int count, const uint8_t*& chunk) {
        chunk = buffer;
        auto wanted = static_cast<size_t>(count);
        return archive.Read(buffer, wanted) == wanted ? Ok : NotFound;
    };
    return ForChunks(size, fill, take);
}

template<class Take>
ArchiveResult ForDecodedChunks(ByteReader& archive, uint32_t packedSize, uint32_t size,
                               const Take& take) noexcept
{
    Lh5Decoder decoder(archive, packedSize);
    auto fill = [&](int count, const uint8_t*& chunk) {
        chunk = decoder.Chunk;
        if (decoder.Decode(count))
            return Ok;
        return decoder.SourceEnded() ? NotFound : BadArchive;
    };
    return ForChunks(size, fill, take);
}
} // namespace

ArchiveResult AddEntry(ByteReader& source, ArchiveHeader header, bool compress, ArchiveOutput& archive,
                       Lh5Memory& memory) noexcept
{
    uint64_t size = source.Size();
    uint64_t start = archive.Position();
    if (size > LargestSize || !WriteArchiveHeader(archive, header))
        return CannotWrite;
    uint64_t data = archive.Position();
    Lh5Encoded packed = EncodeLh5(source, archive, size, memory);
    if (packed.Failed)
        return CannotWrite;
    bool raw = !compress || packed.Full;
    if (raw) {
        if (!source.Seek(0))
            return NotFound;
        if (!archive.Seek(data))
            return CannotWrite;
        if (ArchiveResult stored = StoreRaw(source, archive, packed); stored != Ok)
            return stored;
    }
    if (packed.SourceSize < size)
        return NotFound;
    if (packed.SourceSize > LargestSize)
        return CannotWrite;
    header.SetData(raw ? ArchiveHeader::Stored : ArchiveHeader::Compressed,
                   static_cast<uint32_t>(packed.PackedSize), static_cast<uint32_t>(packed.SourceSize),
                   packed.Crc);
    bool written =
        archive.Seek(start) && WriteArchiveHeader(archive, header) && archive.Seek(data + packed.PackedSize);
    return written ? Ok : CannotWrite;
}

ArchiveResult ExtractEntry(ByteReader& archive, const ArchiveHeader& header, ByteWriter& output) noexcept
{
    char method = header.Method();
    if (!method)
        return BadArchive;
    uint32_t packedSize = 0, size = header.OriginalSize();
    if (ArchiveResult skipped = SkipExtendedHeaders(archive, header, packedSize); skipped != Ok)
        return skipped;
    uint16_t crc = 0;
    auto take = [&](const uint8_t* chunk, size_t count) {
        crc = UpdateCrc16(crc, chunk, count);
        return output.Write(chunk, count);
    };
    bool raw = method == ArchiveHeader::Stored;
    ArchiveResult written = raw ? ForRawChunks(archive, std::min(packedSize, size), take)
                                : ForDecodedChunks(archive, packedSize, size, take);
    if (written != Ok)
        return written;
    return crc == header.Crc() && (!raw || packedSize >= size) ? Ok : BadArchive;
}

ArchiveResult CopyEntry(ByteReader& archive, const ArchiveHeader& header, ByteWriter& output) noexcept
{
    if (!WriteArchiveHeader(output, header))
        return CannotWrite;
    return ForRawChunks(archive, header.PackedSize(),
                        [&](const uint8_t* chunk, size_t count) { return output.Write(chunk, count); });
}

ArchiveResult SkipEntry(ByteReader& archive, const ArchiveHeader& header) noexcept
{
    return archive.Seek(archive.Position() + header.PackedSize()) ? Ok : NotFound;
}
