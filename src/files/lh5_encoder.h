#pragma once

#include "files/byte_stream.h"
#include "files/lh5_memory.h"

// What an encoding came to.
struct Lh5Encoded {
    uint64_t SourceSize = 0; // bytes read
    uint64_t PackedSize = 0; // bytes written
    uint16_t Crc = 0;        // of what was read
    bool Full = false;       // the output reached the limit, and the encoder gave up
    bool Failed = false;     // the output could not be written
};

// Encodes a stream to its end, as long as the output stays below `limit` bytes.
[[nodiscard]] Lh5Encoded EncodeLh5(ByteReader& source, ByteWriter& output, uint64_t limit,
                                   Lh5Memory& memory) noexcept;
