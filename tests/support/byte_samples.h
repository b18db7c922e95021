#pragma once
// Bytes of many kinds, the same in every run, and readers and writers that fail.

#include "files/byte_stream.h"

#include <cstdint>
#include <string>
#include <vector>

using ByteList = std::vector<uint8_t>;

inline ByteList BytesOf(const std::string& text)
{
    return ByteList(text.begin(), text.end());
}

inline ByteList RunOf(size_t size, uint8_t byte = 0)
{
    return ByteList(size, byte);
}

inline ByteList RandomBytes(size_t size, uint32_t seed = 1)
{
    ByteList bytes(size);
    for (uint8_t& byte : bytes) {
        seed = seed * 1664525u + 1013904223u;
        byte = static_cast<uint8_t>(seed >> 24);
    }
    return bytes;
}

// Words in a random order: matches of all lengths.
inline ByteList TextBytes(size_t size)
{
    static const char* const words[] = {"row ",       "column ",        "cell ",    "total ",
                                        "1,234.50\t", "0\r\n",          "quarter ", "region ",
                                        "north ",     "south-by-west ", "a "};
    ByteList choice = RandomBytes(size + 1, 7);
    std::string text;
    for (size_t i = 0; text.size() < size; ++i)
        text += words[choice[i] % std::size(words)];
    text.resize(size);
    return BytesOf(text);
}

// A pattern that comes again and again.
inline ByteList PeriodicBytes(size_t size, size_t period)
{
    ByteList bytes = RandomBytes(size < period ? size : period, 3);
    while (bytes.size() < size)
        bytes.push_back(bytes[bytes.size() - period]);
    return bytes;
}

// Takes `Room` bytes and fails from then on.
class FullWriter final : public ByteWriter
{
public:
    explicit FullWriter(size_t room) : Room(room) {}
    bool Write(const void*, size_t size) noexcept override
    {
        if (size > Room)
            return false;
        Room -= size;
        return true;
    }

    size_t Room;
};
