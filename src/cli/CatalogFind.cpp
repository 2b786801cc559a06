#include "cli/CatalogFind.h"

#include <algorithm>
#include <functional>

#include "base/Nearest.h"
#include "base/Text.h"
#include "inspect/TypeTree.h"

namespace tovarek {
namespace {

// "TEMP_P" of "SNVT_temp_p", "LOCATION" of "SCPTlocation".
std::string WithoutPrefix(std::string name) {
    for (const std::string_view prefix : {"SNVT_", "SCPT_", "SCPT", "UNVT_", "UCPT_", "UCPT"})
        if (name.starts_with(prefix))
            return name.substr(prefix.size());
    return name;
}

bool Holds(std::string_view text, const std::string& upperWord) {
    return UpperCase(text).find(upperWord) != std::string::npos;
}

// Texts of the type and of its members; of its formats, enumerations and numbers nothing.
bool TextHolds(const InspectNode& node, const std::string& upperWord) {
    const auto* text = std::get_if<std::string>(&node.value);
    if (text != nullptr && node.name.ends_with(kTextName) && Holds(*text, upperWord))
        return true;
    return std::any_of(node.children.begin(), node.children.end(),
                       [&](const InspectNode& child) { return TextHolds(child, upperWord); });
}

std::vector<CatalogField> FieldsOf(const StandardCatalog& catalog, const CatalogType& type) {
    return type.isNv ? catalog.NvFields(type.entry.index) : catalog.CpFields(type.entry.index);
}

InspectNode NodeOf(const StandardCatalog& catalog, const CatalogType& type) {
    const ResourceNames names(&catalog);
    if (const NvType* nv = type.isNv ? catalog.Nv(type.entry.index) : nullptr)
        return NvTypeNode(type.entry.index, 0, *nv, names);
    if (const CpType* cp = type.isNv ? nullptr : catalog.Cp(type.entry.index))
        return CpTypeNode(type.entry.index, 0, *cp, names);
    return {};
}

}  // namespace

std::vector<CatalogType> AllTypes(const StandardCatalog& catalog) {
    std::vector<CatalogType> types;
    for (CatalogEntry& entry : catalog.NvTypes())
        types.push_back({true, std::move(entry)});
    for (CatalogEntry& entry : catalog.CpTypes())
        types.push_back({false, std::move(entry)});
    return types;
}

std::vector<CatalogType> TypesNamed(const std::vector<CatalogType>& types, const std::string& word) {
    const std::string wanted = UpperCase(word);
    const std::function<bool(const CatalogEntry&)> ways[] = {
        [&](const CatalogEntry& entry) { return entry.name == word; },
        [&](const CatalogEntry& entry) {
            const std::string name = UpperCase(entry.name);
            return name == wanted || WithoutPrefix(name) == wanted;
        },
        [&](const CatalogEntry& entry) { return std::to_string(entry.index) == word; },
        [&](const CatalogEntry& entry) { return Holds(entry.name, wanted); },
    };
    std::vector<CatalogType> named;
    for (const auto& isNamed : ways) {
        std::copy_if(types.begin(), types.end(), std::back_inserter(named),
                     [&](const CatalogType& type) { return isNamed(type.entry); });
        if (!named.empty())
            break;
    }
    return named;
}

std::string NoTypeReason(const std::string& word, const std::vector<CatalogType>& types,
                         const std::vector<CatalogType>& named) {
    constexpr std::size_t kMostNames = 12;
    if (named.empty()) {
        std::vector<std::string> names;
        names.reserve(types.size());
        for (const CatalogType& type : types)
            names.push_back(type.entry.name);
        const std::string near = DidYouMean(word, names);
        return "the catalog knows no type '" + Excerpt(word) + "'" +
               (near.empty() ? "; 'tovarek catalog find WORD' searches units and texts too" : near);
    }
    std::string reason =
        "'" + Excerpt(word) + "' names " + std::to_string(named.size()) + " types; give one of them:";
    for (std::size_t i = 0; i < std::min(named.size(), kMostNames); ++i)
        reason += " " + named[i].entry.name;
    return reason + (named.size() > kMostNames ? " ..." : "");
}

CatalogMeasure MeasureOf(const StandardCatalog& catalog, const CatalogType& type) {
    const std::vector<CatalogField> fields = FieldsOf(catalog, type);
    if (fields.size() != 1)
        return {};
    CatalogMeasure measure{.unit = fields.front().unit};
    const InspectNode described = DescriptionNode("", fields.front().type, ResourceNames(&catalog));
    if (const InspectNode* minimum = described.Find("minimum"))
        measure.minimum = minimum->value;
    if (const InspectNode* maximum = described.Find("maximum"))
        measure.maximum = maximum->value;
    return measure;
}

bool Mentions(const StandardCatalog& catalog, const CatalogType& type, const std::string& word) {
    const std::string wanted = UpperCase(word);
    if (Holds(type.entry.name, wanted) || TextHolds(NodeOf(catalog, type), wanted))
        return true;
    const std::vector<CatalogField> fields = FieldsOf(catalog, type);
    if (std::any_of(fields.begin(), fields.end(),
                    [&](const CatalogField& field) { return Holds(field.unit, wanted); }))
        return true;
    for (const DisplayFormat& format : catalog.Formats(type.entry.name))
        for (const FormatParameter& parameter : format.parameters)
            if (Holds(parameter.unit, wanted))
                return true;
    return false;
}

}  // namespace tovarek
