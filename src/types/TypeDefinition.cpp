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

}  // namespace tovarek
