#include "contradictions/SelfDocumentation.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "base/Text.h"

namespace tovarek {
namespace {

// More objects than any device has.
constexpr std::size_t kMostObjects = 65535;

// Takes digits off the front; nothing where there are none.
std::optional<std::size_t> TakeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    if (parsed.ptr == text.data())
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(parsed.ptr - text.data()));
    return parsed.ec == std::errc() ? std::min<std::size_t>(number, kMostObjects) : kMostObjects;
}

// The list behind "&3.0@"; nothing for another form.
std::optional<std::string_view> ObjectList(std::string_view text) {
    if (!text.starts_with('&'))
        return std::nullopt;
    text.remove_prefix(1);
    const bool hasMajor = TakeNumber(text).has_value() && text.starts_with('.');
    text.remove_prefix(hasMajor ? 1 : 0);
    if (!hasMajor || !TakeNumber(text) || !text.starts_with('@'))
        return std::nullopt;
    return text.substr(1, text.find(';') - 1);
}

}  // namespace

std::optional<std::size_t> ObjectCount(std::string_view selfDocumentation) {
    const std::optional<std::string_view> list = ObjectList(selfDocumentation);
    std::size_t count = 0;
    for (std::size_t start = 0; list && start <= list->size();) {
        const std::size_t end = std::min(list->find(',', start), list->size());
        std::string_view object = list->substr(start, end - start);
        start = end + 1;
        if (!TakeNumber(object))
            return std::nullopt;
        std::size_t inArray = 1;
        if (object.starts_with('[')) {
            object.remove_prefix(1);
            inArray = TakeNumber(object).value_or(kMostObjects);
        }
        count = std::min(count + std::max<std::size_t>(inArray, 1), kMostObjects);
    }
    return list ? std::optional(count) : std::nullopt;
}

}  // namespace tovarek
