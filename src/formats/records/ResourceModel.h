// What the resource files have in common: references, versions, program ID and header texts. Texts are UTF-8
// here and windows-1252 in the files.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "formats/records/ResourceKinds.h"
#include "system/Clock.h"

namespace tovarek {

// A string: the set's scope (0 to 6) and the number in that set's language file (1 to 16,777,215; 0 = no
// string).
struct StringRef {
    std::uint8_t scope = 0;
    std::uint32_t number = 0;
    bool operator==(const StringRef&) const = default;
};
inline constexpr std::uint32_t kLastString = 0xFFFFFF;

// True for the number of a string, and for 0.
constexpr bool IsTextNumber(std::int32_t number) {
    return number >= 0 && number <= std::int32_t{kLastString};
}

// A network-variable type, configuration-property type or enumeration set; the field that holds it tells
// which. Scope 0 is the standard set.
struct TypeRef {
    std::uint8_t scope = 0;
    std::uint16_t index = 0;
    bool operator==(const TypeRef&) const = default;
};

using ProgramId = std::array<std::uint8_t, 8>;

// The header fields that all kinds of files carry.
struct ResourceHeader {
    // The three text blocks without the blanks that fill them, at most 255 bytes each in the code page.
    std::string title;
    std::string contact;
    std::string webPage;

    StringRef description;  // of this file, in the set's own language file
    StringRef creator;
    std::uint16_t majorVersion = 0;  // data version
    std::uint8_t minorVersion = 0;
    std::uint8_t formatVersion = 0;  // 3 language, 3 or 6 type, 5 profile
    std::uint8_t formatMinor = 0;
    CivilTime saved;  // UTC; year 0 to 65535
    ProgramId programId{};
    std::uint8_t scope = 0;
};

// Two tables of seven numbers that type and profile files carry; editors write 0 to 6 twice. Their meaning is
// not known, they are kept as they are.
using HeaderMarks = std::array<std::uint16_t, 14>;
inline constexpr HeaderMarks kUsualMarks = {0, 1, 2, 3, 4, 5, 6, 0, 1, 2, 3, 4, 5, 6};

}  // namespace tovarek
