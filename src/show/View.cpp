#include "show/View.h"

#include "base/Text.h"

namespace tovarek {
namespace {

// What no form can hold, or what would make a text look like another one.
bool IsShown(char32_t c) {
    const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool isDirection = (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    const bool isSeparator = c == 0x2028 || c == 0x2029;
    return !isControl && !isDirection && !isSeparator && (c & 0xFFFEU) != 0xFFFEU;
}

}  // namespace

std::string ShownText(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCharacter(text, at);
        if (IsShown(c)) {
            AppendUtf8(shown, c);
            continue;
        }
        shown += c < 0x100 ? "\\x" : "\\u";
        AppendHex(shown, c, c < 0x100 ? 2 : 4);
    }
    return shown;
}

}  // namespace tovarek
