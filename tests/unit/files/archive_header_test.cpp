#include "files/archive_header.h"
#include "support/archive_fakes.h"

#include <gtest/gtest.h>

using enum ArchiveResult;

namespace
{
ArchiveHeader HeaderOf(const std::string& name)
{
    ArchiveHeader header;
    EXPECT_TRUE(header.Begin(name, 0x44332211));
    header.SetData(ArchiveHeader::Stored, 0x04030201, 0x08070605, 0x0A09);
    return header;
}

ByteList BytesOf(const ArchiveHeader& header)
{
    return ByteList(header.Bytes(), header.Bytes() + header.Size());
}

struct ReadBack {
    ArchiveResult Result;
    bool End = false;
    ArchiveHeader Header = {};
};

ReadBack Read(const ByteList& bytes)
{
    MemoryReader reader(bytes.data(), bytes.size());
    ReadBack back;
    back.Result = ReadArchiveHeader(reader, back.Header, back.End);
    return back;
}

ByteList Changed(size_t at, uint8_t byte, bool seal)
{
    ByteList bytes = BytesOf(HeaderOf("name.ext"));
    bytes.at(at) = byte;
    if (seal)
        EntryBytes::Seal(bytes);
    return bytes;
}
} // namespace

TEST(ArchiveHeader, HasEveryFieldAtItsOffset)
{
    ByteList bytes = BytesOf(HeaderOf("abc"));
    ByteList expected = {28,   0,    '-',  'l',  'h',  '0',  '-',  0x01, 0x02, 0x03,
                         0x04, 0x05, 0x06, 0x07, 0x08, 0x11, 0x22, 0x33, 0x44, 0,
                         0,    3,    'a',  'b',  'c',  0x09, 0x0A, 0x20, 0,    0};
    EntryBytes::Seal(expected);
    EXPECT_EQ(bytes, expected);
    EXPECT_EQ(bytes[1], 904 % 256) << "the sum of all bytes from offset 2";
}

TEST(ArchiveHeader, IsReadAsItWasWritten)
{
    for (size_t length : {0, 1, 12, 229, 230}) {
        std::string name(length, 'n');
        ReadBack back = Read(BytesOf(HeaderOf(name)));
        ASSERT_EQ(back.Result, Ok) << length;
        EXPECT_FALSE(back.End);
        EXPECT_EQ(back.Header.Name(), name);
        EXPECT_EQ(back.Header.Method(), '0');
        EXPECT_EQ(back.Header.PackedSize(), 0x04030201u);
        EXPECT_EQ(back.Header.OriginalSize(), 0x08070605u);
        EXPECT_EQ(back.Header.Time(), 0x44332211u);
        EXPECT_EQ(back.Header.Crc(), 0x0A09);
        EXPECT_EQ(back.Header.ExtendedSize(), 0);
    }
}

TEST(ArchiveHeader, TakesNoNameThatItsSizeByteCannotCount)
{
    ArchiveHeader header;
    EXPECT_TRUE(header.Begin(std::string(230, 'n'), 0));
    EXPECT_EQ(header.Size(), 257);
    EXPECT_FALSE(header.Begin(std::string(231, 'n'), 0));
}

TEST(ArchiveHeader, KnowsThreeMethods)
{
    const struct {
        const char* Method;
        char Letter;
    } rows[] = {{"-lh0-", '0'}, {"-lh4-", '4'}, {"-lh5-", '5'}, {"-lh1-", 0}, {"-lh6-", 0}, {"-lh7-", 0},
                {"-lhd-", 0},   {"-lz5-", 0},   {"-LH5-", 0},   {"+lh5-", 0}, {"-lh5+", 0}};
    for (const auto& row : rows) {
        ByteList bytes = EntryBytes{.Name = "x", .Data = {}, .Method = row.Method}.Make();
        ReadBack back = Read(bytes);
        EXPECT_EQ(back.Result, Ok);
        EXPECT_EQ(back.Header.Method(), row.Letter) << row.Method;
    }
}

TEST(ArchiveHeader, EndsAtAZero)
{
    ReadBack back = Read({0});
    EXPECT_EQ(back.Result, Ok);
    EXPECT_TRUE(back.End);
}

TEST(ArchiveHeader, IsRefusedWhenItDoesNotCheck)
{
    const struct {
        const char* What;
        ByteList Bytes;
    } rows[] = {
        {"a size below the smallest", Changed(0, 24, true)},
        {"a size that is too small for the name", Changed(0, 25 + 7, true)},
        {"a size of 1", Changed(0, 1, true)},
        {"a wrong sum", Changed(1, 0, false)},
        {"another byte than summed", Changed(15, 0x12, false)},
        {"a name that is too long for the size", Changed(21, 9, true)},
        {"a name that is too short for the size", Changed(21, 7, true)},
        {"a name far beyond the header", Changed(21, 255, true)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Read(row.Bytes).Result, BadArchive) << row.What;
}

TEST(ArchiveHeader, IsShortWhenTheFileEnds)
{
    ByteList bytes = BytesOf(HeaderOf("name"));
    for (size_t size = 0; size < bytes.size(); ++size) {
        ByteList cut(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(size));
        EXPECT_EQ(Read(cut).Result, NotFound) << size;
    }
}

// Extended headers

namespace
{
struct Skipped {
    ArchiveResult Result;
    uint32_t DataSize = 0;
    uint64_t Position = 0;
};

Skipped SkipIn(const ByteList& bytes)
{
    MemoryReader reader(bytes.data(), bytes.size());
    ArchiveHeader header;
    bool end = false;
    EXPECT_EQ(ReadArchiveHeader(reader, header, end), Ok);
    Skipped skipped;
    skipped.Result = SkipExtendedHeaders(reader, header, skipped.DataSize);
    skipped.Position = reader.Position();
    return skipped;
}
} // namespace

TEST(ExtendedHeaders, AreCountedOffThePackedSize)
{
    EntryBytes entry = {.Name = "x", .Data = {1, 2, 3}};
    EXPECT_EQ(SkipIn(entry.Make()).DataSize, 3u);
    EXPECT_EQ(SkipIn(entry.Make()).Position, 28u);
    entry.Extended = {{0, 0xAB, 0xCD}};
    EXPECT_EQ(SkipIn(entry.Make()).Result, Ok);
    EXPECT_EQ(SkipIn(entry.Make()).DataSize, 3u);
    EXPECT_EQ(SkipIn(entry.Make()).Position, 28u + 5);
    entry.Extended = {{0, 0xAB, 0xCD}, {2, 'd', 'i', 'r', 0xFF}, ByteList(400, 0x40)};
    EXPECT_EQ(SkipIn(entry.Make()).DataSize, 3u);
    EXPECT_EQ(SkipIn(entry.Make()).Position, 28u + 5 + 7 + 402);
}

TEST(ExtendedHeaders, MustLieInThePackedSize)
{
    EntryBytes entry = {.Name = "x", .Data = {}, .Extended = {{0, 1, 2}}};
    ByteList bytes = entry.Make();
    auto withSize = [&](uint16_t first, uint32_t packed) {
        ByteList changed = bytes;
        StoreNumber(changed.data() + 26, first);
        StoreNumber(changed.data() + 7, packed);
        EntryBytes::Seal(changed);
        return SkipIn(changed).Result;
    };
    EXPECT_EQ(withSize(5, 5), Ok);
    EXPECT_EQ(withSize(5, 4), BadArchive);
    EXPECT_EQ(withSize(1, 5), BadArchive) << "no room for the size of the next";
    EXPECT_EQ(withSize(0xFFFF, 5), BadArchive);
    EXPECT_EQ(withSize(0xFFFF, 0xFFFFFFFF), NotFound) << "the file ends first";
}

TEST(ExtendedHeaders, AreShortWhenTheFileEnds)
{
    ByteList bytes = EntryBytes{.Name = "x", .Data = {}, .Extended = {{0, 1, 2}, {1, 2, 3}}}.Make();
    for (size_t size = 28; size < bytes.size(); ++size) {
        ByteList cut(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(size));
        EXPECT_EQ(SkipIn(cut).Result, NotFound) << size;
    }
}
