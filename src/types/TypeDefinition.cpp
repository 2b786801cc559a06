#include "types/TypeDefinition.h"

namespace tovarek {

void TypeDefinition::Instantiate(CType& target, bool isUnvt, std::int32_t scopeOfOwner) const {
    target = content;
    target.isUnvt = isUnvt;
    target.scope = scope.value_or(scopeOfOwner);
    target.elements.reserve(members.size());
    for (const Member& member : members) {
        CType& field = target.elements.emplace_back();
        member.definition->Instantiate(field, isUnvt, member.scope.value_or(scopeOfOwner));
        field.name = member.name;
        field.isField = true;
        field.memberLine = member.line;
    }
}

std::optional<std::string> DefinitionTable::PrefixInstead() const {
    std::string other;
    for (const auto& [name, element] : elements) {
        const std::size_t digits = name.find_last_not_of("0123456789") + 1;
        if (digits == name.size())
            continue;
        if (name.compare(0, digits, prefix) == 0)
            return std::nullopt;
        // The table has no order.
        if (other.empty() || name.substr(0, digits) < other)
            other = name.substr(0, digits);
    }
    return other;
}

}  // namespace tovarek
