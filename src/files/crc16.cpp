#include "files/crc16.h"

#include <array>

namespace
{
constexpr uint16_t Polynomial = 0xA001;
constexpr int Slices = 8;

using Table = std::array<uint16_t, 256>;

// The first table is the CRC of one byte; each further one that of a byte with one more zero byte behind it,
// so that eight bytes are taken at once.
constexpr std::array<Table, Slices> MakeTables() noexcept
{
    std::array<Table, Slices> tables = {};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ Polynomial : crc >> 1;
        tables[0][byte] = static_cast<uint16_t>(crc);
    }
    for (int slice = 1; slice < Slices; ++slice)
        for (unsigned byte = 0; byte < 256; ++byte) {
            unsigned before = tables[slice - 1][byte];
            tables[slice][byte] = static_cast<uint16_t>(before >> 8 ^ tables[0][before & 0xFF]);
        }
    return tables;
}

constexpr std::array<Table, Slices> Tables = MakeTables();
} // namespace

uint16_t UpdateCrc16(uint16_t crc, const uint8_t* bytes, size_t size) noexcept
{
    unsigned value = crc;
    for (; size >= Slices; bytes += Slices, size -= Slices)
        value = Tables[7][(bytes[0] ^ value) & 0xFF] ^ Tables[6][bytes[1] ^ value >> 8] ^
                Tables[5][bytes[2]] ^ Tables[4][bytes[3]] ^ Tables[3][bytes[4]] ^ Tables[2][bytes[5]] ^
                Tables[1][bytes[6]] ^ Tables[0][bytes[7]];
    for (; size > 0; ++bytes, --size)
        value = value >> 8 ^ Tables[0][(value ^ *bytes) & 0xFF];
    return static_cast<uint16_t>(value);
}
