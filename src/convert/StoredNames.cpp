#include "convert/StoredNames.h"

#include <algorithm>
#include <charconv>

namespace tovarek {
namespace {

// `number` and the rest of "12_name"; 0 where a name does not begin like that.
std::int32_t TakeNumber(std::string_view& name) {
    std::int32_t number = 0;
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), number);
    const auto digits = static_cast<std::size_t>(parsed.ptr - name.data());
    if (parsed.ec != std::errc() || number <= 0 || name.front() == '0' ||
        (digits < name.size() && name[digits] != '_'))
        return 0;
    name.remove_prefix(std::min(digits + 1, name.size()));
    return number;
}

std::string WithoutUnderscores(std::string_view name) {
    name.remove_prefix(std::min(name.find_first_not_of('_'), name.size()));
    return std::string(name.empty() ? "type" : name);
}

}  // namespace

EnumName EnumNameOf(std::string_view set) {
    constexpr std::string_view kPrefix = "ENUM_";
    std::string_view rest = set;
    if (set.starts_with(kPrefix)) {
        rest.remove_prefix(kPrefix.size());
        const std::int32_t number = rest.empty() ? 0 : TakeNumber(rest);
        if (number > kLargestStandardIndex)
            return {number, std::string(rest)};
    }
    return {0, std::string(set)};
}

void NameType(std::string_view stored, UserType& type) {
    type.nameNumber = type.number;
    std::string_view name = stored;
    if (type.scope == kOwnScope && type.isUnvt) {
        type.name = WithoutUnderscores(name);
        return;
    }
    if (name.size() > 1 && name.front() == '_') {
        name.remove_prefix(1);
        const std::int32_t number = TakeNumber(name);
        if (number == type.number || (number > 0 && type.isUnvt)) {
            type.nameNumber = number;
            type.name = name;
            return;
        }
    }
    type.name = WithoutUnderscores(stored);
}

}  // namespace tovarek
