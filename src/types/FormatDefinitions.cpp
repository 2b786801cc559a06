#include "types/FormatDefinitions.h"

#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/Readings.h"
#include "types/DefinitionReader.h"

namespace tovarek {

FormatDefinitions::FormatDefinitions(const std::string& path, std::string prefix,
                                     const CErrorHandler& errorHandler)
    : table_{path, std::move(prefix), errorHandler, {}, {}, {}, {}, {}, {}, {}} {
    // Deliberate: the first node of the document is the root, whatever it is. Behind an XML declaration or a
    // comment the file holds no types.
    table_.first = FirstNodeOf(path, eQVXIFerr_errorloadingxmlformatfile, errorHandler);
    for (XmlNode child = table_.first.FirstChild(); child; child = child.NextSibling())
        if (child.IsElement())
            table_.elements.try_emplace(UpperCase(child.Name()), child);
}

std::vector<std::int32_t> FormatDefinitions::Numbers() const {
    constexpr std::size_t kMostDigits = 9;
    std::vector<std::int32_t> numbers;
    for (const auto& [name, element] : table_.elements) {
        if (!name.starts_with(table_.prefix))
            continue;
        const std::string_view digits = std::string_view(name).substr(table_.prefix.size());
        if (!digits.empty() && digits.size() <= kMostDigits &&
            std::all_of(digits.begin(), digits.end(), IsDigit))
            numbers.push_back(LeadingInt32(digits));
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

void FormatDefinitions::Listen(Readings& readings, const StandardCatalog* catalog) {
    table_.warnings = &readings.Findings();
    table_.catalog = catalog;
    if (table_.first.IsElement()) {
        table_.reading = &readings.Xml(table_.first);
        table_.reading->Structure(table_.first);
        return;
    }
    const bool isComment = table_.first.Kind() == XmlNodeKind::comment;
    readings.Findings().Take(
        {.context = {.file = table_.path,
                     .line = table_.first.Line(),
                     .reason = std::string(isComment ? "a comment" : "a declaration") +
                               " stands in front of the root, so that the file holds no types: begin it with "
                               "its root element"},
         .warning = Warning::notAType,
         .part = LinePart::all});
}

void FormatDefinitions::TellUnused() {
    if (table_.reading == nullptr)
        return;
    std::unordered_set<std::string> read;
    for (const std::int32_t number : table_.told)
        read.insert(table_.ElementName(number));
    for (XmlNode child = table_.first.FirstChild(); child; child = child.NextSibling()) {
        if (!child.IsElement())
            continue;
        const std::string name = UpperCase(child.Name());
        const XmlNode& first = table_.elements.at(name);
        const bool isFirst = first.Place().number == child.Place().number;
        const bool isRead = read.contains(name);
        if (isRead && isFirst)
            continue;
        if (isRead)
            table_.warnings->Take(AtElement(Warning::duplicateKey, child,
                                            "<" + child.Name() + "> stands in line " +
                                                std::to_string(first.Line()) +
                                                " already; only that one is read"));
        else if (table_.warnings->WantsWeak())
            table_.warnings->Take(AtElement(Warning::unusedType, child,
                                            "no type of this job is made of <" + child.Name() + ">"));
        table_.reading->Skip(child);
    }
}

const TypeDefinition& FormatDefinitions::Get(std::int32_t number, bool readsScope, FindingSink& findings) {
    const auto& known = table_.definitions[readsScope ? 1 : 0];
    const auto found = known.find(number);
    if (found != known.end() && found->second->complete)
        return *found->second;
    return DefinitionReader(table_, readsScope, findings).Read(number);
}

}  // namespace tovarek
