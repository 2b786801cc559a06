#include <cstdint>

#include "base/Text.h"
#include "system/Wide.h"

namespace tovarek {
namespace {

constexpr bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The surrogate whose number stands at `position` in three bytes, or 0.
char32_t LoneSurrogateAt(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[position + i]); };
    if (position + 3 > text.size() || byte(0) != 0xED || byte(1) < 0xA0 || byte(1) > 0xBF ||
        (byte(2) & 0xC0U) != 0x80U)
        return 0;
    return 0xD000U | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
}

}  // namespace

std::wstring ToWide(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        if (const char32_t lone = LoneSurrogateAt(text, position); lone != 0) {
            wide.push_back(static_cast<wchar_t>(lone));
            position += 3;
            continue;
        }
        const char32_t character = NextCharacter(text, position);
        if (character < 0x10000) {
            wide.push_back(static_cast<wchar_t>(character));
        } else {
            wide.push_back(static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10U)));
            wide.push_back(static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FFU)));
        }
    }
    return wide;
}

std::string FromWide(std::wstring_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        const char32_t next = i + 1 < text.size() ? text[i + 1] : U'\0';
        if (IsHighSurrogate(unit) && IsLowSurrogate(next)) {
            AppendUtf8(utf8, 0x10000 + ((unit - 0xD800) << 10U) + (next - 0xDC00));
            ++i;
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            utf8.push_back('\xED');
            utf8.push_back(static_cast<char>(0x80U | ((unit >> 6U) & 0x3FU)));
            utf8.push_back(static_cast<char>(0x80U | (unit & 0x3FU)));
        } else {
            AppendUtf8(utf8, unit);
        }
    }
    return utf8;
}

}  // namespace tovarek
