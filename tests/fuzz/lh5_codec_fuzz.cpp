// sources: files/crc16.cpp files/lh5_bits.cpp files/lh5_block.cpp files/lh5_decoder.cpp files/lh5_encoder.cpp
// sources: files/lh5_huffman.cpp files/lh5_memory.cpp files/lh5_tree.cpp
// Data of every shape comes back as it was. An input is a list of literals and of runs of an earlier piece,
// so that small inputs make data larger than the window.
#include "files/lh5_decoder.h"
#include "files/lh5_encoder.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace
{
constexpr size_t LargestData = 1 << 16;

void* Allocate(size_t count, size_t size) noexcept
{
    return std::calloc(count, size);
}
void Free(void* block) noexcept
{
    std::free(block);
}

// 0xFF takes three more bytes: where an earlier piece begins, counted back, and how long it is.
std::vector<uint8_t> Expand(const uint8_t* data, size_t size)
{
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i < size && bytes.size() < LargestData; ++i) {
        if (data[i] != 0xFF || i + 3 >= size || bytes.empty()) {
            bytes.push_back(data[i]);
            continue;
        }
        size_t back = (data[i + 1] | data[i + 2] << 8) % bytes.size() + 1;
        for (size_t left = data[i + 3] * 8u + 1; left > 0; --left)
            bytes.push_back(bytes[bytes.size() - back]);
        i += 3;
    }
    return bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<uint8_t> bytes = Expand(data, size);
    Lh5Memory memory({Allocate, Free});
    if (!memory.Allocate())
        return 0;
    MemoryReader source(bytes.data(), bytes.size());
    MemoryWriter packed;
    Lh5Encoded encoded = EncodeLh5(source, packed, UINT64_MAX, memory);
    if (encoded.SourceSize != bytes.size() || encoded.PackedSize != packed.Bytes.size())
        std::abort();
    MemoryReader reader(packed.Bytes.data(), packed.Bytes.size());
    auto decoder = std::make_unique<Lh5Decoder>(reader, packed.Bytes.size());
    for (size_t at = 0; at < bytes.size(); at += lh5::Window) {
        size_t count = std::min<size_t>(lh5::Window, bytes.size() - at);
        if (!decoder->Decode(static_cast<int>(count)) ||
            std::memcmp(decoder->Chunk, bytes.data() + at, count) != 0)
            std::abort();
    }
    return 0;
}
