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

void GridFileReader::Append(size_t& length, size_t count) noexcept
{
    const uint8_t* from = block_ + at_;
    wchar_t* to = text_ + length;
    for (size_t i = 0; i < count; ++i)
        to[i] = from[i];
    length += count;
    at_ += count;
}

GridFileReader::Text GridFileReader::ReadText() noexcept
{
    size_t length = 0;
    while (at_ != end_ || Fill()) {
        const void* zero = std::memchr(block_ + at_, 0, end_ - at_);
        size_t left =
            zero ? static_cast<size_t>(static_cast<const uint8_t*>(zero) - block_) - at_ : end_ - at_;
        size_t room = MaxFileText - length;
        Append(length, std::min(left, room));
        if (left > room)
            break;
        if (zero) {
            ++at_;
            break;
        }
    }
    text_[length] = 0;
    return {text_, static_cast<int>(length)};
}
