#include <algorithm>
#include <array>

#include "base/Text.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

// windows-1252, bytes 0x80 to 0x9F; everywhere else byte and code point agree.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

std::string ToCodePage(std::string_view text) {
    if (IsAscii(text))
        return std::string(text);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = NextCharacter(text, position);
        if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
            bytes.push_back(static_cast<char>(character));
            continue;
        }
        const auto* found = std::find(kHighControls.begin(), kHighControls.end(), character);
        bytes.push_back(
            found == kHighControls.end() ? '?' : static_cast<char>(0x80 + (found - kHighControls.begin())));
    }
    return bytes;
}

std::string FromCodePage(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : byte);
    }
    return text;
}

}  // namespace tovarek
