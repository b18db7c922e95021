#pragma once

#include <cstddef>
#include <cstdint>

// Continues the CRC-16 with the reflected polynomial 0xA001 over more bytes; it starts at 0.
[[nodiscard]] uint16_t UpdateCrc16(uint16_t crc, const uint8_t* bytes, size_t size) noexcept;
