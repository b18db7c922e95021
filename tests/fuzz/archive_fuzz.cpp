// sources: files/archive_header.cpp files/archive_entry.cpp files/crc16.cpp files/lh5_bits.cpp
// sources: files/lh5_block.cpp files/lh5_decoder.cpp files/lh5_encoder.cpp files/lh5_huffman.cpp
// sources: files/lh5_memory.cpp files/lh5_tree.cpp
// Archives of every shape, walked as a listing does, each entry extracted and copied: headers lie within
// their bytes, the reader ends where the header says, and a copied entry is the entry.
#include "files/archive_entry.h"

#include <cstdlib>
#include <cstring>

namespace
{
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// Counts, and is full after a while: a wild size must not keep the fuzzer busy.
class Sink final : public ByteWriter
{
public:
    bool Write(const void*, size_t size) noexcept override
    {
        Written += size;
        return Written <= 1 << 18;
    }
    size_t Written = 0;
};

void CheckHeader(const ArchiveHeader& header)
{
    Require(header.Size() >= ArchiveHeader::SizeWithoutName && header.Size() <= 257);
    Require(header.Name().size() <= ArchiveHeader::LongestName);
    Require(header.Size() == ArchiveHeader::SizeWithoutName + static_cast<int>(header.Name().size()));
    char method = header.Method();
    Require(!method || method == '0' || method == '4' || method == '5');
}

void CheckExtraction(MemoryReader reader, const ArchiveHeader& header)
{
    Sink sink;
    if (ExtractEntry(reader, header, sink) == ArchiveResult::Ok)
        Require(sink.Written == header.OriginalSize());
}

void CheckCopy(MemoryReader reader, const ArchiveHeader& header, const uint8_t* data)
{
    uint64_t behindHeader = reader.Position();
    MemoryWriter copy;
    if (CopyEntry(reader, header, copy) != ArchiveResult::Ok)
        return;
    Require(reader.Position() == behindHeader + header.PackedSize());
    Require(std::memcmp(copy.Bytes.data(), data + behindHeader - header.Size(), copy.Bytes.size()) == 0);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    MemoryReader reader(data, size);
    ArchiveHeader header;
    bool end = false;
    while (ReadArchiveHeader(reader, header, end) == ArchiveResult::Ok && !end) {
        CheckHeader(header);
        CheckExtraction(reader, header);
        CheckCopy(reader, header, data);
        MemoryReader extended = reader;
        uint32_t dataSize = 0;
        if (SkipExtendedHeaders(extended, header, dataSize) == ArchiveResult::Ok)
            Require(extended.Position() + dataSize == reader.Position() + header.PackedSize());
        Require(SkipEntry(reader, header) == ArchiveResult::Ok);
    }
    return 0;
}
