#include "types/DefinitionReader.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

#include "base/Numbers.h"
#include "base/Text.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// Prefixes that are taken off what NAME says; any other one stays part of the name.
constexpr std::string_view kNamePrefixes[] = {"UNVT", "UCPT", "SNVT", "SCPT"};
// Prefixes that are taken off the name of a type element, where an enumeration is called after it.
constexpr std::string_view kElementPrefixes[] = {"SNVT", "SCPT"};

// `name` without the first of `prefixes` that it begins with, and without one "_" behind it. Any letter case.
template <std::size_t N>
std::string_view WithoutPrefix(std::string_view name, const std::string_view (&prefixes)[N]) {
    for (const std::string_view prefix : prefixes) {
        const bool begins = name.size() >= prefix.size() &&
                            std::equal(prefix.begin(), prefix.end(), name.begin(),
                                       [](char wanted, char c) { return AsciiUpper(c) == wanted; });
        if (!begins)
            continue;
        name.remove_prefix(prefix.size());
        if (name.starts_with('_'))
            name.remove_prefix(1);
        break;
    }
    return name;
}

XmlNode FirstElement(XmlNode node) {
    while (node && !node.IsElement())
        node = node.NextSibling();
    return node;
}

// A value of an enumeration is a signed byte.
std::int32_t AsSignedByte(std::int32_t value) {
    return value > kLargestEnumValue ? value - kEnumValues : value;
}

// Limits of an enumeration without values: no value lies between them.
constexpr std::int32_t kNoMinimum = 65535;
constexpr std::int32_t kNoMaximum = -65535;

// A chain of more definitions is shown by its ends.
constexpr std::size_t kLongestChain = 12;

}  // namespace

// Child elements of a type element and what they set.
struct DefinitionReader::ChildRule {
    std::string_view name;
    std::variant<std::int32_t CType::*, std::string CType::*, bool CType::*,
                 void (DefinitionReader::*)(const XmlNode&)>
        target;
};
const DefinitionReader::ChildRule DefinitionReader::kChildRules[] = {
    {"TYPE", &DefinitionReader::ReadType},
    {"NAME", &DefinitionReader::ReadName},
    {"SCOPE", &DefinitionReader::ReadScope},
    {"MIN", &DefinitionReader::ReadMin},
    {"MAX", &DefinitionReader::ReadMax},
    {"A_COEF", &CType::a_coef},
    {"B_COEF", &CType::b_coef},
    {"C_COEF", &CType::c_coef},
    {"LENGTH", &CType::length},
    {"UNIT", &CType::unit},
    {"DESC", &CType::description},
    {"LONGNAME", &CType::longname},
    {"BFSIZE", &CType::bitfieldSize},
    {"BFOFFSET", &CType::bitfieldOffset},
    {"BFSIGNED", &CType::bitfieldSigned},
    {"INHERIT", &CType::inheritable},
    {"ARRAY", &CType::arraySize},
    {"FIELDS", &DefinitionReader::ReadFields},
    {"ENUMS", &DefinitionReader::ReadEnums},
    {"UNITS", &DefinitionReader::ReadUnits},
};

XmlNames DefinitionReader::ChildNames() {
    static const std::vector<std::string_view> names = NamesOf(kChildRules, &ChildRule::name);
    return names;
}

const TypeDefinition& DefinitionReader::Read(std::int32_t number) {
    Enter(number, {});
    const TypeDefinition& first = *Top().definition;
    while (!levels_.empty()) {
        Level& level = Top();
        if (level.member) {
            Telling([&] { ReadMember(); });
        } else if (level.child) {
            const XmlNode node = std::exchange(level.child, FirstElement(level.child.NextSibling()));
            Telling([&] { ReadChild(node); });
        } else {
            Leave();
        }
    }
    return first;
}

// `origin`: the member that asks for the definition; nothing for a type of its own.
void DefinitionReader::Enter(std::int32_t number, const XmlNode& origin) {
    const auto element = file_.elements.find(file_.ElementName(number));
    if (element == file_.elements.end()) {
        ErrorContext context;
        if (origin) {
            context = Place(origin);
            context.value = Excerpt(tools_.nodeTextValue(origin));
        }
        context.reason = MissingReason(number);
        // Where the file itself is at fault nobody asks for the wrong number.
        if (!file_.first.IsElement()) {
            context.file = file_.path;
            context.line = file_.first.Line();
            context.column = 0;
        }
        file_.errorHandler.RaiseError(eQVXIFerr_typenotfoundinformatfile, std::move(context));
    }
    if (levels_.size() > kDeepestMember)
        RefuseNesting(origin, number, "members are nested more than 1000 levels deep");

    auto definition = std::make_unique<TypeDefinition>();
    definition->content.typeIndex = number;
    auto lines = std::make_shared<ElementLines>();
    lines->element = element->second.Line();
    definition->content.lines = lines;
    Level level{.number = number,
                .definition = definition.get(),
                .child = FirstElement(element->second.FirstChild()),
                .shortName = std::string(WithoutPrefix(element->second.Name(), kElementPrefixes)),
                .lines = std::move(lines)};
    file_.definitions[readsScope_ ? 1 : 0][number] = std::move(definition);
    levels_.push_back(std::move(level));
    if (file_.reading != nullptr && file_.told.insert(number).second)
        StartTelling(element->second);
}

// Why the file has no element for the number, as far as the file shows it.
std::string DefinitionReader::MissingReason(std::int32_t number) const {
    const std::string name = file_.ElementName(number);
    if (!file_.first.IsElement())
        return std::string(file_.first.Kind() == XmlNodeKind::comment ? "a comment" : "a declaration") +
               " stands in front of the root of " + SystemPath(file_.path) +
               ", so that no type is seen; begin the file with its root element";
    if (number <= 0)
        return "this is not the number of a type; give digits alone, such as 300 for the element <" +
               file_.ElementName(300) + ">";
    if (file_.elements.contains(UpperCase(name)))
        return "element names are compared in capitals, so the prefix must be '" + UpperCase(file_.prefix) +
               "', not '" + file_.prefix + "' (typeFilesXMLPrefix)";
    const std::string file = "the format file " + SystemPath(file_.path) + " has no element <";
    if (const std::optional<std::string> other = file_.PrefixInstead())
        return file + file_.prefix + "...> at all" +
               (other->empty() ? ": type elements stand directly in its root"
                               : ", but <" + *other + "...>: set typeFilesXMLPrefix to \"" + *other + '"');
    return file + name + ">; add it or correct the number";
}

// A part of the type element at the top of the stack. What it raises is told; the type lacks that part then.
template <class Operation>
void DefinitionReader::Telling(const Operation& operation) {
    CType& type = Content();
    bool isDone = false;
    TellingErrors(findings_, [&] {
        operation();
        isDone = true;
    });
    type.isRefused = type.isRefused || !isDone;
}

void DefinitionReader::ReadMember() {
    Level& level = Top();
    const XmlNode node = std::exchange(level.member, FirstElement(level.member.NextSibling()));
    if (Record() != nullptr)
        TellMember(node);
    const std::int32_t number = Integer(node);
    const auto& known = file_.definitions[readsScope_ ? 1 : 0];
    const auto found = known.find(number);
    if (found == known.end()) {
        Enter(number, node);
        pendingMembers_.push_back(node);
        return;
    }
    const TypeDefinition& definition = *found->second;
    if (!definition.complete)
        RefuseNesting(node, number, "the type contains itself");
    if (levels_.size() + definition.memberDepth > kDeepestMember)
        RefuseNesting(node, number, "members are nested more than 1000 levels deep");
    AddMember(node, definition);
}

void DefinitionReader::AddMember(const XmlNode& node, const TypeDefinition& definition) {
    TypeDefinition& owner = *Top().definition;
    if (owner.memberCount + 1 + definition.memberCount > kMostMembers)
        RefuseNesting({}, definition.content.typeIndex,
                      "the type has more than 1000000 members at all levels");
    owner.members.push_back({node.Name(), &definition, owner.scope, node.Line()});
    owner.memberCount += 1 + definition.memberCount;
    owner.memberDepth = std::max(owner.memberDepth, 1 + definition.memberDepth);
    // What is made of it cannot be measured either.
    owner.content.isRefused = owner.content.isRefused || definition.content.isRefused;
}

void DefinitionReader::Leave() {
    TypeDefinition& finished = *Top().definition;
    if (Record() != nullptr)
        TellFinished();
    finished.complete = true;
    levels_.pop_back();
    if (levels_.empty())
        return;
    const XmlNode member = std::move(pendingMembers_.back());
    pendingMembers_.pop_back();
    Telling([&] { AddMember(member, finished); });
}

void DefinitionReader::RefuseNesting(const XmlNode& origin, std::int32_t next,
                                     std::string_view reason) const {
    std::vector<std::string> chain;
    for (const Level& level : levels_)
        chain.push_back(file_.ElementName(level.number));
    chain.push_back(file_.ElementName(next));
    std::string text;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        if (chain.size() > kLongestChain && i == kLongestChain / 2) {
            i = chain.size() - kLongestChain / 2;
            text += " > ...";
        }
        text += (i == 0 ? "" : " > ") + chain[i];
    }
    RaiseRuntimeError(RuntimeError::outOfStackSpace,
                      {.record = "type element " + file_.ElementName(levels_.back().number),
                       .field = "FIELDS",
                       .file = file_.path,
                       .line = origin ? origin.Line() : levels_.back().definition->content.LineOf(),
                       .reason = std::string(reason) + ": " + text});
}

void DefinitionReader::ReadChild(const XmlNode& node) {
    const std::string name = UpperCase(node.Name());
    for (const ChildRule& rule : kChildRules) {
        if (rule.name == name) {
            Top().lines->children.push_back({rule.name, node.Line()});
            std::visit([&](auto target) { ReadInto(target, node); }, rule.target);
            return;
        }
    }
}

void DefinitionReader::ReadInto(std::int32_t CType::*field, const XmlNode& node) {
    if (Record() != nullptr)
        Record()->Integer(node, ChildName());
    Content().*field = Integer(node);
    Top().lines->children.back().number = Content().*field;
    KeepTyped(node);
}
void DefinitionReader::ReadInto(std::string CType::*field, const XmlNode& node) {
    if (Record() != nullptr && ChildName() == "UNIT")
        TellUnit(node, *Record());
    else if (Record() != nullptr)
        Record()->Text(node, ChildName());
    Content().*field = tools_.nodeTextValue(node);
}
void DefinitionReader::ReadInto(bool CType::*field, const XmlNode& node) {
    if (Record() != nullptr)
        Record()->Number(node, ChildName());
    Content().*field = LeadingNumber(tools_.nodeTextValue(node)) != 0;
}
void DefinitionReader::ReadInto(void (DefinitionReader::*read)(const XmlNode&), const XmlNode& node) {
    (this->*read)(node);
}

void DefinitionReader::ReadType(const XmlNode& node) {
    if (Record() != nullptr)
        Record()->Text(node, ChildName());
    WithContext([&] { return Place(node); },
                [&] { Content().ConvertType(tools_.nodeTextValue(node), file_.errorHandler); });
    if (Content().elementType == elementEnum)
        Content().length = 1;
}

void DefinitionReader::ReadName(const XmlNode& node) {
    const std::string cleaned = tools_.ReplaceBadCharInType(tools_.nodeTextValue(node));
    if (Record() != nullptr)
        TellName(node, cleaned);
    const std::string_view name = WithoutPrefix(cleaned, kNamePrefixes);
    // Deliberate: of several, the first NAME names the type and the latest one its enumeration.
    if (!Top().definition->name)
        Top().definition->name = name;
    Top().enumName = Top().shortName + "_";
    Top().enumName += name;
}

void DefinitionReader::ReadScope(const XmlNode& node) {
    if (file_.reading != nullptr)
        file_.reading->Misplaced(node, "SCOPE counts only for the types of the template's variables");
    if (!readsScope_)
        return;
    if (file_.reading != nullptr)
        XmlRecord(*file_.reading, *file_.warnings, Title()).Integer(node, "SCOPE");
    Top().definition->scope = Integer(node);
}

void DefinitionReader::ReadMin(const XmlNode& node) {
    if (Record() != nullptr)
        Record()->Number(node, ChildName());
    Content().minValue = Number(node, tools_.nodeTextValue(node));
    Content().hasMin = true;
    KeepTyped(node);
}

void DefinitionReader::ReadMax(const XmlNode& node) {
    if (Record() != nullptr)
        Record()->Number(node, ChildName());
    Content().maxValue = Number(node, tools_.nodeTextValue(node));
    Content().hasMax = true;
    KeepTyped(node);
}

// For messages: a number that is written otherwise than it is read.
void DefinitionReader::KeepTyped(const XmlNode& node) {
    const std::string text = tools_.nodeTextValue(node);
    if (!std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || c == '-' || c == '.'; }))
        Top().lines->children.back().typed = Excerpt(text);
}

void DefinitionReader::ReadFields(const XmlNode& node) {
    const bool isRead = !Content().isReference() && Content().HasMembers();
    TellList(node, isRead, "a STRUCT or a UNION has FIELDS");
    if (isRead)
        Top().member = FirstElement(node.FirstChild());
}

void DefinitionReader::ReadEnums(const XmlNode& node) {
    CType& type = Content();
    const bool isRead = type.elementType == elementEnum && !type.isReference();
    TellList(node, isRead, "an ENUM has ENUMS");
    if (!isRead)
        return;
    type.enumName = "ENUM_" + (Top().enumName.empty() ? Top().shortName : Top().enumName);
    if (!type.enumValues)
        type.enumValues = std::make_shared<std::vector<CEnumValue>>();
    std::int32_t smallest = kNoMinimum;
    std::int32_t largest = kNoMaximum;
    for (XmlNode child = FirstElement(node.FirstChild()); child; child = FirstElement(child.NextSibling())) {
        CEnumValue& value = type.enumValues->emplace_back();
        value.name = child.Name();
        value.line = child.Line();
        if (Record() != nullptr)
            TellValue(child);
        Telling([&] { value.value = AsSignedByte(Integer(child)); });
        smallest = std::min(smallest, value.value);
        largest = std::max(largest, value.value);
    }
    for (const char* const limit : {"MIN", "MAX"})
        TellUseless(limit, "the values of ENUMS behind it set the limits");
    type.minValue = smallest;
    type.maxValue = largest;
    type.hasMin = true;
    type.hasMax = true;
}

void DefinitionReader::ReadUnits(const XmlNode& node) {
    TellList(node, !Content().isReference(), "");
    if (Content().isReference())
        return;
    Top().units = node;
    if (!Top().formats) {
        Top().formats = std::make_shared<CFormats>();
        Content().availableFormats = Top().formats;
    }
    for (XmlNode child = FirstElement(node.FirstChild()); child; child = FirstElement(child.NextSibling())) {
        CFormat format{.name = child.Name()};
        Telling([&] { ReadFormat(child, format); });
        const std::string name = format.name;
        if (Record() != nullptr)
            TellFormat(child, Top().formats->Find(name) == nullptr);
        Top().formats->Add(name, std::move(format));
    }
}

void DefinitionReader::ReadFormat(const XmlNode& node, CFormat& format) const {
    for (XmlNode child = FirstElement(node.FirstChild()); child; child = FirstElement(child.NextSibling()))
        if (UpperCase(child.Name()) == "UNIT")
            format.unit = tools_.nodeTextValue(child);
    for (const auto& [attribute, value] : node.Attributes()) {
        const std::string name = UpperCase(attribute);
        if (name == "A_COEF")
            format.format_a_coef = Number(node, value);
        else if (name == "C_COEF")
            format.format_c_coef = Number(node, value);
    }
}

std::int32_t DefinitionReader::Integer(const XmlNode& node) const {
    return WithContext([&] { return Place(node); },
                       [&] { return IntegerOfElement(node, tools_.nodeTextValue(node)); });
}

double DefinitionReader::Number(const XmlNode& node, const std::string& text) const {
    const double number = LeadingNumber(text);
    if (std::isfinite(number))
        return number;
    ErrorContext context = Place(node);
    context.value = Excerpt(text);
    context.reason = "the number is beyond the range of a 64-bit float";
    RaiseRuntimeError(RuntimeError::overflow, std::move(context));
}

ErrorContext DefinitionReader::Place(const XmlNode& node) const {
    return {.record = "type element " + file_.ElementName(levels_.back().number),
            .field = node.Name(),
            .file = file_.path,
            .line = node.Line(),
            .column = node.Place().column};
}

}  // namespace tovarek
