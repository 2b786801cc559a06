#include "compare/InterfaceChange.h"

#include "base/Text.h"

namespace tovarek {

std::string ChangeText(const InterfaceChange& change) {
    std::string text = change.record + ": " + change.field;
    if (change.before.empty() && change.after.empty())
        return text;
    const auto shown = [](const std::string& value) { return value.empty() ? "\"\"" : Printable(value); };
    return text + ": " + shown(change.before) + " -> " + shown(change.after);
}

}  // namespace tovarek
