#include "xml/XmlEscaped.h"

#include "base/Text.h"

namespace tovarek {
namespace {

std::string_view Reference(char32_t c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':
            return "&#13;";
        case '\n':
            return "&#10;";
        default:
            return {};
    }
}

}  // namespace

std::string XmlEscaped(std::string_view text) {
    std::string escaped;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = NextCharacter(text, position);
        if (const std::string_view reference = Reference(c); !reference.empty())
            escaped += reference;
        else
            AppendUtf8(escaped, IsXmlCharacter(c) ? c : U'?');
    }
    return escaped;
}

}  // namespace tovarek
