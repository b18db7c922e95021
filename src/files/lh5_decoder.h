#pragma once

#include "files/lh5_bits.h"
#include "files/lh5_format.h"

// A Huffman code for reading: the first bits of a code lead to its symbol, or to the tree of the longer ones.
template<int Symbols, int IndexBits> class DecodeTable
{
public:
    static constexpr int SymbolCount = Symbols;
    static constexpr unsigned NoSymbol = 2047;

    // The same symbol for everything, without a bit.
    void BuildSingle(unsigned symbol) noexcept;
    // False when the lengths are those of no code: they claim more codes than there are.
    [[nodiscard]] bool Build(const uint8_t (&lengths)[Symbols]) noexcept;

    // The next symbol, NoSymbol where no code leads. Takes at most 16 bits, which have to be there.
    unsigned Take(BitCursor& bits) const noexcept
    {
        unsigned entry = first_[bits.Peek(IndexBits)];
        bits.Skip(static_cast<int>(entry & LengthMask));
        unsigned symbol = entry >> LengthBits;
        while (symbol >= Symbols && symbol != NoSymbol) {
            symbol = branches_[symbol - Symbols][bits.Peek(1)];
            bits.Skip(1);
        }
        return symbol;
    }

private:
    static constexpr int LengthBits = 5;
    static constexpr unsigned LengthMask = (1u << LengthBits) - 1;
    static constexpr int NodeLimit = Symbols + 64;

    static uint16_t Entry(unsigned symbol, int length) noexcept
    {
        return static_cast<uint16_t>(symbol << LengthBits | static_cast<unsigned>(length));
    }
    bool AddNode(unsigned& node) noexcept;
    bool AddLongCode(unsigned symbol, unsigned code, int length) noexcept;

    uint16_t first_[1 << IndexBits];
    uint16_t branches_[NodeLimit][2]; // nodes are numbered from Symbols on
    int nodes_ = 0;
};

// Decodes `packedSize` bytes of a reader.
class Lh5Decoder
{
public:
    Lh5Decoder(ByteReader& source, uint64_t packedSize) noexcept;

    // Decodes the next bytes, at most a window of them, to the front of `Chunk`. All chunks but the last
    // must be whole windows, since matches reach back into the one before. False when the data is bad.
    [[nodiscard]] bool Decode(int count) noexcept;

    // Whether the reader ended before the packed size.
    bool SourceEnded() const noexcept { return bits_.SourceEnded(); }

    uint8_t Chunk[lh5::Window];

private:
    bool ReadBlockHead() noexcept;
    template<class Table> bool ReadLengths(Table& table, int countBits, int skipEntry) noexcept;
    bool ReadItemLengths() noexcept;
    int DecodeItems(int at, int count) noexcept;
    int CopyMatch(int at, int count) noexcept;

    BitReader bits_;
    unsigned itemsLeft_ = 0; // of the block
    int matchLeft_ = 0;      // bytes of a match that ran past the chunk
    int matchFrom_ = 0;
    DecodeTable<lh5::ItemCodes, 12> items_;
    DecodeTable<lh5::PositionCodes, 8> positions_;
    DecodeTable<lh5::LengthCodes, 8> lengths_;
};
