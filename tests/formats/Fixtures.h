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

}  // namespace tovarek::test
