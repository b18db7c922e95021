#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// A terminated text of the exact size, so that a read past its end is seen. A byte is a character, but for
// 0xFF, which takes the two bytes behind it as one.
inline std::vector<wchar_t> TextOfBytes(const uint8_t* data, size_t size)
{
    std::vector<wchar_t> text;
    text.reserve(size + 1);
    for (size_t i = 0; i < size; ++i) {
        if (data[i] == 0xFF && i + 2 < size) {
            text.push_back(static_cast<wchar_t>(data[i + 1] | data[i + 2] << 8));
            i += 2;
        } else {
            text.push_back(static_cast<wchar_t>(data[i]));
        }
    }
    text.push_back(0);
    text.shrink_to_fit();
    return text;
}
