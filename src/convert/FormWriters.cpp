#include "convert/FormWriters.h"

#include <utility>

#include "base/Text.h"
#include "xml/XmlEscaped.h"

namespace tovarek {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";

// One line of it: what ends lines becomes a blank.
std::string OneLine(std::string_view text) {
    std::string line(text);
    for (char& c : line)
        if (c == '\r' || c == '\n' || c == '\0')
            c = ' ';
    return line;
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
           value.back() == value.front();
}

// Characters of an element's name, by the rules of XML 1.0 but for the rare gaps among letters.
bool IsNameCharacter(char32_t c, bool isFirst) {
    constexpr char32_t kFirstLetter = 0xC0;
    constexpr char32_t kTimes = 0xD7;
    constexpr char32_t kDivided = 0xF7;
    constexpr char32_t kMiddleDot = 0xB7;
    constexpr char32_t kPunctuation = 0x2000;
    constexpr char32_t kReplacement = 0xFFFD;
    if (c < 0x80) {
        const char ascii = static_cast<char>(c);
        const bool isLetter = AsciiUpper(ascii) >= 'A' && AsciiUpper(ascii) <= 'Z';
        return isLetter || ascii == '_' || (!isFirst && (IsDigit(ascii) || ascii == '-' || ascii == '.'));
    }
    return (c >= kFirstLetter && c < kPunctuation && c != kTimes && c != kDivided && c != 0x37E &&
            (c < 0x300 || c > 0x36F || !isFirst)) ||
           (!isFirst && c == kMiddleDot) || (c >= 0x3001 && c <= 0xD7FF) ||
           (c >= 0xF900 && c < kReplacement) || (c >= 0x10000 && c <= 0xEFFFF);
}

}  // namespace

std::string XmlName(std::string_view name) {
    std::string result;
    for (std::size_t position = 0; position < name.size();) {
        const char32_t c = NextCharacter(name, position);
        if (IsNameCharacter(c, result.empty()))
            AppendUtf8(result, c);
        else if (result.empty() && IsNameCharacter(c, false))
            AppendUtf8(result.append("_"), c);
        else
            result += '_';
    }
    return result.empty() ? "_" : result;
}

void IniWriter::Comment(std::string_view text) {
    text_.append("; ").append(OneLine(text)).append(kLineEnd);
}

void IniWriter::Section(std::string_view name, std::string_view comment) {
    text_ += text_.empty() ? "" : kLineEnd;
    if (!comment.empty())
        Comment(comment);
    text_.append("[").append(name).append("]").append(kLineEnd);
}

void IniWriter::Key(std::string_view key, std::string_view value) {
    std::string line = OneLine(value);
    if (IsQuoted(line))
        line = '"' + line + '"';
    text_.append(key).append("=").append(line).append(kLineEnd);
}

std::string IniWriter::Take() {
    return std::string(kMark) + std::exchange(text_, {});
}

XmlWriter::XmlWriter(XmlHead head) {
    if (head != XmlHead::none)
        text_ += kMark;
    if (head == XmlHead::declaration)
        text_.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>").append(kLineEnd);
}

void XmlWriter::Open(std::string_view name, std::string_view attributes) {
    Indent();
    text_.append("<").append(XmlName(name)).append(attributes).append(">").append(kLineEnd);
    ++depth_;
}

void XmlWriter::Close(std::string_view name) {
    --depth_;
    Indent();
    text_.append("</").append(XmlName(name)).append(">").append(kLineEnd);
}

void XmlWriter::Element(std::string_view name, std::string_view text) {
    Indent();
    text_.append("<").append(name).append(">").append(XmlEscaped(text));
    text_.append("</").append(name).append(">").append(kLineEnd);
}

void XmlWriter::Comment(std::string_view text) {
    std::string line;
    const std::string whole = OneLine(text);
    for (std::size_t position = 0; position < whole.size();) {
        const char32_t c = NextCharacter(whole, position);
        AppendUtf8(line, IsXmlCharacter(c) ? c : U'?');
    }
    // Two hyphens would end it.
    for (std::size_t at = line.find("--"); at != std::string::npos; at = line.find("--"))
        line[at + 1] = '_';
    Indent();
    text_.append("<!-- ").append(line).append(" -->").append(kLineEnd);
}

}  // namespace tovarek
