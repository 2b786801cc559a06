#include "cli/CatalogCommand.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/Locations.h"
#include "control/StandardCatalog.h"
#include "support/CErrorHandler.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {
namespace {

using Json = nlohmann::ordered_json;

// Opens the catalog or reports why it cannot be opened.
bool Open(const CatalogPlace& place, CCatalog& catalog, OutputFormat format, Streams streams) {
    if (!place.file.empty())
        catalog.types.CatalogFileName(place.file);
    catalog.catalogDir(place.folder.empty() ? ShippedCatalogFolder() : place.folder);
    if (!catalog.errorOpeningCatalog())
        return true;
    try {
        CErrorHandler().RaiseError(eQVXIFerr_erroraccessingSNVTmasterlist, catalog.OpeningFailure());
    } catch (const Error& error) {
        ReportError(error, format, streams);
    }
    return false;
}

std::string_view KindName(TypeKind kind) {
    switch (kind) {
        case TypeKind::signedChar:
            return "signed character";
        case TypeKind::unsignedChar:
            return "unsigned character";
        case TypeKind::signedShort:
            return "signed, 1 byte";
        case TypeKind::unsignedShort:
            return "unsigned, 1 byte";
        case TypeKind::signedLong:
            return "signed, 2 bytes";
        case TypeKind::unsignedLong:
            return "unsigned, 2 bytes";
        case TypeKind::enumeration:
            return "enumeration";
        case TypeKind::array:
            return "array";
        case TypeKind::structure:
            return "structure";
        case TypeKind::unionKind:
            return "union";
        case TypeKind::bitField:
            return "bit field";
        case TypeKind::floatingPoint:
            return "float";
        case TypeKind::signedQuad:
            return "signed, 4 bytes";
        case TypeKind::reference:
            return "reference";
        case TypeKind::unsignedQuad:
            return "unsigned, 4 bytes";
    }
    return "unknown";
}

Json FieldJson(const StandardCatalog& catalog, const CatalogField& field) {
    const TypeDescription& type = field.type;
    Json json;
    if (!field.path.empty())
        json["path"] = field.path;
    json["kind"] = KindName(type.kind);
    if (type.kind == TypeKind::array)
        json["count"] = type.count;
    if (IsInteger(type.kind) || type.kind == TypeKind::bitField) {
        json["raw minimum"] = type.minimum;
        json["raw maximum"] = type.maximum;
        if (type.a != 1 || type.b != 0 || type.c != 0)
            json["scaling"] = {{"a", type.a}, {"b", type.b}, {"c", type.c}};
        if (type.invalid)
            json["raw invalid"] = *type.invalid;
    }
    if (type.kind == TypeKind::bitField) {
        json["bit offset"] = type.bitOffset;
        json["bits"] = type.bitWidth;
        json["signed"] = type.bitSigned;
    }
    if (!field.unit.empty())
        json["unit"] = field.unit;
    if (type.kind != TypeKind::enumeration)
        return json;
    if (const Enumeration* set = catalog.EnumerationSet(type.target.index)) {
        json["enumeration"] = set->name;
        for (const EnumerationValue& value : set->values)
            json["values"][value.name] = value.value;
    }
    return json;
}

Json FormatJson(const DisplayFormat& format) {
    Json json = {{"name", format.name}, {"shows", format.body}};
    for (const FormatParameter& parameter : format.parameters)
        if (!parameter.unit.empty())
            json["units"].push_back(parameter.unit);
    return json;
}

// All of one type as a tree, of which the text form is an indented print.
Json TypeJson(const StandardCatalog& catalog, const std::string& name) {
    const std::int32_t nv = catalog.NvIndex(name);
    const std::int32_t cp = nv == 0 ? catalog.CpIndex(name) : 0;
    if (nv == 0 && cp == 0)
        return {};
    const NvType* type = nv != 0 ? catalog.Nv(nv) : catalog.Cp(cp);
    Json json = {{"name", name},
                 {"class", nv != 0 ? "network-variable type" : "configuration-property type"},
                 {"index", nv != 0 ? nv : cp},
                 {"size", nv != 0 ? catalog.NvSize(nv) : catalog.CpSize(cp)}};
    if (type != nullptr)
        json["kind"] = KindName(type->type.kind);
    if (type != nullptr && type->type.kind == TypeKind::reference && type->type.target.scope == 0)
        json["refers to"] = catalog.NvName(type->type.target.index);
    for (const CatalogField& field : nv != 0 ? catalog.NvFields(nv) : catalog.CpFields(cp))
        json["fields"].push_back(FieldJson(catalog, field));
    for (const DisplayFormat& format : catalog.Formats(name))
        json["formats"].push_back(FormatJson(format));
    return json;
}

void WriteTree(const Json& json, const std::string& indent, std::ostream& out) {
    for (const auto& [key, value] : json.items()) {
        out << indent << key << ':';
        if (value.is_object()) {
            out << '\n';
            WriteTree(value, indent + "  ", out);
        } else if (value.is_array()) {
            out << '\n';
            for (const Json& item : value) {
                if (item.is_object()) {
                    out << indent << "  -\n";
                    WriteTree(item, indent + "    ", out);
                } else {
                    out << indent << "  - " << (item.is_string() ? item.get<std::string>() : item.dump())
                        << '\n';
                }
            }
        } else {
            out << ' ' << (value.is_string() ? value.get<std::string>() : value.dump()) << '\n';
        }
    }
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
    CCatalog catalog;
    if (!Open(place, catalog, format, streams))
        return kFailed;
    Json list = Json::array();
    const auto add = [&](const char* kind, const CatalogEntry& entry) {
        if (format == OutputFormat::json)
            list.push_back(
                {{"class", kind}, {"index", entry.index}, {"size", entry.size}, {"name", entry.name}});
        else
            streams.out << kind << '\t' << entry.index << '\t' << entry.size << '\t' << entry.name << '\n';
    };
    for (const CatalogEntry& entry : catalog.types.Catalog()->NvTypes())
        add("NV", entry);
    for (const CatalogEntry& entry : catalog.types.Catalog()->CpTypes())
        add("CP", entry);
    if (format == OutputFormat::json)
        streams.out << list.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    return kDone;
}

int RunCatalogShow(const CatalogPlace& place, const std::string& name, OutputFormat format, Streams streams) {
    CCatalog catalog;
    if (!Open(place, catalog, format, streams))
        return kFailed;
    const StandardCatalog& standard = *catalog.types.Catalog();
    const Json json = TypeJson(standard, name);
    if (json.is_null()) {
        const std::string nearest = Nearest(name, AllNames(standard));
        streams.error << "tovarek: the catalog knows no type '" << name << "'"
                      << (nearest.empty() ? "" : "; did you mean '" + nearest + "'?") << '\n';
        return kFailed;
    }
    if (format == OutputFormat::json)
        streams.out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    else
        WriteTree(json, "", streams.out);
    return kDone;
}

}  // namespace tovarek
