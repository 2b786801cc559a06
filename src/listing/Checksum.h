// The checksum of the resource files, bit by bit: an independent second opinion for listings.
#pragma once

#include <cstdint>
#include <string_view>

namespace tovarek {

constexpr std::uint16_t BitwiseCrc(std::string_view bytes, std::uint16_t start = 0) {
    unsigned crc = start;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
    }
    return static_cast<std::uint16_t>(crc);
}

static_assert(BitwiseCrc("123456789") == 0xBB3D);

}  // namespace tovarek
