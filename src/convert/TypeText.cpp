#include "convert/TypeText.h"

#include <variant>

#include "base/Numbers.h"

namespace tovarek {
namespace {

std::string_view WordOf(ElementType kind) {
    constexpr std::string_view kWords[] = {"",      "SIGNEDNUMERIC", "UNSIGNEDNUMERIC", "BITS",
                                           "ENUM",  "TEXTUAL",       "STRUCT",          "UNION",
                                           "FLOAT", "BITFIELD"};
    return kWords[kind];
}

// What stands in front of lists, in the order of the documents; texts behind numbers.
struct FieldRow {
    std::string_view name;
    std::variant<std::int32_t CType::*, std::string CType::*, bool CType::*> field;
};
constexpr FieldRow kRangeFields[] = {
    {"A_COEF", &CType::a_coef},       {"B_COEF", &CType::b_coef},
    {"C_COEF", &CType::c_coef},       {"BFOFFSET", &CType::bitfieldOffset},
    {"BFSIZE", &CType::bitfieldSize}, {"BFSIGNED", &CType::bitfieldSigned},
    {"ARRAY", &CType::arraySize},     {"UNIT", &CType::unit},
    {"LONGNAME", &CType::longname},   {"DESC", &CType::description},
};

void WriteField(XmlWriter& out, const FieldRow& row, const CType& type) {
    static const CType usual;
    std::visit(
        [&](auto field) {
            if (type.*field == usual.*field)
                return;
            if constexpr (std::is_same_v<decltype(field), std::string CType::*>)
                out.Element(row.name, type.*field);
            else
                out.Element(row.name, std::to_string(std::int32_t{type.*field}));
        },
        row.field);
}

void WriteEnums(XmlWriter& out, const CType& type) {
    out.Open("ENUMS");
    for (const CEnumValue& value : *type.enumValues)
        out.Element(XmlName(value.name), std::to_string(value.value));
    out.Close("ENUMS");
}

void WriteUnits(XmlWriter& out, const CFormats& formats) {
    out.Open("UNITS");
    for (const CFormat& format : formats) {
        std::string attributes;
        if (format.format_a_coef != 1)
            attributes += " A_COEF=\"" + DoubleToText(format.format_a_coef) + '"';
        if (format.format_c_coef != 0)
            attributes += " C_COEF=\"" + DoubleToText(format.format_c_coef) + '"';
        out.Open(format.name, attributes);
        if (!format.unit.empty())
            out.Element("UNIT", format.unit);
        out.Close(format.name);
    }
    out.Close("UNITS");
}

void WriteMembers(XmlWriter& out, const DefinedType& type) {
    out.Open("FIELDS");
    for (const auto& [name, number] : type.members)
        out.Element(XmlName(name), std::to_string(number));
    out.Close("FIELDS");
}

// Where members say how long they are, and where the kind does, LENGTH is left out.
bool HasLength(const CType& type) {
    return !type.isReference() && !type.HasMembers() && type.elementType != elementEnum;
}

void WriteType(XmlWriter& out, const UserType& type) {
    const std::string element = (type.isUnvt ? "UNVT_" : "UCPT_") + std::to_string(type.nameNumber);
    out.Comment(type.wholeName);
    out.Open(element);
    out.Element("NAME", type.name);
    out.Element("SNVTTYPE", std::to_string(type.definition));
    for (const auto& [name, value] : {std::pair{"MINRAWVAL", &type.rawMinimum},
                                      {"MAXRAWVAL", &type.rawMaximum},
                                      {"INITRAWVAL", &type.rawInitial}})
        if (value->find_first_not_of('0') != std::string::npos)  // zeros are what a missing one is
            out.Element(name, *value);
    out.Close(element);
}

}  // namespace

void WriteDefinition(XmlWriter& out, const DefinedType& type) {
    const CType& content = type.content;
    const std::string element = "SNVT_" + std::to_string(type.number);
    const auto name = [&](bool isLast) {
        if (!type.name.empty() && type.isNamedLast == isLast)
            out.Element("NAME", type.name);
    };
    if (!type.comment.empty())
        out.Comment(type.comment);
    out.Open(element);
    out.Element("TYPE", WordOf(content.elementType));
    name(false);
    if (HasLength(content))
        out.Element("LENGTH", std::to_string(content.length));
    if (content.hasMin)
        out.Element("MIN", DoubleToText(content.minValue));
    if (content.hasMax)
        out.Element("MAX", DoubleToText(content.maxValue));
    for (const FieldRow& row : kRangeFields)
        WriteField(out, row, content);
    if (content.enumValues)
        WriteEnums(out, content);
    name(true);
    if (!type.members.empty())
        WriteMembers(out, type);
    if (content.availableFormats && !content.availableFormats->empty())
        WriteUnits(out, *content.availableFormats);
    out.Close(element);
}

std::string FormatFileText(const std::vector<DefinedType>& definitions) {
    XmlWriter out(XmlHead::mark);
    out.Open("TYPES");
    for (const DefinedType& type : definitions)
        WriteDefinition(out, type);
    out.Close("TYPES");
    return out.Take();
}

std::string UserTypesText(const TypeInputs& inputs, bool isUnvt) {
    XmlWriter out;
    const std::string_view list = isUnvt ? "UNVTS" : "UCPTS";
    out.Open(list);
    for (const auto& [scope, programId] : inputs.programIds) {
        if (scope == 0 || scope >= kOwnScope)
            continue;
        const std::string scopeElement = "_" + std::to_string(scope);
        const std::string device = "_" + programId;
        out.Open(scopeElement);
        out.Open(device);
        for (const UserType& type : inputs.types)
            if (type.scope == scope && type.isUnvt == isUnvt)
                WriteType(out, type);
        out.Close(device);
        out.Close(scopeElement);
    }
    out.Close(list);
    return out.Take();
}

}  // namespace tovarek
