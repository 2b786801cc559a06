// The bytes of an XML document, as far as its markup can be read without a parser. Markup is ASCII in every
// encoding that is in use; only the size of the units differs.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// A document without its mark, in a form whose ASCII characters are bytes of their own. Positions count in
// that form. It refers to the document, which outlives it.
class ReadableXml {
  public:
    explicit ReadableXml(std::string_view document);
    ReadableXml(const ReadableXml&) = delete;
    ReadableXml& operator=(const ReadableXml&) = delete;

    std::string_view Text() const { return text_; }
    // Whether the text is UTF-8; else only its ASCII characters are known.
    bool IsUnicode() const;
    // The document, mark and encoding as they were, with `text` in the place of its own.
    std::string Encode(std::string_view text) const;

  private:
    enum class Units { bytes, littleEndian, bigEndian };
    static Units UnitsOf(std::string_view document);

    Units units_;
    std::string converted_;  // where the document's own bytes cannot be read
    std::string_view mark_;  // in front of the text, in the same form
    std::string_view text_;
};

constexpr bool IsXmlSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace tovarek
