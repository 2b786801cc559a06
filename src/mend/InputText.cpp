#include "mend/InputText.h"

#include <utility>

#include "base/Text.h"
#include "support/IniText.h"
#include "xml/XmlText.h"

namespace tovarek {
namespace {

std::string Decoded(std::string bytes) {
    try {
        return LooksLikeXml(bytes) ? XmlText(bytes) : DecodeIni(std::move(bytes));
    } catch (const XmlFault&) {
        return {};
    }
}

}  // namespace

bool LooksLikeXml(std::string_view bytes) {
    // Marks and NUL bytes stand beside the "<" of other encodings.
    const std::size_t first = bytes.find_first_not_of(std::string_view(" \t\r\n\xEF\xBB\xBF\xFE\xFF\0", 10));
    return first != std::string_view::npos && bytes[first] == '<';
}

InputText::InputText(std::string bytes) : text_(Decoded(std::move(bytes))) {
    for (std::string_view rest = text_; !rest.empty();)
        lines_.push_back(TakeLine(rest));
}

std::string_view InputText::Line(int number) const {
    return number > 0 && static_cast<std::size_t>(number) <= lines_.size()
               ? lines_[static_cast<std::size_t>(number) - 1]
               : std::string_view();
}

}  // namespace tovarek
