#include "support/XmlBytes.h"

#include <algorithm>

#include "support/Text.h"

namespace tovarek {

ReadableXml::Units ReadableXml::UnitsOf(std::string_view document) {
    const auto byte = [&](std::size_t i) {
        return i < document.size() ? static_cast<unsigned char>(document[i]) : 0xFFU;
    };
    if ((byte(0) == 0xFF && byte(1) == 0xFE) || (byte(0) == '<' && byte(1) == 0))
        return Units::littleEndian;
    if ((byte(0) == 0xFE && byte(1) == 0xFF) || (byte(0) == 0 && byte(1) == '<'))
        return Units::bigEndian;
    return Units::bytes;
}

ReadableXml::ReadableXml(std::string_view document) : units_(UnitsOf(document)), text_(document) {
    if (units_ != Units::bytes) {
        converted_ = FromUtf16(document, units_ == Units::bigEndian);
        text_ = converted_;
    }
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text_.starts_with(kMark)) {
        mark_ = kMark;
        text_.remove_prefix(kMark.size());
    }
}

bool ReadableXml::IsUnicode() const {
    if (units_ != Units::bytes || !text_.starts_with("<?xml"))
        return true;
    const std::string declaration = UpperCase(text_.substr(0, text_.find("?>")));
    return declaration.find("ENCODING") == std::string::npos ||
           declaration.find("UTF-8") != std::string::npos;
}

std::string ReadableXml::Encode(std::string_view text) const {
    const std::string whole = std::string(mark_).append(text);
    return units_ == Units::bytes ? whole : ToUtf16(whole, units_ == Units::bigEndian);
}

bool XmlCursor::Take(std::string_view word) {
    if (!rest_.starts_with(word))
        return false;
    rest_.remove_prefix(word.size());
    return true;
}

void XmlCursor::SkipBehind(std::string_view mark) {
    rest_.remove_prefix(std::min(rest_.find(mark), rest_.size()));
    Take(mark);
}

bool XmlCursor::SkipUnparsed() {
    if (Take("<!--"))
        SkipBehind("-->");
    else if (Take("<![CDATA["))
        SkipBehind("]]>");
    else if (Take("<?"))
        SkipBehind("?>");
    else
        return false;
    return true;
}

}  // namespace tovarek
