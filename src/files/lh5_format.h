#pragma once
// The fixed parameters of the method "-lh5-": LZSS over a sliding window, in blocks with Huffman codes of
// their own.

// A block is the 16-bit count of its items and three tables of code lengths: T, which codes the lengths of C;
// C, for literals and match lengths; and P, for the bit lengths of distances. The items follow.
namespace lh5
{
constexpr int WindowBits = 13;
constexpr int Window = 1 << WindowBits; // bytes
constexpr int LongestMatch = 256;
constexpr int ShortestMatch = 3;

// A C code up to 255 is a literal, one above stands for a match of that code less LengthBias.
constexpr int Literals = 256;
constexpr int LengthBias = Literals - ShortestMatch;
constexpr int ItemCodes = Literals + LongestMatch - ShortestMatch + 1; // C
constexpr int PositionCodes = WindowBits + 1;                          // P
constexpr int LengthCodes = 19;                                        // T
constexpr int LongestCode = 16;                                        // bits

// Widths of the counts that tables begin with, and of the code of a table that has only one.
constexpr int BlockSizeBits = 16;
constexpr int ItemCountBits = 9;
constexpr int PositionCountBits = 4;
constexpr int LengthCountBits = 5;

// Behind this entry of the T table two bits tell how many zero entries are left out.
constexpr int SkipEntry = 3;
constexpr int NoSkipEntry = -1;
constexpr int SkipLimit = 6;

// T codes for runs of zeros among the C lengths; a length n itself is n + LengthOffset.
constexpr int OneZero = 0;
constexpr int ShortRun = 1;
constexpr int ShortRunBits = 4;
constexpr int ShortRunBase = 3;
constexpr int LongRun = 2;
constexpr int LongRunBits = 9;
constexpr int LongRunBase = 20;
constexpr int LengthOffset = 2;
} // namespace lh5
