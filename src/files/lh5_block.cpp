#include "files/lh5_block.h"

#include <algorithm>
#include <bit>

using namespace lh5;

namespace
{
// The length of the run of zeros at `from`, which may be none.
int ZeroRun(const uint8_t* lengths, int from, int end) noexcept
{
    int at = from;
    while (at < end && !lengths[at])
        ++at;
    return at - from;
}

// Hands the T codes that the C lengths are written as, and the bits behind each, to `put`.
template<class Put> void ForLengthCodes(const uint8_t* lengths, int count, const Put& put)
{
    constexpr int LongestShortRun = ShortRunBase + (1 << ShortRunBits) - 1;
    for (int at = 0; at < count;) {
        int run = ZeroRun(lengths, at, count);
        at += run ? run : 1;
        if (!run) {
            put(lengths[at - 1] + LengthOffset, 0, 0);
        } else if (run >= LongRunBase) {
            put(LongRun, run - LongRunBase, LongRunBits);
        } else {
            // 19 is one more than a short run can be.
            int single = run < ShortRunBase ? run : run - std::min(run, LongestShortRun);
            for (int i = 0; i < single; ++i)
                put(OneZero, 0, 0);
            if (run > single)
                put(ShortRun, run - single - ShortRunBase, ShortRunBits);
        }
    }
}
} // namespace

Lh5BlockWriter::Lh5BlockWriter(Lh5Memory& memory, ByteWriter& output, uint64_t limit) noexcept
    : out_(output, limit), items_(memory.Items), size_(memory.ItemsSize)
{
}

void Lh5BlockWriter::StartItem() noexcept
{
    flag_ >>= 1;
    if (flag_)
        return;
    if (used_ >= size_ - LargestGroup)
        WriteBlock();
    flag_ = FirstFlag;
    flags_ = used_++;
    items_[flags_] = 0;
}

void Lh5BlockWriter::PutMatch(int length, unsigned distance) noexcept
{
    StartItem();
    items_[flags_] |= flag_;
    items_[used_++] = static_cast<uint8_t>(length - ShortestMatch);
    items_[used_++] = static_cast<uint8_t>(distance >> 8);
    items_[used_++] = static_cast<uint8_t>(distance);
    ++itemFrequency_[length + LengthBias];
    ++positionFrequency_[static_cast<int>(std::bit_width(distance))];
}

void Lh5BlockWriter::Finish() noexcept
{
    if (used_ > 0)
        WriteBlock();
    out_.Put(0, 7);
    out_.Finish();
}

void Lh5BlockWriter::WriteBlock() noexcept
{
    BuildHuffmanCode(itemFrequency_, ItemCodes, item_);
    BuildHuffmanCode(positionFrequency_, PositionCodes, position_);
    out_.Put(item_.Total, BlockSizeBits);
    WriteItemLengths();
    WriteLengths(position_, PositionCodes, PositionCountBits, NoSkipEntry);
    WriteItems();
    used_ = 0;
    std::fill_n(itemFrequency_, ItemCodes, uint16_t{0});
    std::fill_n(positionFrequency_, PositionCodes, uint16_t{0});
}

// The T table and the C table.
void Lh5BlockWriter::WriteItemLengths() noexcept
{
    if (item_.Single != HuffmanCode::Several) {
        out_.Put(0, LengthCountBits);
        out_.Put(0, LengthCountBits);
        out_.Put(0, ItemCountBits);
        out_.Put(static_cast<unsigned>(item_.Single), ItemCountBits);
        return;
    }
    int count = item_.UsedCount(ItemCodes);
    uint16_t frequency[LengthCodes] = {};
    ForLengthCodes(item_.Length, count, [&](int code, int, int) { ++frequency[code]; });
    BuildHuffmanCode(frequency, LengthCodes, length_);
    WriteLengths(length_, LengthCodes, LengthCountBits, SkipEntry);
    out_.Put(static_cast<unsigned>(count), ItemCountBits);
    ForLengthCodes(item_.Length, count, [&](int code, int value, int bits) {
        out_.Put(length_.Code[code], length_.Length[code]);
        out_.Put(static_cast<unsigned>(value), bits);
    });
}

// Lengths up to 6 take three bits; a longer one is ones and a zero, three bits less than itself.
void Lh5BlockWriter::WriteLengths(const HuffmanCode& code, int count, int countBits, int skipEntry) noexcept
{
    if (code.Single != HuffmanCode::Several) {
        out_.Put(0, countBits);
        out_.Put(static_cast<unsigned>(code.Single), countBits);
        return;
    }
    int used = code.UsedCount(count);
    out_.Put(static_cast<unsigned>(used), countBits);
    for (int at = 0; at < used;) {
        int length = code.Length[at++];
        if (length <= 6)
            out_.Put(static_cast<unsigned>(length), 3);
        else
            out_.Put((1u << (length - 3)) - 2, length - 3);
        if (at == skipEntry) {
            int skipped = ZeroRun(code.Length, at, SkipLimit);
            out_.Put(static_cast<unsigned>(skipped), 2);
            at += skipped;
        }
    }
}

void Lh5BlockWriter::WriteDistance(unsigned distance) noexcept
{
    auto width = static_cast<int>(std::bit_width(distance));
    out_.Put(position_.Code[width], position_.Length[width]);
    if (width > 1)
        out_.Put(distance & ((1u << (width - 1)) - 1), width - 1);
}

void Lh5BlockWriter::WriteItems() noexcept
{
    const uint8_t* next = items_;
    unsigned flags = 0;
    for (unsigned i = 0; i < item_.Total && !out_.Full(); ++i) {
        flags = i % 8 ? flags << 1 : *next++;
        unsigned code = *next++;
        if (flags & FirstFlag)
            code += Literals;
        out_.Put(item_.Code[code], item_.Length[code]);
        if (flags & FirstFlag) {
            WriteDistance(static_cast<unsigned>(next[0] << 8 | next[1]));
            next += 2;
        }
    }
}
