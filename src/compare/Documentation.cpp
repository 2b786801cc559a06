#include "compare/Documentation.h"

#include <algorithm>

#include "base/Text.h"
#include "system/CodePage.h"

namespace tovarek {

std::string DocumentationBytes(std::string_view text) {
    constexpr std::size_t kEscape = 4;
    const std::string bytes = ToCodePage(text);
    std::string held;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const std::string_view rest = std::string_view(bytes).substr(at, kEscape);
        if (rest.size() == kEscape && rest.starts_with("\\x") && IsHexDigit(rest[2]) && IsHexDigit(rest[3])) {
            held += static_cast<char>(HexValue(rest[2]) * 16 + HexValue(rest[3]));
            at += kEscape - 1;
        } else {
            held += bytes[at];
        }
    }
    return held;
}

DocumentationParts PartsOfDocumentation(std::string_view text) {
    const std::string bytes = DocumentationBytes(text);
    const std::size_t end = std::min(bytes.find(';'), bytes.size());
    const std::size_t objects = std::min(bytes.find('@'), end);
    return {bytes.substr(0, objects), bytes.substr(objects, end - objects), bytes.substr(end)};
}

}  // namespace tovarek
