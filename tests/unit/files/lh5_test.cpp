#include "files/crc16.h"
#include "files/lh5_decoder.h"
#include "files/lh5_encoder.h"
#include "files/lh5_huffman.h"
#include "platform/memory.h"
#include "support/byte_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>

using namespace lh5;

namespace
{
constexpr Lh5Heap ModelHeap = {AllocateZeroed, FreeBlock};
constexpr uint64_t NoLimit = UINT64_MAX;

struct Packed {
    ByteList Bytes;
    Lh5Encoded Result;
};

Packed Encode(const ByteList& data, Lh5Memory& memory, uint64_t limit = NoLimit)
{
    MemoryReader reader(data.data(), data.size());
    MemoryWriter writer;
    Packed packed;
    packed.Result = EncodeLh5(reader, writer, limit, memory);
    packed.Bytes = writer.Bytes;
    return packed;
}

Packed Encode(const ByteList& data, uint64_t limit = NoLimit)
{
    Lh5Memory memory(ModelHeap);
    EXPECT_TRUE(memory.Allocate());
    return Encode(data, memory, limit);
}

// What comes out of `size` bytes decoded in windows; empty when the data is bad.
ByteList Decode(const ByteList& packed, size_t size, uint64_t packedSize)
{
    MemoryReader reader(packed.data(), packed.size());
    Lh5Decoder decoder(reader, packedSize);
    ByteList data;
    while (data.size() < size) {
        size_t count = std::min<size_t>(Window, size - data.size());
        if (!decoder.Decode(static_cast<int>(count)))
            return {};
        data.insert(data.end(), decoder.Chunk, decoder.Chunk + count);
    }
    return data;
}

ByteList Decode(const ByteList& packed, size_t size)
{
    return Decode(packed, size, packed.size());
}

// The number of items in the first block: its first 16 bits.
int ItemsOf(const ByteList& packed)
{
    return packed.at(0) << 8 | packed.at(1);
}

// Streams that no encoder writes.
class BitList
{
public:
    BitList& Put(unsigned value, int count)
    {
        for (int bit = count - 1; bit >= 0; --bit)
            bits_.push_back(static_cast<char>('0' + (value >> bit & 1)));
        return *this;
    }
    BitList& Put(const char* bits)
    {
        for (; *bits; ++bits)
            if (*bits != ' ')
                bits_.push_back(*bits);
        return *this;
    }
    // A block's head up to the C table, without a T table to speak of.
    BitList& Block(unsigned items) { return Put(items, BlockSizeBits).Put(0, 5).Put(0, 5); }
    BitList& OneItem(unsigned code) { return Put(0, ItemCountBits).Put(code, ItemCountBits); }
    BitList& OnePosition(unsigned code) { return Put(0, PositionCountBits).Put(code, PositionCountBits); }

    ByteList Bytes() const
    {
        ByteList bytes((bits_.size() + 7) / 8);
        for (size_t i = 0; i < bits_.size(); ++i)
            if (bits_[i] == '1')
                bytes[i / 8] |= static_cast<uint8_t>(0x80 >> i % 8);
        return bytes;
    }

private:
    std::string bits_;
};

ByteList Decode(const BitList& bits, size_t size)
{
    return Decode(bits.Bytes(), size);
}
} // namespace

// The CRC

TEST(Crc16, HasItsKnownValues)
{
    auto crc = [](const ByteList& bytes) { return UpdateCrc16(0, bytes.data(), bytes.size()); };
    EXPECT_EQ(crc({}), 0);
    EXPECT_EQ(crc(BytesOf("123456789")), 0xBB3D);
    EXPECT_EQ(crc({1}), 0xC0C1);
    EXPECT_EQ(crc(RunOf(1000)), 0);
}

TEST(Crc16, GoesOnWhereItStopped)
{
    ByteList bytes = RandomBytes(100);
    uint16_t whole = UpdateCrc16(0, bytes.data(), bytes.size());
    for (size_t cut = 0; cut <= bytes.size(); ++cut) {
        uint16_t first = UpdateCrc16(0, bytes.data(), cut);
        EXPECT_EQ(UpdateCrc16(first, bytes.data() + cut, bytes.size() - cut), whole) << cut;
    }
}

// Huffman codes

TEST(HuffmanCodes, AreGivenInOrderOfLengthAndThenOfSymbol)
{
    const uint16_t frequency[] = {1, 8, 0, 1, 4, 2};
    HuffmanCode code;
    BuildHuffmanCode(frequency, 6, code);
    EXPECT_EQ(code.Single, HuffmanCode::Several);
    EXPECT_EQ(code.Total, 16u);
    const int lengths[] = {4, 1, 0, 4, 2, 3}, codes[] = {14, 0, -1, 15, 2, 6};
    for (int symbol = 0; symbol < 6; ++symbol) {
        EXPECT_EQ(code.Length[symbol], lengths[symbol]) << symbol;
        if (lengths[symbol])
            EXPECT_EQ(code.Code[symbol], codes[symbol]) << symbol;
    }
    EXPECT_EQ(code.UsedCount(6), 6);
}

TEST(HuffmanCodes, OfOneSymbolOrNoneTakeNoBits)
{
    const uint16_t one[] = {0, 0, 5, 0}, none[] = {0, 0, 0, 0};
    HuffmanCode code;
    BuildHuffmanCode(one, 4, code);
    EXPECT_EQ(code.Single, 2);
    EXPECT_EQ(code.Total, 5u);
    EXPECT_EQ(code.UsedCount(4), 0);
    BuildHuffmanCode(none, 4, code);
    EXPECT_EQ(code.Single, 0);
    EXPECT_EQ(code.Total, 0u);
}

// Fibonacci numbers make the deepest tree there is.
TEST(HuffmanCodes, AreNeverLongerThan16BitsAndFillTheirRoom)
{
    for (int count = 3; count <= 22; ++count) {
        uint16_t frequency[22] = {1, 1};
        for (int i = 2; i < count; ++i)
            frequency[i] = static_cast<uint16_t>(frequency[i - 1] + frequency[i - 2]);
        HuffmanCode code;
        BuildHuffmanCode(frequency, count, code);
        unsigned room = 0;
        for (int i = 0; i < count; ++i) {
            EXPECT_LE(code.Length[i], LongestCode);
            EXPECT_GE(code.Length[i], 1);
            room += 0x10000u >> code.Length[i];
            if (i > 0)
                EXPECT_LE(code.Length[i], code.Length[i - 1]) << "the rarer has the longer code";
        }
        EXPECT_EQ(room, 0x10000u) << count;
        EXPECT_EQ(code.Length[0], std::min(count - 1, LongestCode)) << count;
    }
}

// Working memory

namespace
{
std::vector<size_t> allocatedSizes;
size_t largestAllowed;
int liveBlocks;

void* AllocateUpTo(size_t count, size_t size) noexcept
{
    if (count * size > largestAllowed)
        return nullptr;
    allocatedSizes.push_back(count * size);
    ++liveBlocks;
    return std::calloc(count, size);
}
void FreeCounted(void* block) noexcept
{
    liveBlocks -= block != nullptr;
    std::free(block);
}

constexpr Lh5Heap SmallHeap = {AllocateUpTo, FreeCounted};
} // namespace

TEST(Lh5WorkingMemory, HasItsSizes)
{
    allocatedSizes.clear();
    largestAllowed = SIZE_MAX;
    {
        Lh5Memory memory(SmallHeap);
        ASSERT_TRUE(memory.Allocate());
        EXPECT_EQ(memory.ItemsSize, 16384);
    }
    EXPECT_EQ(allocatedSizes, (std::vector<size_t>{16384, 16640, 8448, 8448, 16896, 32768, 32768, 57824}));
    EXPECT_EQ(liveBlocks, 0);
}

TEST(Lh5WorkingMemory, MakesDoWithFewerItems)
{
    // Only the item buffer can be cut, so that is asked for alone.
    const struct {
        size_t Allowed;
        int Items;
    } rows[] = {{16384, 16384}, {16383, 14745}, {14744, 13270}, {5000, 4625}, {4162, 4162}, {4161, 0}};
    for (const auto& row : rows) {
        largestAllowed = row.Allowed;
        Lh5Memory memory(SmallHeap);
        bool all = memory.Allocate();
        EXPECT_FALSE(all) << "the links do not fit";
        EXPECT_EQ(memory.Items ? memory.ItemsSize : 0, row.Items) << row.Allowed;
    }
    EXPECT_EQ(liveBlocks, 0);
}

TEST(Lh5WorkingMemory, FailsWhenAnyBlockIsMissing)
{
    AllocationProbe& probe = TheAllocationProbe();
    long live = probe.Live;
    // The first is the item buffer, which is asked for again in a smaller size.
    for (long failing = 1; failing <= 8; ++failing) {
        probe.Count = 0;
        probe.FailAt = failing;
        Lh5Memory memory(ModelHeap);
        EXPECT_EQ(memory.Allocate(), failing == 1) << failing;
    }
    probe.FailAt = 0;
    EXPECT_EQ(probe.Live, live);
}

TEST(Lh5Encoder, PacksTheSameDataWithFewerItemsABlock)
{
    AllocationProbe& probe = TheAllocationProbe();
    probe.Count = 0;
    probe.FailAt = 1;
    Lh5Memory memory(ModelHeap);
    bool all = memory.Allocate();
    probe.FailAt = 0;
    ASSERT_TRUE(all);
    EXPECT_LT(memory.ItemsSize, Lh5Memory::LargestItems);
    ByteList data = TextBytes(200000);
    EXPECT_EQ(Decode(Encode(data, memory).Bytes, data.size()), data);
}

// Encoding

TEST(Lh5Encoder, WritesOneByteAsABlockOfSingleCodes)
{
    // 16 bits of count; T, C and P tables of one code each; no bits for the item; the flush.
    BitList bits;
    bits.Put("0000000000000001 00000 00000 000000000 001100001 0000 0000 0000000");
    ByteList expected = bits.Bytes();
    expected.resize(7); // the eighth byte is not whole
    EXPECT_EQ(Encode(BytesOf("a")).Bytes, expected);
}

TEST(Lh5Encoder, WritesNothingForNothing)
{
    Packed packed = Encode({});
    EXPECT_TRUE(packed.Bytes.empty()) << "seven bits make no byte";
    EXPECT_EQ(packed.Result.SourceSize, 0u);
    EXPECT_EQ(packed.Result.PackedSize, 0u);
}

TEST(Lh5Encoder, PrefersALongerMatchThatBeginsAByteLater)
{
    // At the second "abcde" a match of three begins, a byte later one of four.
    EXPECT_EQ(ItemsOf(Encode(BytesOf("abcbcdeabcde")).Bytes), 7 + 2);
    // None is better a byte later: one match.
    EXPECT_EQ(ItemsOf(Encode(BytesOf("abcdeabcde")).Bytes), 5 + 1);
}

TEST(Lh5Encoder, MatchesFrom3To256Bytes)
{
    EXPECT_EQ(ItemsOf(Encode(BytesOf("abcab")).Bytes), 5) << "two bytes are no match";
    EXPECT_EQ(ItemsOf(Encode(BytesOf("abcabc")).Bytes), 4);
    EXPECT_EQ(ItemsOf(Encode(RunOf(1 + 256)).Bytes), 2);
    EXPECT_EQ(ItemsOf(Encode(RunOf(1 + 256 + 1)).Bytes), 3);
    EXPECT_EQ(ItemsOf(Encode(RunOf(1 + 256 + 256)).Bytes), 3);
    EXPECT_EQ(ItemsOf(Encode(RunOf(1 + 256 + 256 + 1)).Bytes), 4);
}

TEST(Lh5Encoder, FindsWhatLiesWithinTheWindow)
{
    auto sizeOfRepeated = [](size_t period) {
        return Encode(PeriodicBytes(2 * period, period)).Bytes.size();
    };
    EXPECT_LT(sizeOfRepeated(8191), 9000u) << "the second half is matches";
    EXPECT_GT(sizeOfRepeated(8192), 16000u) << "what is a window behind has just left it";
}

TEST(Lh5Encoder, CountsAndChecksWhatItReads)
{
    ByteList data = TextBytes(30000);
    Lh5Encoded result = Encode(data).Result;
    EXPECT_EQ(result.SourceSize, data.size());
    EXPECT_EQ(result.Crc, UpdateCrc16(0, data.data(), data.size()));
    EXPECT_FALSE(result.Full);
    EXPECT_FALSE(result.Failed);
}

TEST(Lh5Encoder, GivesUpAtTheLimit)
{
    ByteList data = RandomBytes(500000);
    Packed packed = Encode(data, data.size());
    EXPECT_TRUE(packed.Result.Full);
    EXPECT_EQ(packed.Bytes.size(), data.size()) << "not a byte beyond the limit";
    ByteList text = TextBytes(5000);
    size_t size = Encode(text).Bytes.size();
    EXPECT_TRUE(Encode(text, size).Result.Full) << "reaching it is enough";
    EXPECT_FALSE(Encode(text, size + 1).Result.Full);
}

TEST(Lh5Encoder, StopsWhenTheOutputFails)
{
    ByteList data = RandomBytes(100000);
    for (size_t room : {0, 1, 4096, 50000}) {
        Lh5Memory memory(ModelHeap);
        ASSERT_TRUE(memory.Allocate());
        MemoryReader reader(data.data(), data.size());
        FullWriter writer(room);
        EXPECT_TRUE(EncodeLh5(reader, writer, NoLimit, memory).Failed) << room;
    }
}

TEST(Lh5Codec, GivesBackWhatItWasGiven)
{
    const size_t sizes[] = {0,     1,     2,     3,     4,     5,     255,   256,   257,   258,   259,
                            4095,  8191,  8192,  8193,  8448,  8449,  14000, 16383, 16384, 16385, 16639,
                            16640, 16641, 24575, 24576, 24577, 65535, 65536, 65537, 150000};
    const std::map<std::string, ByteList (*)(size_t)> kinds = {
        {"zeros", [](size_t size) { return RunOf(size); }},
        {"0xFF", [](size_t size) { return RunOf(size, 0xFF); }},
        {"random", [](size_t size) { return RandomBytes(size); }},
        {"text", [](size_t size) { return TextBytes(size); }},
        {"period 2", [](size_t size) { return PeriodicBytes(size, 2); }},
        {"period 7", [](size_t size) { return PeriodicBytes(size, 7); }},
        {"period 255", [](size_t size) { return PeriodicBytes(size, 255); }},
        {"period 256", [](size_t size) { return PeriodicBytes(size, 256); }},
        {"period 257", [](size_t size) { return PeriodicBytes(size, 257); }},
        {"period 8184", [](size_t size) { return PeriodicBytes(size, 8184); }},
        {"period 8190", [](size_t size) { return PeriodicBytes(size, 8190); }},
        {"period 8191", [](size_t size) { return PeriodicBytes(size, 8191); }},
        {"period 8192", [](size_t size) { return PeriodicBytes(size, 8192); }},
        {"period 8193", [](size_t size) { return PeriodicBytes(size, 8193); }},
        {"counting",
         [](size_t size) {
             ByteList bytes(size);
             for (size_t i = 0; i < size; ++i)
                 bytes[i] = static_cast<uint8_t>(i);
             return bytes;
         }},
        {"random behind zeros",
         [](size_t size) {
             ByteList bytes = RunOf(size), tail = RandomBytes(size / 2);
             std::copy(tail.begin(), tail.end(), bytes.begin() + static_cast<ptrdiff_t>(size - tail.size()));
             return bytes;
         }},
        {"two values", [](size_t size) {
             ByteList bytes = RandomBytes(size);
             for (uint8_t& byte : bytes)
                 byte = byte & 0x10 ? 'x' : 'y';
             return bytes;
         }}};
    for (const auto& [name, make] : kinds)
        for (size_t size : sizes) {
            ByteList data = make(size);
            Packed packed = Encode(data);
            EXPECT_EQ(packed.Result.PackedSize, packed.Bytes.size());
            ASSERT_TRUE(Decode(packed.Bytes, size) == data) << name << ", " << size;
        }
}

// All 256 literals equally often: every C length is 8, so the T table has one code.
TEST(Lh5Codec, BearsATableOfLengthsWithOneCode)
{
    uint16_t frequency[ItemCodes] = {};
    std::fill_n(frequency, 256, uint16_t{4});
    HuffmanCode code;
    BuildHuffmanCode(frequency, ItemCodes, code);
    EXPECT_EQ(std::count(code.Length, code.Length + 256, 8), 256);
    ByteList data;
    for (int i = 0; i < 256; ++i)
        data.push_back(static_cast<uint8_t>(i));
    ByteList packed = Encode(data).Bytes;
    EXPECT_EQ(ItemsOf(packed), 256);
    EXPECT_EQ(packed[2] >> 3, 0) << "no T lengths";
    EXPECT_EQ((packed[2] & 7) << 2 | packed[3] >> 6, 8 + 2) << "but the code";
    EXPECT_EQ(Decode(packed, 256), data);
}

// Decoding

TEST(Lh5Decoder, ReadsTablesOfOneCode)
{
    BitList bits;
    bits.Block(5).OneItem('x').OnePosition(0);
    EXPECT_EQ(Decode(bits, 5), BytesOf("xxxxx"));
    bits.Block(2).OneItem('y').OnePosition(0);
    EXPECT_EQ(Decode(bits, 7), BytesOf("xxxxxyy")) << "the next block";
}

TEST(Lh5Decoder, PassesOverBlocksWithoutItems)
{
    BitList bits;
    bits.Block(0).OneItem('x').OnePosition(0).Block(1).OneItem('y').OnePosition(0);
    EXPECT_EQ(Decode(bits, 1), BytesOf("y"));
}

TEST(Lh5Decoder, ReachesBackByEveryDistance)
{
    for (int width = 0; width < PositionCodes; ++width)
        for (bool farthest : {false, true}) {
            int low = width > 1 ? width - 1 : 0;
            unsigned rest = farthest ? (1u << low) - 1 : 0;
            size_t distance = width ? (1u << (width - 1)) + rest : 0;
            BitList bits;
            // 8192 random bytes as literals of 8 bits each, then one match of 256.
            ByteList data = RandomBytes(Window);
            bits.Put(Window, 16).Put(0, 5).Put(8 + LengthOffset, 5).Put(256, 9).Put(0, 8);
            for (uint8_t byte : data)
                bits.Put(byte, 8);
            bits.Block(1).OneItem(256 + 253).OnePosition(static_cast<unsigned>(width)).Put(rest, low);
            for (int i = 0; i < 256; ++i)
                data.push_back(data[data.size() - distance - 1]);
            EXPECT_TRUE(Decode(bits, data.size()) == data) << distance;
        }
}

TEST(Lh5Decoder, FindsSpacesBeforeTheBeginning)
{
    BitList bits;
    bits.Block(1).OneItem(256).OnePosition(13).Put(0, 12);
    EXPECT_EQ(Decode(bits, 3), BytesOf("   "));
}

// Other writers give the special position of the T table a skip, whatever the count of entries.
TEST(Lh5Decoder, ReadsTheSkipInTheTableOfLengths)
{
    BitList bits;
    // T: 7 entries, of which 0 to 2 are empty, 3 more are skipped, and 6 (length 4) has 1 bit, with 5 ...
    // none.
    bits.Put(16, 16).Put(8, 5).Put("000 000 000 11 001 001");
    // C: 16 codes of 4 bits (T code 6, "0"), alone enough for a full table.
    bits.Put(16, 9).Put(0, 16).OnePosition(0);
    ByteList expected;
    for (unsigned i = 0; i < 16; ++i) {
        bits.Put(i, 4);
        expected.push_back(static_cast<uint8_t>(i));
    }
    EXPECT_EQ(Decode(bits, 16), expected);
}

TEST(Lh5Decoder, RefusesTablesThatAreNone)
{
    const std::map<std::string, BitList> tables = {
        {"T of 20 entries", BitList().Put(1, 16).Put(20, 5)},
        {"a single T code 19", BitList().Put(1, 16).Put(0, 5).Put(19, 5)},
        {"a single C code 510", BitList().Block(1).OneItem(510)},
        {"C of 511 entries", BitList().Block(1).Put(511, 9)},
        {"a single P code 14", BitList().Block(1).OneItem('x').OnePosition(14)},
        {"P of 15 entries", BitList().Block(1).OneItem('x').Put(15, 4)},
        {"a P length of 17", BitList().Block(1).OneItem('x').Put(1, 4).Put("111 1111111111 0")},
        {"three P codes of one bit", BitList().Block(1).OneItem('x').Put(3, 4).Put("001 001 001")},
        {"C lengths that no T code leads to", BitList().Put(1, 16).Put(1, 5).Put("001").Put(1, 9).Put("1")},
        {"an item that no C code leads to",
         BitList().Put(1, 16).Put(0, 5).Put(3, 5).Put(1, 9).OnePosition(0).Put("1")},
        {"a distance that no P code leads to", BitList().Block(1).OneItem(300).Put(1, 4).Put("001").Put("1")},
    };
    for (const auto& [what, bits] : tables) {
        BitList longer = bits;
        longer.Put(0, 64);
        EXPECT_TRUE(Decode(longer, 1).empty()) << what;
    }
}

// Runs of zeros may lead past the end of the table: the excess says nothing.
TEST(Lh5Decoder, BearsARunPastTheTable)
{
    BitList bits;
    bits.Put(1, 16).Put(0, 5).Put(LongRun, 5).Put(1, 9).Put(511, 9).OnePosition(0).Put(0, 64);
    EXPECT_TRUE(Decode(bits, 1).empty()) << "no item has a code";
}

TEST(Lh5Decoder, TellsWhenTheDataEnds)
{
    ByteList data = TextBytes(20000), packed = Encode(data).Bytes;
    for (size_t size = 0; size < packed.size(); ++size) {
        ByteList cut(packed.begin(), packed.begin() + static_cast<ptrdiff_t>(size));
        ASSERT_TRUE(Decode(cut, data.size()).empty()) << size;
    }
    MemoryReader reader(packed.data(), packed.size() / 2);
    Lh5Decoder decoder(reader, packed.size());
    bool good = true;
    for (int i = 0; i < 3 && good; ++i)
        good = decoder.Decode(Window);
    EXPECT_FALSE(good);
    EXPECT_TRUE(decoder.SourceEnded());
}

TEST(Lh5Decoder, ReadsNoFartherThanThePackedSize)
{
    ByteList data = TextBytes(20000), packed = Encode(data).Bytes;
    EXPECT_TRUE(Decode(packed, data.size(), packed.size() - 20).empty());
    EXPECT_EQ(Decode(packed, data.size(), packed.size()), data);
}

TEST(Lh5Decoder, EndsOnWhateverItIsGiven)
{
    for (uint32_t seed = 1; seed <= 300; ++seed) {
        ByteList packed = Encode(TextBytes(3000)).Bytes;
        ByteList noise = RandomBytes(2 * 8, seed);
        for (size_t i = 0; i < 8; ++i)
            packed[(noise[2 * i] * 256u + noise[2 * i + 1]) % packed.size()] ^= static_cast<uint8_t>(1 << i);
        Decode(packed, 100000);
    }
}
