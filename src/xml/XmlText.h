// The bytes of an XML document, or of its DTD file, as text.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// Why a document cannot be read. An exception.
struct XmlFault {
    std::string reason;
    int line = 0;  // 1-based, 0 when unknown
};

// `bytes` in UTF-8, without a mark, with LF for CR LF and for a lone CR. The encoding is that of the mark;
// without one that of the declaration `<?xml ... encoding='...'?>`; without either UTF-8, or UTF-16 when the
// first character says so. Throws an XmlFault for a name outside our list and for bytes that do not decode.
std::string XmlText(std::string_view bytes);

// Turns the text declaration of a DTD file, if there is one, into blanks, so that places stay what they are.
// The parser would read an encoding out of it that the text no longer has.
void BlankTextDeclaration(std::string& dtd);

}  // namespace tovarek
