#include "types/FormatDefinitions.h"

#include <utility>

#include "support/Text.h"
#include "types/DefinitionReader.h"

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
    }
}

FormatDefinitions::FormatDefinitions(const std::string& path, std::string prefix,
                                     const CErrorHandler& errorHandler)
    : path_(path), prefix_(std::move(prefix)), errorHandler_(errorHandler) {
    const XmlDocument document(path);
    if (!document.IsLoaded())
        errorHandler.RaiseError(eQVXIFerr_errorloadingxmlformatfile,
                                {.file = path, .line = document.Line(), .reason = document.Reason()});
    // Deliberate: the first node of the document is the root, whatever it is. Behind an XML declaration or a
    // comment the file holds no types.
    for (XmlNode child = document.FirstNode().FirstChild(); child; child = child.NextSibling())
        if (child.IsElement())
            elements_.try_emplace(UpperCase(child.Name()), child);
}

const TypeDefinition& FormatDefinitions::Get(std::int32_t number, bool readsScope) {
    const auto& known = definitions_[readsScope ? 1 : 0];
    const auto found = known.find(number);
    if (found != known.end() && found->second->complete)
        return *found->second;
    return DefinitionReader(*this, readsScope).Read(number);
}

}  // namespace tovarek
