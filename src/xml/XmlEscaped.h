// Texts as XML documents hold them.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// False for characters that no XML document holds.
constexpr bool IsXmlCharacter(char32_t c) {
    return c >= 0x20 ? c != 0xFFFE && c != 0xFFFF : c == '\t' || c == '\n' || c == '\r';
}

// The text as the content of an element; a parser reads it back as it was, line breaks included. Quotes stay.
// A character that no XML document holds becomes '?'.
std::string XmlEscaped(std::string_view text);

}  // namespace tovarek
