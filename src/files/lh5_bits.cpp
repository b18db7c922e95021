#include "files/lh5_bits.h"

#include <algorithm>

void BitWriter::Flush() noexcept
{
    auto size = static_cast<uint32_t>(std::min<uint64_t>(used_, limit_ - written_));
    used_ = 0;
    if (size == 0 || failed_)
        return;
    failed_ = !writer_.Write(buffer_, size);
    written_ += size;
}

void BitWriter::Finish() noexcept
{
    for (; pendingBits_ >= 8; pendingBits_ -= 8)
        buffer_[used_++] = static_cast<uint8_t>(pending_ >> (pendingBits_ - 8));
    pendingBits_ = 0;
    Flush();
}

void BitReader::ReadAhead(BitCursor& cursor) noexcept
{
    auto kept = static_cast<size_t>(cursor.End - cursor.Next);
    if (kept)
        std::memmove(buffer_, cursor.Next, kept);
    auto wanted = static_cast<size_t>(std::min<uint64_t>(left_, sizeof buffer_ - kept));
    size_t got = reader_.Read(buffer_ + kept, wanted);
    sourceEnded_ = got < wanted;
    left_ = sourceEnded_ ? 0 : left_ - got;
    cursor.Next = buffer_;
    cursor.End = buffer_ + kept + got;
}

BitCursor BitReader::Refilled(BitCursor cursor) noexcept
{
    if (!cursor.CanRefill() && left_ > 0)
        ReadAhead(cursor);
    if (cursor.CanRefill()) {
        cursor.Refill();
        return cursor;
    }
    for (; cursor.Count < 56; cursor.Count += 8)
        if (cursor.Next != cursor.End)
            cursor.Bits |= static_cast<uint64_t>(*cursor.Next++) << (56 - cursor.Count);
        else
            padding_ += 8;
    return cursor;
}
