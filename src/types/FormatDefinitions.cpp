#include "types/FormatDefinitions.h"

#include <utility>

#include "base/Text.h"
#include "types/DefinitionReader.h"

namespace tovarek {

FormatDefinitions::FormatDefinitions(const std::string& path, std::string prefix,
                                     const CErrorHandler& errorHandler)
    : table_{path, std::move(prefix), errorHandler, {}, {}, {}} {
    // Deliberate: the first node of the document is the root, whatever it is. Behind an XML declaration or a
    // comment the file holds no types.
    table_.first = FirstNodeOf(path, eQVXIFerr_errorloadingxmlformatfile, errorHandler);
    for (XmlNode child = table_.first.FirstChild(); child; child = child.NextSibling())
        if (child.IsElement())
            table_.elements.try_emplace(UpperCase(child.Name()), child);
}

const TypeDefinition& FormatDefinitions::Get(std::int32_t number, bool readsScope, FindingSink& findings) {
    const auto& known = table_.definitions[readsScope ? 1 : 0];
    const auto found = known.find(number);
    if (found != known.end() && found->second->complete)
        return *found->second;
    return DefinitionReader(table_, readsScope, findings).Read(number);
}

}  // namespace tovarek
