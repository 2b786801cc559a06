// What the tests of the formats and of the control share: the sample sets, bytes written as hexadecimal.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Samples.h"
#include "Scratch.h"
#include "base/Text.h"
#include "control/QVxTypes.h"
#include "formats/format/FormatFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"
#include "formats/records/Crc16.h"
#include "formats/type/TypeFile.h"
#include "system/Files.h"

namespace tovarek::test {

inline std::string Bytes(std::string_view hex) {
    std::string digits(hex);
    std::erase_if(digits, [](char c) { return !IsHexDigit(c); });
    return FromHex(digits).value();
}

// Paths of all sample files with this extension, in either letter case.
inline std::vector<std::string> Samples(const std::string& extension) {
    std::vector<std::string> paths = SampleFiles("resources");
    std::erase_if(paths,
                  [&](const std::string& path) { return !UpperCase(path).ends_with(UpperCase(extension)); });
    return paths;
}

// A file of each kind with the contents of the worked examples: scope 3, one structure with bit fields.
struct ExampleSet {
    LanguageFile language;
    TypeFile types;
    ProfileFile profiles;
};
ExampleSet MakeExampleSet();

// The example files as bytes, in the order language, type, profile.
std::vector<std::string> ExampleBytes();

// The creation of files of the examples' set, through the control.
class ExampleControl {
  public:
    ExampleControl();
    std::int32_t CreateLanguage(const std::string& path, std::int32_t locale = 0x0409);
    std::int32_t CreateProfile(const std::string& path);
    std::int32_t CreateType(const std::string& path);
    std::int32_t Save();

    QVxTypes types;
    std::int32_t handle = 0;
};

inline TypeDescription Ranged(TypeKind kind, std::int64_t minimum, std::int64_t maximum) {
    TypeDescription type = NumberOfKind(kind);
    type.minimum = minimum;
    type.maximum = maximum;
    return type;
}

inline std::uint32_t NumberAt(const std::string& bytes, std::size_t position) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8U | static_cast<unsigned char>(bytes[position + i]);
    return value;
}

inline void Put16(std::string& bytes, std::size_t position, std::uint16_t value) {
    bytes[position] = static_cast<char>(value >> 8U);
    bytes[position + 1] = static_cast<char>(value & 0xFFU);
}

inline void Put32(std::string& bytes, std::size_t position, std::size_t value) {
    Put16(bytes, position, static_cast<std::uint16_t>(value >> 16U));
    Put16(bytes, position + 2, static_cast<std::uint16_t>(value));
}

// Makes both checksums right, so that damage reaches the checks behind them.
inline void Repair(std::string& bytes) {
    const std::size_t headerEnd = NumberAt(bytes, 0x314);
    const std::size_t data = NumberAt(bytes, 0x31A);
    const std::size_t length = NumberAt(bytes, 0x31E);
    if (length > 2 && data < bytes.size() && length <= bytes.size() - data)
        Put16(bytes, data, Crc16(std::string_view(bytes).substr(data + 2, length - 2)));
    if (headerEnd >= 0x31A && headerEnd <= bytes.size()) {
        Put16(bytes, 0x318,
              Crc16(std::string_view(bytes).substr(0x31A, headerEnd - 0x31A),
                    Crc16(std::string_view(bytes).substr(0, 0x318))));
    }
}

}  // namespace tovarek::test
