// sources: files/lh5_decoder.cpp files/lh5_bits.cpp
// Packed data of every shape: decoding ends, and does so in the same way when the source hands out its bytes
// one by one.
#include "files/lh5_decoder.h"

#include <cstdlib>
#include <memory>
#include <vector>

namespace
{
constexpr int ChunkLimit = 32;

class Trickle final : public ByteReader
{
public:
    explicit Trickle(MemoryReader& source) : source_(source) {}
    size_t Read(void* buffer, size_t size) noexcept override
    {
        auto* to = static_cast<uint8_t*>(buffer);
        size_t count = 0;
        while (count < size && source_.Read(to + count, 1) == 1)
            ++count;
        return count;
    }
    bool Seek(uint64_t position) noexcept override { return source_.Seek(position); }
    uint64_t Position() const noexcept override { return source_.Position(); }
    uint64_t Size() const noexcept override { return source_.Size(); }

private:
    MemoryReader& source_;
};

std::vector<uint8_t> Decode(ByteReader& reader, size_t packedSize)
{
    auto decoder = std::make_unique<Lh5Decoder>(reader, packedSize);
    std::vector<uint8_t> bytes;
    for (int chunk = 0; chunk < ChunkLimit && decoder->Decode(lh5::Window); ++chunk)
        bytes.insert(bytes.end(), decoder->Chunk, decoder->Chunk + lh5::Window);
    return bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    MemoryReader first(data, size), second(data, size);
    Trickle trickle(second);
    if (Decode(first, size) != Decode(trickle, size))
        std::abort();
    return 0;
}
