#include "files/grid_file_reader.h"

#include <algorithm>

bool GridFileReader::Fill() noexcept
{
    at_ = 0;
    end_ = ended_ ? 0 : source_.Read(block_, BlockSize);
    ended_ = end_ == 0;
    return !ended_;
}

bool GridFileReader::ReadBytes(void* target, size_t size) noexcept
{
    auto* to = static_cast<uint8_t*>(target);
    while (size) {
        if (at_ == end_ && !Fill())
            return false;
        size_t count = std::min(size, end_ - at_);
        std::memcpy(to, block_ + at_, count);
        to += count;
        at_ += count;
        size -= count;
    }
    return true;
}

// Copies what the block has of a text, at most `room` units. True when its zero was reached and passed.
bool GridFileReader::TakeText(size_t& length, size_t room) noexcept
{
    const uint8_t* from = block_ + at_;
    const size_t left = end_ - at_, most = std::min(left, room);
    wchar_t* to = text_ + length;
    size_t count = 0;
    while (count < most && from[count]) {
        to[count] = from[count];
        ++count;
    }
    bool ended = count < left && from[count] == 0;
    length += count;
    at_ += count + ended;
    return ended;
}

GridFileReader::Text GridFileReader::ReadText() noexcept
{
    size_t length = 0;
    while (at_ != end_ || Fill()) {
        if (TakeText(length, MaxFileText - length))
            break;
        if (at_ != end_) // cut: the text goes on
            break;
    }
    text_[length] = 0;
    return {text_, static_cast<int>(length)};
}
