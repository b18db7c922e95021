#include "files/archive_header.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr char MethodForm[] = "-lh5-";
constexpr int MethodSize = 5;
constexpr int LetterAt = 3;
constexpr uint8_t System = 0x20;
constexpr int NextSize = 2; // an extended header ends in the size of the next
} // namespace

bool ArchiveHeader::Begin(std::string_view name, uint32_t time) noexcept
{
    if (name.size() > LongestName)
        return false;
    std::fill(std::begin(bytes_), std::end(bytes_), uint8_t{0});
    bytes_[SizeAt] = static_cast<uint8_t>(SizeWithoutName - UncountedSize + name.size());
    std::memcpy(bytes_ + MethodAt, MethodForm, MethodSize);
    StoreNumber(bytes_ + TimeAt, time);
    bytes_[NameLengthAt] = static_cast<uint8_t>(name.size());
    std::copy(name.begin(), name.end(), bytes_ + NameAt);
    *BehindName(SystemBehindName) = System;
    SetData(Compressed, 0, 0, 0);
    return true;
}

void ArchiveHeader::SetData(char method, uint32_t packedSize, uint32_t originalSize, uint16_t crc) noexcept
{
    bytes_[MethodAt + LetterAt] = static_cast<uint8_t>(method);
    StoreNumber(bytes_ + PackedSizeAt, packedSize);
    StoreNumber(bytes_ + OriginalSizeAt, originalSize);
    StoreNumber(BehindName(CrcBehindName), crc);
    bytes_[SumAt] = Sum();
}

char ArchiveHeader::Method() const noexcept
{
    char method[MethodSize];
    std::memcpy(method, bytes_ + MethodAt, MethodSize);
    char letter = method[LetterAt];
    method[LetterAt] = MethodForm[LetterAt];
    bool known = std::memcmp(method, MethodForm, MethodSize) == 0 &&
                 (letter == Stored || letter == '4' || letter == Compressed);
    return known ? letter : '\0';
}

uint8_t ArchiveHeader::Sum() const noexcept
{
    unsigned sum = 0;
    for (int at = UncountedSize; at < Size(); ++at)
        sum += bytes_[at];
    return static_cast<uint8_t>(sum);
}

// Headers of other forms, whose fields behind the name would be misread, differ in size.
bool ArchiveHeader::Checks() const noexcept
{
    return Size() == SizeWithoutName + bytes_[NameLengthAt] && bytes_[SumAt] == Sum();
}

ArchiveResult ReadArchiveHeader(ByteReader& reader, ArchiveHeader& header, bool& end) noexcept
{
    end = false;
    uint8_t* bytes = header.bytes_;
    if (reader.Read(bytes, 1) != 1)
        return ArchiveResult::NotFound;
    if (bytes[ArchiveHeader::SizeAt] == 0) {
        end = true;
        return ArchiveResult::Ok;
    }
    if (header.Size() < ArchiveHeader::SizeWithoutName)
        return ArchiveResult::BadArchive;
    auto rest = static_cast<size_t>(header.Size() - 1);
    if (reader.Read(bytes + 1, rest) != rest)
        return ArchiveResult::NotFound;
    return header.Checks() ? ArchiveResult::Ok : ArchiveResult::BadArchive;
}

bool WriteArchiveHeader(ByteWriter& writer, const ArchiveHeader& header) noexcept
{
    return writer.Write(header.bytes_, static_cast<size_t>(header.Size()));
}

ArchiveResult SkipExtendedHeaders(ByteReader& reader, const ArchiveHeader& header,
                                  uint32_t& dataSize) noexcept
{
    dataSize = header.PackedSize();
    for (uint16_t size = header.ExtendedSize(); size != 0;) {
        if (size < NextSize || size > dataSize)
            return ArchiveResult::BadArchive;
        dataSize -= size;
        uint8_t next[NextSize];
        if (!reader.Seek(reader.Position() + size - NextSize) || reader.Read(next, NextSize) != NextSize)
            return ArchiveResult::NotFound;
        size = LoadNumber<uint16_t>(next);
    }
    return ArchiveResult::Ok;
}
