#include "cli/CatalogCommand.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <set>

#include "base/Error.h"
#include "base/Nearest.h"
#include "control/StandardCatalog.h"
#include "inspect/InspectText.h"
#include "inspect/TypeTree.h"

namespace tovarek {
namespace {

using Json = nlohmann::ordered_json;

// The enumeration sets that values of the type are taken from, each once.
InspectNode EnumerationsNode(const std::vector<CatalogField>& fields, const ResourceNames& names) {
    InspectNode list = InspectNode::List("enumerations");
    std::set<std::uint16_t> shown;
    for (const CatalogField& field : fields) {
        if (field.type.kind != TypeKind::enumeration || !shown.insert(field.type.target.index).second)
            continue;
        if (const Enumeration* set = names.EnumerationSet(field.type.target))
            list.Add(EnumerationNode(field.type.target.index, *set, names));
    }
    return list;
}

InspectNode FormatsNode(const std::vector<DisplayFormat>& formats) {
    InspectNode list = InspectNode::Sequence("formats");
    for (const DisplayFormat& format : formats) {
        InspectNode& shown = list.Add(InspectNode::Object(format.name));
        shown.Text("name", format.name);
        shown.Text("shows", format.body);
        for (const FormatParameter& parameter : format.parameters)
            if (!parameter.unit.empty())
                shown.Text("unit", parameter.unit);
    }
    return list;
}

// All that is known of the type `name`; nothing when the catalog lacks it.
std::optional<InspectNode> TypeNode(const StandardCatalog& catalog, const std::string& name) {
    const std::int32_t nv = catalog.NvIndex(name);
    const std::int32_t cp = nv == 0 ? catalog.CpIndex(name) : 0;
    if (nv == 0 && cp == 0)
        return std::nullopt;
    const ResourceNames names(&catalog);
    InspectNode node = InspectNode::Object(name);
    node.Text("name", name);
    node.Text("class", nv != 0 ? "network-variable type" : "configuration-property type");
    node.Number("index", nv != 0 ? nv : cp);
    node.Number("size", nv != 0 ? catalog.NvSize(nv) : catalog.CpSize(cp));
    InspectNode described;
    if (const NvType* type = catalog.Nv(nv))
        described = NvTypeNode(static_cast<std::size_t>(nv), 0, *type, names);
    else if (const CpType* property = catalog.Cp(cp))
        described = CpTypeNode(static_cast<std::size_t>(cp), 0, *property, names);
    for (InspectNode& child : described.children)
        if (child.name != "number" && node.Find(child.name) == nullptr)
            node.Add(std::move(child));
    for (InspectNode list : {EnumerationsNode(nv != 0 ? catalog.NvFields(nv) : catalog.CpFields(cp), names),
                             FormatsNode(catalog.Formats(name))})
        if (!list.children.empty())
            node.Add(std::move(list));
    return node;
}

void WriteList(const StandardCatalog& catalog, OutputFormat format, std::ostream& out) {
    Json list = Json::array();
    const auto add = [&](const char* kind, const CatalogEntry& entry) {
        if (format == OutputFormat::json)
            list.push_back(
                {{"class", kind}, {"index", entry.index}, {"size", entry.size}, {"name", entry.name}});
        else
            out << kind << '\t' << entry.index << '\t' << entry.size << '\t' << entry.name << '\n';
    };
    for (const CatalogEntry& entry : catalog.NvTypes())
        add("NV", entry);
    for (const CatalogEntry& entry : catalog.CpTypes())
        add("CP", entry);
    if (format == OutputFormat::json)
        out << list.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::vector<std::string> AllNames(const StandardCatalog& catalog) {
    std::vector<std::string> names;
    for (const CatalogEntry& entry : catalog.NvTypes())
        names.push_back(entry.name);
    for (const CatalogEntry& entry : catalog.CpTypes())
        names.push_back(entry.name);
    return names;
}

}  // namespace

int RunCatalogList(const CatalogPlace& place, OutputFormat format, Streams streams) {
    try {
        const std::unique_ptr<CCatalog> catalog = OpenCatalog(place);
        WriteList(*catalog->types.Catalog(), format, streams.out);
        return kDone;
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

int RunCatalogShow(const CatalogPlace& place, const std::string& name, OutputFormat format, Streams streams) {
    try {
        const std::unique_ptr<CCatalog> catalog = OpenCatalog(place);
        const StandardCatalog& standard = *catalog->types.Catalog();
        std::optional<InspectNode> node = TypeNode(standard, name);
        if (!node)
            return ReportUnknownType(
                "the catalog knows no type '" + name + "'" + DidYouMean(name, AllNames(standard)), format,
                streams);
        streams.out << (format == OutputFormat::json ? JsonDocument(std::move(*node)) : TreeText(*node));
        return kDone;
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

}  // namespace tovarek
