#include "cli/CatalogCommand.h"

#include <algorithm>
#include <ostream>
#include <set>

#include "base/Error.h"
#include "base/Text.h"
#include "cli/CatalogFind.h"
#include "cli/Json.h"
#include "control/StandardCatalog.h"
#include "inspect/InspectText.h"
#include "inspect/TypeTree.h"

namespace tovarek {
namespace {

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

// All that is known of a type.
InspectNode TypeNode(const StandardCatalog& catalog, const CatalogType& shown) {
    const std::int32_t nv = shown.isNv ? shown.entry.index : 0;
    const std::int32_t cp = shown.isNv ? 0 : shown.entry.index;
    const std::string& name = shown.entry.name;
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

Json JsonOf(const CatalogType& type) {
    return {{"class", type.isNv ? "NV" : "CP"},
            {"index", type.entry.index},
            {"size", type.entry.size},
            {"name", type.entry.name}};
}

std::ostream& operator<<(std::ostream& out, const CatalogType& type) {
    return out << (type.isNv ? "NV" : "CP") << '\t' << type.entry.index << '\t' << type.entry.size << '\t'
               << type.entry.name;
}

void WriteList(const std::vector<CatalogType>& types, OutputFormat format, std::ostream& out) {
    Json list = Json::array();
    for (const CatalogType& type : types) {
        if (format == OutputFormat::json)
            list.push_back(JsonOf(type));
        else
            out << type << '\n';
    }
    if (format == OutputFormat::json)
        out << JsonText(list) << '\n';
}

void WriteFound(const StandardCatalog& catalog, const std::vector<CatalogType>& types, OutputFormat format,
                std::ostream& out) {
    Json list = Json::array();
    for (const CatalogType& type : types) {
        const CatalogMeasure measure = MeasureOf(catalog, type);
        const bool isMeasured = !std::holds_alternative<std::monostate>(measure.maximum);
        if (format == OutputFormat::text) {
            out << type << '\t' << measure.unit << '\t';
            if (isMeasured)
                out << ValueText(measure.minimum) << " to " << ValueText(measure.maximum);
            out << '\n';
            continue;
        }
        Json json = JsonOf(type);
        if (!measure.unit.empty())
            json["unit"] = measure.unit;
        if (isMeasured) {
            json["minimum"] = ValueJson(measure.minimum);
            json["maximum"] = ValueJson(measure.maximum);
        }
        list.push_back(std::move(json));
    }
    if (format == OutputFormat::json)
        out << JsonText(list) << '\n';
}

void WriteTypes(const StandardCatalog& catalog, const std::vector<CatalogType>& types, OutputFormat format,
                std::ostream& out) {
    if (format == OutputFormat::text) {
        for (const CatalogType& type : types)
            out << (&type == &types.front() ? "" : "\n") << TreeText(TypeNode(catalog, type));
        return;
    }
    if (types.size() == 1) {
        out << JsonDocument(TypeNode(catalog, types.front()));
        return;
    }
    InspectNode list = InspectNode::List("types");
    for (const CatalogType& type : types)
        list.Add(TypeNode(catalog, type));
    InspectNode document = InspectNode::Object("");
    document.Add(std::move(list));
    out << JsonDocument(document);
}

// A number or a name that goes without its prefix may stand for a type of each class; more than that is a
// part.
bool IsOneOfEachClass(const std::vector<CatalogType>& types) {
    return types.size() == 1 || (types.size() == 2 && types.front().isNv && !types.back().isNv);
}

// What `operation` answers for the catalog there and its types; an error is reported.
template <class Operation>
int WithCatalog(const CatalogPlace& place, OutputFormat format, Streams streams, const Operation& operation) {
    try {
        const std::unique_ptr<CCatalog> catalog = OpenCatalog(place);
        const StandardCatalog& standard = *catalog->types.Catalog();
        return operation(standard, AllTypes(standard));
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

}  // namespace

int RunCatalogList(const CatalogPlace& place, OutputFormat format, Streams streams) {
    const auto list = [&](const StandardCatalog& catalog, const std::vector<CatalogType>& types) {
        const std::vector<std::string> files = catalog.Files();
        WriteList(types, format, streams.out);
        if (format == OutputFormat::text)
            streams.out << SetFrom(files.empty() ? "" : files.front()) << '\n';
        return kDone;
    };
    return WithCatalog(place, format, streams, list);
}

int RunCatalogShow(const CatalogPlace& place, const std::string& word, OutputFormat format, Streams streams) {
    const auto show = [&](const StandardCatalog& catalog, const std::vector<CatalogType>& types) {
        const std::vector<CatalogType> named = TypesNamed(types, word);
        if (!IsOneOfEachClass(named))
            return ReportUnknownType(NoTypeReason(word, types, named), format, streams);
        WriteTypes(catalog, named, format, streams.out);
        return kDone;
    };
    return WithCatalog(place, format, streams, show);
}

int RunCatalogFind(const CatalogPlace& place, const std::string& word, OutputFormat format, Streams streams) {
    const auto find = [&](const StandardCatalog& catalog, std::vector<CatalogType> types) {
        std::erase_if(types, [&](const CatalogType& type) { return !Mentions(catalog, type, word); });
        if (types.empty())
            return ReportUnknownType(
                "the catalog has no type whose name, unit or text contains '" + Excerpt(word) + "'", format,
                streams);
        WriteFound(catalog, types, format, streams.out);
        return kDone;
    };
    return WithCatalog(place, format, streams, find);
}

}  // namespace tovarek
