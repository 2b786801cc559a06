// The bytes of an XML document, as far as its markup can be read without a parser. Markup is ASCII in every
// encoding that is in use; only the size of the units differs.
#pragma once

#include <cstddef>
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

// Takes markup off the front of a text, piece by piece.
class XmlCursor {
  public:
    explicit XmlCursor(std::string_view text) : start_(text.data()), rest_(text) {}

    // The number of bytes that were taken.
    std::size_t Position() const { return static_cast<std::size_t>(rest_.data() - start_); }
    // True when `word` stood at the front and was taken.
    bool Take(std::string_view word);
    // Takes all up to the end of the next `mark`, or everything.
    void SkipBehind(std::string_view mark);
    // Takes a comment, a CDATA section or a processing instruction; false when none stands at the front.
    bool SkipUnparsed();

  protected:
    const char* start_;
    std::string_view rest_;
};

}  // namespace tovarek
