#include "profile/ProfileElements.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/Text.h"

namespace tovarek {
namespace {

const ProfileField* FieldOfElement(int line, const std::string& upperName) {
    const auto* found =
        std::find_if(kProfileFields.begin(), kProfileFields.end(), [&](const ProfileField& field) {
            return field.line == line && field.name.size() == upperName.size() &&
                   UpperCase(field.name) == upperName;
        });
    return found == kProfileFields.end() ? nullptr : found;
}

}  // namespace

int LineOfElement(std::string_view upperName) {
    constexpr std::string_view kPrefix = "XIF_LINE";
    if (!upperName.starts_with(kPrefix))
        return 0;
    for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line)
        if (upperName.substr(kPrefix.size()) == std::to_string(line))
            return line;
    return 0;
}

void ForEachProfileElement(
    const XmlNode& profile,
    const std::function<void(const XmlNode& element, int line, const ProfileField* field)>& visit) {
    struct Visit {
        XmlNode node;
        int line;
    };
    // Document order with a stack of our own: what an element's children are is decided by the element
    // itself.
    std::vector<Visit> pending{{profile.FirstChild(), 0}};
    while (!pending.empty()) {
        const Visit at = pending.back();
        pending.pop_back();
        if (!at.node)
            continue;
        pending.push_back({at.node.NextSibling(), at.line});
        if (!at.node.IsElement())
            continue;
        const std::string name = UpperCase(at.node.Name());
        const int line = at.line == 0 ? LineOfElement(name) : at.line;
        visit(at.node, line, at.line == 0 ? nullptr : FieldOfElement(at.line, name));
        pending.push_back({at.node.FirstChild(), line});
    }
}

}  // namespace tovarek
