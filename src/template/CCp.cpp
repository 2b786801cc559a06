#include "template/CCp.h"

#include <algorithm>
#include <string_view>

#include "base/Numbers.h"

namespace tovarek {
namespace {

// Takes the text before the first `separator` off `rest`, separator included. False when there is none.
bool TakeBefore(std::string_view& rest, char separator, std::string_view& field) {
    const std::size_t position = rest.find(separator);
    if (position == std::string_view::npos)
        return false;
    field = rest.substr(0, position);
    rest.remove_prefix(position + 1);
    return true;
}

// Takes the next number: up to the first "," or, without one, the first ";", or all that is left.
std::int32_t TakeNumber(std::string_view& rest) {
    std::string_view field;
    if (!TakeBefore(rest, ',', field) && !TakeBefore(rest, ';', field)) {
        field = rest;
        rest = {};
    }
    return LeadingInt32(field);
}

}  // namespace

void CCp::AnalyseCP() {
    length = 0;
    arraySize = 0;
    std::string_view rest = declaration;
    std::string_view field;
    // The first two fields say what the property applies to; they are passed over unread. The third is the
    // scope.
    for (int i = 0; i < 3; ++i)
        if (!TakeBefore(rest, ',', field))
            return;
    // The scope is a single digit; flags may follow it.
    scope = LeadingInt32(field.substr(0, 1));
    if (!TakeBefore(rest, ',', field))
        return;
    typeIndexInScope = LeadingInt32(field);
    length = TakeNumber(rest);
    if (!rest.empty())
        arraySize = TakeNumber(rest);
}

void CCp::AddNameInString() {
    const std::size_t semicolon = declaration.find(';');
    if (semicolon == std::string::npos)
        declaration += ';';
    else if (semicolon + 1 != declaration.size())
        return;
    declaration += name;
}

}  // namespace tovarek
