#include "inspect/TypeTree.h"

#include <bit>
#include <cmath>

#include "base/Text.h"
#include "listing/KindNames.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

// How far references to references are followed.
constexpr int kLongestChain = 8;
// Powers of ten up to here are exact or nearly so; a larger one is written as text.
constexpr int kLargestExponent = 290;

std::string ReferenceText(std::uint32_t scope, std::uint32_t number) {
    return std::to_string(scope) + '-' + std::to_string(number);
}

// a x 10^b x (raw + c), whole numbers as such.
void AddScaled(InspectNode& node, std::string_view what, std::int64_t raw, const TypeDescription& type) {
    const std::int64_t mantissa = type.a * (raw + type.c);
    if (type.b == 0)
        node.Number(what, mantissa).derived = true;
    else if (std::abs(int{type.b}) > kLargestExponent)
        node.Text(what, std::to_string(mantissa) + "E" + std::to_string(type.b)).derived = true;
    else if (type.b < 0)
        node.Real(what, static_cast<double>(mantissa) / std::pow(10.0, -type.b)).derived = true;
    else
        node.Real(what, static_cast<double>(mantissa) * std::pow(10.0, type.b)).derived = true;
}

void AddScaling(InspectNode& node, const TypeDescription& type) {
    InspectNode scaling = InspectNode::Object("scaling");
    scaling.Number("a", type.a);
    scaling.Number("b", type.b);
    scaling.Number("c", type.c);
    node.Add(std::move(scaling));
}

void AddNumberRange(InspectNode& node, const TypeDescription& type) {
    node.Number("rawMinimum", type.minimum);
    node.Number("rawMaximum", type.maximum);
    if (type.invalid)
        node.Number("rawInvalid", *type.invalid);
    AddScaling(node, type);
    AddScaled(node, "minimum", type.minimum, type);
    AddScaled(node, "maximum", type.maximum, type);
    if (type.invalid)
        AddScaled(node, "invalid", *type.invalid, type);
}

void AddFloatRange(InspectNode& node, const TypeDescription& type) {
    node.Single("minimum", type.floatMinimum);
    node.Single("maximum", type.floatMaximum);
    if (type.floatInvalid)
        node.Single("invalid", *type.floatInvalid);
    // Floats have no scaling; a file that stores one nevertheless shows it.
    if (type.a != 1 || type.b != 0 || type.c != 0)
        AddScaling(node, type);
}

InspectNode MemberNode(std::string_view key, const TypeMember& member, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(key);
    if (!member.name.empty())
        node.Text("name", member.name);
    AddString(node, "name", member.nameText, names);
    AddString(node, "description", member.description, names);
    AddString(node, "unit", member.unit, names);
    for (InspectNode& child : DescriptionNode("", member.type, names).children)
        node.Add(std::move(child));
    return node;
}

void AddMembers(InspectNode& node, const TypeDescription& type, const ResourceNames& names) {
    if (type.kind == TypeKind::array) {
        node.Number("count", type.count);
        for (const TypeMember& member : type.members)
            node.Add(MemberNode("element", member, names));
        return;
    }
    InspectNode members = InspectNode::Sequence("members");
    for (const TypeMember& member : type.members)
        members.Add(MemberNode(member.name, member, names));
    node.Add(std::move(members));
}

void AddBitField(InspectNode& node, const TypeDescription& type) {
    node.Number("bitOffset", type.bitOffset);
    node.Number("bits", type.bitWidth);
    node.Flag("signed", type.bitSigned);
    AddNumberRange(node, type);
}

void AddType(InspectNode& node, std::size_t number, const std::string& wholeName, const NvType& type,
             const ResourceNames& names) {
    node.Number("number", static_cast<std::int64_t>(number));
    node.Text("name", wholeName);
    // An editor that cannot remove a type marks its name.
    if (wholeName.ends_with('~'))
        node.Flag("removed", true).derived = true;
    node.Number("size", type.size);
    AddString(node, "name", type.nameText, names);
    AddString(node, "description", type.description, names);
    AddString(node, "unit", type.unit, names);
    if (type.reservedByte != 0)
        node.Number("reservedByte", type.reservedByte);
    if (type.reservedWord != 0)
        node.Number("reservedWord", type.reservedWord);
    node.Add(DescriptionNode("type", type.type, names));
}

// What `type` is after all references.
const TypeDescription* Followed(const TypeDescription* type, const ResourceNames& names) {
    for (int i = 0; i < kLongestChain && type != nullptr && type->kind == TypeKind::reference; ++i)
        type = names.NvDescription(type->target);
    return type;
}

std::int64_t BigEndian(const std::string& raw, bool isSigned) {
    std::uint64_t value = 0;
    for (const char byte : raw)
        value = (value << 8U) | static_cast<unsigned char>(byte);
    const std::uint64_t sign = std::uint64_t{1} << (8 * raw.size() - 1);
    return static_cast<std::int64_t>(value) -
           (isSigned && (value & sign) != 0 ? static_cast<std::int64_t>(2 * sign) : 0);
}

void AddEnumerator(InspectNode& node, const std::string& what, std::int64_t raw, const TypeRef& target,
                   const ResourceNames& names) {
    const Enumeration* set = names.EnumerationSet(target);
    if (set == nullptr)
        return;
    for (const EnumerationValue& value : set->values) {
        if (value.value == raw) {
            node.Text(what, value.name).derived = true;
            return;
        }
    }
}

}  // namespace

void AddString(InspectNode& node, std::string_view what, const StringRef& string,
               const ResourceNames& names) {
    if (string.number == 0)
        return;
    InspectNode& reference =
        node.Text(std::string(what) + std::string(kStringName), ReferenceText(string.scope, string.number));
    reference.meaning = names.OwnText(string);
    if (std::string text = names.Text(string); !text.empty())
        node.Text(std::string(what) + std::string(kTextName), std::move(text)).derived = true;
}

void AddReference(InspectNode& node, std::string_view what, const TypeRef& reference,
                  const std::string& name) {
    node.Text(what, ReferenceText(reference.scope, reference.index));
    if (!name.empty())
        node.Text(std::string(what) + "Name", name).derived = true;
}

InspectNode DescriptionNode(std::string_view name, const TypeDescription& type, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(name);
    node.Text("kind", std::string(kKindNames.at(static_cast<std::size_t>(type.kind))));
    if (IsText(type))
        node.Text("shownAs", "text").derived = true;
    switch (type.kind) {
        case TypeKind::enumeration:
            AddReference(node, "enumeration", type.target, names.EnumerationName(type.target));
            node.Number("rawMinimum", type.minimum);
            node.Number("rawMaximum", type.maximum);
            break;
        case TypeKind::array:
        case TypeKind::structure:
        case TypeKind::unionKind:
            AddMembers(node, type, names);
            break;
        case TypeKind::bitField:
            AddBitField(node, type);
            break;
        case TypeKind::floatingPoint:
            AddFloatRange(node, type);
            break;
        case TypeKind::reference:
            AddReference(node, "target", type.target, names.NvName(type.target));
            node.Number("targetSize", type.referencedSize);
            break;
        default:
            AddNumberRange(node, type);
    }
    return node;
}

void AddRawValue(InspectNode& node, std::string_view what, const std::string& raw,
                 const TypeDescription* type, const ResourceNames& names) {
    node.Text(what, HexText(raw));
    type = Followed(type, names);
    if (type == nullptr || raw.empty())
        return;
    const std::string value = std::string(what) + "Value";
    if (IsText(*type)) {
        node.Text(value, FromCodePage(raw.substr(0, raw.find('\0')))).derived = true;
        return;
    }
    if (type->kind == TypeKind::bitField || HasMembers(type->kind) || raw.size() != SizeOf(*type))
        return;
    const std::int64_t number = raw.size() > 4 ? 0 : BigEndian(raw, SmallestRaw(*type) < 0);
    if (type->kind == TypeKind::enumeration)
        AddEnumerator(node, value, number, type->target, names);
    else if (type->kind == TypeKind::floatingPoint)
        node.Single(value, std::bit_cast<float>(static_cast<std::uint32_t>(number))).derived = true;
    else if (IsInteger(type->kind))
        AddScaled(node, value, number, *type);
}

InspectNode NvTypeNode(std::size_t number, std::uint8_t scope, const NvType& type,
                       const ResourceNames& names) {
    InspectNode node = InspectNode::Object(std::to_string(number));
    AddType(node, number, WholeNvName(scope, type.name), type, names);
    return node;
}

InspectNode CpTypeNode(std::size_t number, std::uint8_t scope, const CpType& type,
                       const ResourceNames& names) {
    InspectNode node = InspectNode::Object(std::to_string(number));
    AddType(node, number, WholeCpName(scope, type.name), type, names);
    if (type.minimum)
        AddRawValue(node, "rawMinimum", *type.minimum, &type.type, names);
    if (type.maximum)
        AddRawValue(node, "rawMaximum", *type.maximum, &type.type, names);
    AddRawValue(node, "rawDefault", type.initial, &type.type, names);
    return node;
}

InspectNode EnumerationNode(std::size_t number, const Enumeration& set, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(std::to_string(number));
    node.Number("number", static_cast<std::int64_t>(number));
    node.Text("name", set.name);
    node.Text("fileName", set.fileName);
    InspectNode values = InspectNode::List("values");
    for (const EnumerationValue& value : set.values) {
        InspectNode item = InspectNode::Object(value.name);
        item.Number("value", value.value);
        item.Text("name", value.name);
        AddString(item, "description", value.description, names);
        values.Add(std::move(item));
    }
    node.Add(std::move(values));
    return node;
}

}  // namespace tovarek
