#include "formats/records/Crc16.h"

#include <array>
#include <cstddef>

namespace tovarek {
namespace {

using Table = std::array<std::uint16_t, 256>;

// tables[0] advances the checksum by one byte, tables[1] by one byte that another one follows: with both, two
// bytes cost two independent look-ups. Opening the standard set is mostly this.
constexpr std::array<Table, 2> MakeTables() {
    std::array<Table, 2> tables{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
        tables[0][byte] = static_cast<std::uint16_t>(crc);
    }
    for (unsigned byte = 0; byte < 256; ++byte) {
        const unsigned crc = tables[0][byte];
        tables[1][byte] = static_cast<std::uint16_t>((crc >> 8U) ^ tables[0][crc & 0xFFU]);
    }
    return tables;
}

constexpr std::array<Table, 2> kTables = MakeTables();

}  // namespace

std::uint16_t Crc16(std::string_view bytes, std::uint16_t crc) {
    const auto byteAt = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    unsigned value = crc;
    std::size_t i = 0;
    for (; i + 1 < bytes.size(); i += 2) {
        value = static_cast<unsigned>(kTables[1][(value ^ byteAt(i)) & 0xFFU]) ^
                kTables[0][((value >> 8U) ^ byteAt(i + 1)) & 0xFFU];
    }
    if (i < bytes.size())
        value = (value >> 8U) ^ kTables[0][(value ^ byteAt(i)) & 0xFFU];
    return static_cast<std::uint16_t>(value);
}

}  // namespace tovarek
