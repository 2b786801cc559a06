// What of a type element is read otherwise than it was written.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/InputPlace.h"
#include "types/DefinitionReader.h"
#include "types/TypeReadings.h"

namespace tovarek {
namespace {

// Of a display format: its element and its attributes.
constexpr std::string_view kFormatNames[] = {"UNIT"};
constexpr std::string_view kFormatAttributes[] = {"A_COEF", "C_COEF"};

constexpr std::string_view kScalingNames[] = {"A_COEF", "B_COEF", "C_COEF"};
constexpr std::string_view kBitFieldNames[] = {"BFSIZE", "BFOFFSET", "BFSIGNED"};

}  // namespace

void DefinitionReader::StartTelling(const XmlNode& element) {
    file_.reading->Structure(element, ChildNames());
    Top().record = std::make_shared<XmlRecord>(*file_.reading, *file_.warnings, Title());
}

void DefinitionReader::TellName(const XmlNode& node, const std::string& cleaned) {
    const std::string text = tools_.nodeTextValue(node);
    if (const XmlNode first = Record()->Find("NAME")) {
        file_.reading->Value(node);
        Record()->Tell(Warning::duplicateKey, node, "NAME",
                       "<NAME> stands in line " + std::to_string(first.Line()) +
                           " already; only that one names the type");
        return;
    }
    Record()->Text(node, "NAME");
    if (cleaned.empty())
        Record()->Tell(Warning::missingValue, node, "NAME",
                       "<NAME> has no text, so the name of the type ends in \"_\": write a name");
    if (cleaned != text)
        Record()->Tell(Warning::lostCharacter, node, "NAME",
                       "\"" + Excerpt(text) + "\" is read as \"" + Excerpt(cleaned) +
                           "\": the name of a type has letters A to Z, digits and \"_\"");
}

// A list inside the type element; `kinds`: which kinds have it.
void DefinitionReader::TellList(const XmlNode& node, bool isRead, std::string_view kinds) {
    if (Record() == nullptr)
        return;
    const auto& children = Top().lines->children;
    const auto earlier = std::find_if(children.begin(), children.end() - 1,
                                      [&](const auto& child) { return child.name == children.back().name; });
    if (isRead && earlier != children.end() - 1)
        Record()->Tell(Warning::duplicateKey, node, earlier->name,
                       "<" + node.Name() + "> stands in line " + std::to_string(earlier->line) +
                           " already; what this one holds is added to it");
    if (isRead)
        file_.reading->Structure(node);
    else if (Content().isReference())
        file_.reading->Misplaced(node, "1 to 255 stand for standard types, which the catalog describes");
    else if (Content().elementType == elementNone)
        file_.reading->Misplaced(node, "TYPE has to stand in front of it");
    else
        file_.reading->Misplaced(node, "only " + std::string(kinds));
}

void DefinitionReader::TellMember(const XmlNode& node) {
    const std::string name = node.Name();
    XmlRecord(*file_.reading, *file_.warnings, Title())
        .Integer(node, name, [&](std::string_view typed, std::int32_t /*read*/) {
            return MendTypeNumber(file_.catalog, file_.prefix, typed);
        });
}

void DefinitionReader::TellValue(const XmlNode& node) {
    const std::string name = node.Name();
    XmlRecord record(*file_.reading, *file_.warnings, Title());
    record.Integer(node, name);
    // One beyond 32 bits is refused.
    const double typed = std::nearbyint(LeadingNumber(tools_.nodeTextValue(node)));
    if (typed > kLargestEnumValue && typed <= INT32_MAX)
        record.Tell(Warning::overflowedNumber, node, name,
                    DoubleToText(typed) + " is read as " + DoubleToText(typed - kEnumValues) +
                        ": a value of an enumeration is -128 to 127");
}

// A unit stands in one line of the format file.
void DefinitionReader::TellUnit(const XmlNode& node, XmlRecord& record) {
    record.Text(node, kFormatNames[0]);
    if (tools_.nodeTextValue(node).find_first_of("\r\n") != std::string::npos)
        record.Tell(Warning::lineBreak, node, kFormatNames[0],
                    "the unit has a line break and is written with a blank instead: write it on one line");
}

void DefinitionReader::TellFormat(const XmlNode& node, bool isFirst) {
    file_.reading->Structure(node, kFormatNames);
    if (!isFirst)
        file_.warnings->Take(
            AtElement(Warning::duplicateKey, node,
                      "UNITS has <" + Excerpt(node.Name()) + "> already; only the first one is read"));
    XmlRecord record(*file_.reading, *file_.warnings, Title());
    for (XmlNode child = node.FirstChild(); child; child = child.NextSibling())
        if (child.IsElement() && UpperCase(child.Name()) == kFormatNames[0])
            TellUnit(child, record);
    for (const std::string_view name : kFormatAttributes)
        file_.reading->Attribute(node, name);
    for (const auto& [attribute, value] : node.Attributes()) {
        const std::string name = UpperCase(attribute);
        const bool isRead = std::find(std::begin(kFormatAttributes), std::end(kFormatAttributes), name) !=
                            std::end(kFormatAttributes);
        if (isRead && !IsNumber(value))
            file_.warnings->Take(
                AtElement(Warning::notANumber, node,
                          NotANumber(Trim(value), attribute, DoubleToText(LeadingNumber(value)), {})));
    }
}

// A child that was read and does not count.
void DefinitionReader::TellUseless(std::string_view child, const std::string& reason) {
    if (Record() == nullptr)
        return;
    if (const XmlNode node = Record()->Find(child))
        Record()->Tell(Warning::ignoredElement, node, child,
                       "<" + std::string(child) + "> does not count: " + reason);
}

void DefinitionReader::TellFinished() {
    const CType& type = Content();
    if (type.isReference() || type.elementType == elementNone)
        return;
    if (type.inheritable)
        TellUseless("INHERIT", "resource files have no place for it");
    if (Top().units && (type.HasMembers() || type.elementType == elementSigned))
        file_.warnings->Take(AtElement(
            Warning::ignoredElement, Top().units,
            std::string("<UNITS> does not count: ") +
                (type.HasMembers() ? "the members are shown, each in its own units"
                                   : "format files say nothing of a plain signed number; UNSIGNEDNUMERIC, "
                                     "FLOAT and bit fields have units")));
    if (type.elementType != elementBits)
        for (const std::string_view name : kBitFieldNames)
            TellUseless(name, "only BITS are a part of a byte");
    const bool isScaled = type.elementType == elementSigned || type.elementType == elementUnsigned ||
                          type.elementType == elementBits || type.elementType == elementBitfield;
    if (!isScaled)
        for (const std::string_view name : kScalingNames)
            TellUseless(name, "only whole numbers are scaled");
    if (type.elementType == elementBitfield || type.elementType == elementTextual || type.HasMembers())
        for (const std::string_view name : {"MIN", "MAX"})
            TellUseless(name, "this kind has no limits of its own");
}

}  // namespace tovarek
