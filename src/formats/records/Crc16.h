// The one checksum of the resource files: CRC-16/ARC (polynomial 0x8005, reflected, start value 0, no
// inversion).
#pragma once

#include <cstdint>
#include <string_view>

namespace tovarek {

// The checksum of `bytes`, continuing one of what stands before them.
std::uint16_t Crc16(std::string_view bytes, std::uint16_t crc = 0);

}  // namespace tovarek
