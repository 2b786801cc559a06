#include "xml/Encodings.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

#include "base/Text.h"

namespace tovarek {
namespace {

#define TOVAREK_ENCODING(name, aliases, upperHalf) {name, aliases, upperHalf},
constexpr Encoding kEncodings[] = {
#include "xml/Encodings.inc"
};
#undef TOVAREK_ENCODING

}  // namespace

char32_t Encoding::Character(unsigned char byte) const {
    if (byte < 0x80)
        return byte;
    const std::string_view digits = upperHalf.substr((byte - 0x80U) * std::size_t{4}, 4);
    std::uint32_t character = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), character, 16);
    return character;
}

bool IsEncodingName(std::string_view name, std::string_view own, std::string_view aliases) {
    const std::string wanted = UpperCase(name);
    if (wanted.empty() || wanted.find(' ') != std::string::npos)
        return false;
    const std::string all = " " + UpperCase(own) + " " + std::string(aliases) + " ";
    return all.find(" " + wanted + " ") != std::string::npos;
}

const Encoding* FindEncoding(std::string_view name) {
    const auto* const found = std::find_if(
        std::begin(kEncodings), std::end(kEncodings),
        [&](const Encoding& encoding) { return IsEncodingName(name, encoding.name, encoding.aliases); });
    return found == std::end(kEncodings) ? nullptr : found;
}

std::string EncodingNames() {
    std::string names;
    for (const Encoding& encoding : kEncodings)
        names.append(names.empty() ? "" : ", ").append(encoding.name);
    return names;
}

}  // namespace tovarek
