#pragma once

#include "files/byte_stream.h"

#include <cstdint>
#include <string_view>

// What a command on an archive comes to.
enum class ArchiveResult {
    Ok = 0,
    CannotWrite = 2,
    NotFound = 3,   // a file that is not there, or ends too early
    BadArchive = 4, // a bad header, an unknown method, a CRC that differs
    OutOfMemory = 6,
};

// The header of an entry, as it stands in the file.
class ArchiveHeader
{
public:
    // Offsets of the fields; two more lie behind the name.
    static constexpr int SizeAt = 0; // of what comes behind the first two bytes
    static constexpr int SumAt = 1;
    static constexpr int MethodAt = 2;
    static constexpr int PackedSizeAt = 7;
    static constexpr int OriginalSizeAt = 11;
    static constexpr int TimeAt = 15;
    static constexpr int NameLengthAt = 21;
    static constexpr int NameAt = 22;
    static constexpr int CrcBehindName = 0;
    static constexpr int SystemBehindName = 2;
    static constexpr int ExtendedBehindName = 3;

    static constexpr int SizeWithoutName = 27;
    static constexpr int UncountedSize = 2; // bytes that the size field leaves out
    static constexpr int LongestName = 255 + UncountedSize - SizeWithoutName;

    static constexpr char Compressed = '5';
    static constexpr char Stored = '0';

    ArchiveHeader() noexcept = default;
    // A header whose sizes and CRC are still to come; false when the name is too long.
    [[nodiscard]] bool Begin(std::string_view name, uint32_t time) noexcept;

    int Size() const noexcept { return bytes_[SizeAt] + UncountedSize; }
    const uint8_t* Bytes() const noexcept { return bytes_; }
    std::string_view Name() const noexcept
    {
        return {reinterpret_cast<const char*>(bytes_) + NameAt, bytes_[NameLengthAt]};
    }
    // The letter of a method that is known: '0', '4' or '5'; 0 for all others.
    char Method() const noexcept;
    // Of the data and the extended headers before it.
    uint32_t PackedSize() const noexcept { return LoadNumber<uint32_t>(bytes_ + PackedSizeAt); }
    uint32_t OriginalSize() const noexcept { return LoadNumber<uint32_t>(bytes_ + OriginalSizeAt); }
    // Seconds since 1970, UTC.
    uint32_t Time() const noexcept { return LoadNumber<uint32_t>(bytes_ + TimeAt); }
    uint16_t Crc() const noexcept { return LoadNumber<uint16_t>(BehindName(CrcBehindName)); }
    // The size of the first extended header, 0 for none.
    uint16_t ExtendedSize() const noexcept { return LoadNumber<uint16_t>(BehindName(ExtendedBehindName)); }

    void SetData(char method, uint32_t packedSize, uint32_t originalSize, uint16_t crc) noexcept;

    // NotFound when the reader ends before the header does, BadArchive for a header that does not check.
    // The 0 byte that closes an archive sets `end`.
    friend ArchiveResult ReadArchiveHeader(ByteReader& reader, ArchiveHeader& header, bool& end) noexcept;
    friend bool WriteArchiveHeader(ByteWriter& writer, const ArchiveHeader& header) noexcept;

private:
    uint8_t* BehindName(int at) noexcept { return bytes_ + NameAt + bytes_[NameLengthAt] + at; }
    const uint8_t* BehindName(int at) const noexcept { return bytes_ + NameAt + bytes_[NameLengthAt] + at; }
    uint8_t Sum() const noexcept;
    bool Checks() const noexcept;

    uint8_t bytes_[255 + UncountedSize] = {};
};

[[nodiscard]] ArchiveResult ReadArchiveHeader(ByteReader& reader, ArchiveHeader& header, bool& end) noexcept;
[[nodiscard]] bool WriteArchiveHeader(ByteWriter& writer, const ArchiveHeader& header) noexcept;

// Takes the reader from behind a header over the extended ones to the data, and counts their sizes off the
// packed size: `dataSize` is what is left for the data.
[[nodiscard]] ArchiveResult SkipExtendedHeaders(ByteReader& reader, const ArchiveHeader& header,
                                                uint32_t& dataSize) noexcept;
