#pragma once

#include "files/lh5_format.h"

#include <cstdint>

// What one alphabet of a block is coded with.
struct HuffmanCode {
    // The only symbol in use, 0 where none is; Several where there are more. A single symbol takes no bits.
    static constexpr int Several = -1;
    int Single = 0;
    unsigned Total = 0; // the sum of the frequencies
    uint8_t Length[lh5::ItemCodes] = {};
    uint16_t Code[lh5::ItemCodes] = {};

    // How many entries there are up to the last one in use.
    int UsedCount(int count) const noexcept;
};

// Makes the codes of `count` symbols, at most ItemCodes, from their frequencies: none longer than 16 bits,
// given out in order of length and then of symbol.
void BuildHuffmanCode(const uint16_t* frequency, int count, HuffmanCode& code) noexcept;
