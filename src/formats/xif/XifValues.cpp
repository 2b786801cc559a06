#include "formats/xif/XifValues.h"

#include "base/Text.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr const char* kSeparators = " \t,";

bool StartsValue(std::string_view text) {
    return text.size() >= 2 &&
           ((text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) || (text[0] == '\\' && text[1] == 'x'));
}

// Takes the digits of one value: every two are a byte, a single one is one as well.
bool TakeValue(std::string_view& text, std::string& bytes) {
    std::size_t taken = 0;
    while (!text.empty() && IsHexDigit(text[0]) && !StartsValue(text)) {
        const bool pair = text.size() > 1 && IsHexDigit(text[1]);
        if (!pair && taken > 0)
            return false;  // an odd number of digits
        bytes += static_cast<char>(pair ? 16 * HexValue(text[0]) + HexValue(text[1]) : HexValue(text[0]));
        text.remove_prefix(pair ? 2 : 1);
        ++taken;
    }
    return taken > 0;
}

}  // namespace

bool AddXifContent(std::string_view line, XifContent& content) {
    if (line.starts_with('"')) {
        line.remove_prefix(1);
        content.lineStarts.push_back(content.text.size());
        content.text += FromCodePage(line.substr(0, line.find('"')));
        return true;
    }
    std::string bytes;
    line.remove_prefix(TakeXifValues(line, bytes));
    if (line.find_first_not_of(kSeparators) != std::string_view::npos)
        return false;
    content.bytes += bytes;
    return true;
}

std::size_t TakeXifValues(std::string_view line, std::string& bytes) {
    std::string_view rest = line;
    std::size_t taken = 0;
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(kSeparators), rest.size()));
        if (StartsValue(rest))
            rest.remove_prefix(2);
        std::string value;
        if (!TakeValue(rest, value))
            return taken;
        bytes += value;
        taken = line.size() - rest.size();
    }
}

}  // namespace tovarek
