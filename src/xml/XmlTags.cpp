#include "xml/XmlTags.h"

#include <algorithm>
#include <utility>

namespace tovarek {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

// Behind the markup that begins with the "<" at `start`; nowhere when it does not end.
std::size_t EndOfMarkup(std::string_view text, std::size_t start) {
    constexpr std::pair<std::string_view, std::string_view> kOpaque[] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [open, close] : kOpaque) {
        if (!text.substr(start).starts_with(open))
            continue;
        const std::size_t end = text.find(close, start + open.size());
        return end == kNowhere ? end : end + close.size();
    }
    // Values of attributes may hold a ">".
    char quote = '\0';
    for (std::size_t at = start; at < text.size(); ++at) {
        const char c = text[at];
        if (quote == '\0' && c == '>')
            return at + 1;
        if (quote == c)
            quote = '\0';
        else if (quote == '\0' && (c == '"' || c == '\''))
            quote = c;
    }
    return kNowhere;
}

TextSpan NameIn(std::string_view text, std::size_t start, std::size_t end) {
    return {start, std::min(text.find_first_of(" \t\r\n/>", start), end) - start};
}

}  // namespace

std::optional<ElementSpans> ElementAt(std::string_view text, std::size_t start) {
    ElementSpans spans;
    int depth = 0;
    for (std::size_t at = start; at < text.size() && text[at] == '<'; at = text.find('<', at)) {
        const std::size_t end = EndOfMarkup(text, at);
        if (end == kNowhere)
            return std::nullopt;
        const std::string_view markup = text.substr(at, end - at);
        const bool isEnd = markup.starts_with("</");
        const bool isStart = !isEnd && !markup.starts_with("<!") && !markup.starts_with("<?");
        if (at == start) {
            if (!isStart)
                return std::nullopt;
            spans = {NameIn(text, at + 1, end), {end, 0}, {end, 0}, {at, end - at}};
        }
        if (isStart && !markup.ends_with("/>"))
            ++depth;
        if (isEnd && --depth == 0) {
            spans.content.size = at - spans.content.start;
            spans.endName = NameIn(text, at + 2, end);
            spans.whole.size = end - start;
        }
        if (depth == 0)
            return spans;
        at = end;
    }
    return std::nullopt;
}

}  // namespace tovarek
