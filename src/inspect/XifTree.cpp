#include "inspect/XifTree.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "formats/xif/XifBuffers.h"
#include "formats/xif/XifProperties.h"
#include "profile/ProfileFields.h"

namespace tovarek {
namespace {

constexpr auto kElementTypes =
    std::to_array<std::string_view>({"character", "8-bit", "16-bit", "bit field", "union", "typeless"});
constexpr auto kDirections = std::to_array<std::string_view>({"input", "output"});

// The attributes of a variable that are flags, by their place on the line.
struct AttributeRow {
    std::string_view name;
    std::size_t place;
};
constexpr auto kFlags = std::to_array<AttributeRow>({
    {"offline", placeOffline},
    {"serviceCanBeChanged", placeServiceCanBeChanged},
    {"authenticated", placeAuthenticated},
    {"authenticationCanBeChanged", placeAuthCanBeChanged},
    {"priority", placePriority},
    {"priorityCanBeChanged", placePriorityCanBeChanged},
    {"polled", placePolled},
    {"synchronized", placeSynchronized},
    {"configuration", placeConfiguration},
});

void AddNumber(InspectNode& node, std::string_view name, const XifNumber& number) {
    if (number)
        node.Number(name, *number);
    else
        node.Text(name, "default");
}

// Flags other than 0 and 1 are shown as the numbers that they are.
void AddFlag(InspectNode& node, std::string_view name, const XifNumber& number) {
    const std::int64_t value = number.value_or(-1);
    if (value == 0 || value == 1)
        node.Flag(name, value == 1);
    else
        AddNumber(node, name, number);
}

// A number that stands for a word.
template <std::size_t count>
void AddWord(InspectNode& node, std::string_view name, const XifNumber& number,
             const std::array<std::string_view, count>& words) {
    if (number && *number >= 0 && *number < static_cast<std::int64_t>(count))
        node.Text(name, std::string(words.at(static_cast<std::size_t>(*number))));
    else
        AddNumber(node, name, number);
}

// The places on the parameter lines that hold no values of a profile; templates know the first three.
struct OtherParameter {
    int line;
    int token;
    std::string_view name;
};
constexpr auto kOtherParameters = std::to_array<OtherParameter>({
    {6, 4, "numberOfStaticNvs"},
    {6, 5, "numberOfTags"},
    {6, 23, "maximumNumberOfNvs"},
    {8, 3, "transceiverType"},
});

// A value of the profile is called what it is called there. Later versions of the format have more numbers.
std::string ParameterName(int line, int token) {
    for (const ProfileField& field : kProfileFields)
        if (field.line == line && field.token == token)
            return std::string(field.iniKey);
    for (const OtherParameter& other : kOtherParameters)
        if (other.line == line && other.token == token)
            return std::string(other.name);
    return "number" + std::to_string(token);
}

// The codes of buffer counts and sizes.
void AddDecoded(InspectNode& node, int line, int token, const std::string& name, const XifNumber& number) {
    constexpr int kFirstCount = 6;
    constexpr int kFirstSize = 12;
    constexpr int kLastSize = 15;
    if (line != kFirstProfileLine || token < kFirstCount || token > kLastSize || !number || *number < 0 ||
        *number >= 16)
        return;
    const auto code = static_cast<std::size_t>(*number);
    node.Number(name + "Decoded", token < kFirstSize ? kXifBufferCounts.at(code) : kXifBufferSizes.at(code))
        .derived = true;
}

InspectNode ParametersNode(const XifParameters& parameters) {
    InspectNode node = InspectNode::Object("line" + std::to_string(parameters.line));
    int token = 0;
    for (const XifNumber& number : parameters.numbers) {
        const std::string name = ParameterName(parameters.line, ++token);
        AddNumber(node, name, number);
        AddDecoded(node, parameters.line, token, name, number);
    }
    return node;
}

// Numbers without a meaning that anybody told.
void AddNumbers(InspectNode& node, std::string_view name, const std::vector<XifNumber>& numbers) {
    InspectNode list = InspectNode::Sequence(name);
    for (const XifNumber& number : numbers)
        AddNumber(list, "", number);
    node.Add(std::move(list));
}

InspectNode TagNode(const XifTag& tag) {
    InspectNode node = InspectNode::Object(tag.name);
    node.Text("name", tag.name);
    AddNumber(node, "index", tag.numbers[0]);
    AddNumber(node, "averageRate", tag.numbers[1]);
    AddNumber(node, "maximumRate", tag.numbers[2]);
    AddFlag(node, "bindable", tag.attributes[placeBindable]);
    std::vector<XifNumber> others = tag.attributes;
    others.erase(others.begin() + placeBindable);
    AddNumbers(node, "otherAttributes", others);
    return node;
}

InspectNode ElementNode(const XifElement& element) {
    InspectNode node = InspectNode::Object("");
    AddWord(node, "type", element.type, kElementTypes);
    AddNumber(node, "bitOffset", element.offset);
    AddNumber(node, "size", element.size);
    AddFlag(node, "signed", element.isSigned);
    AddNumber(node, "array", element.array);
    return node;
}

InspectNode VariableNode(const XifVariable& variable, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(variable.name);
    node.Text("name", variable.name);
    AddNumber(node, "index", variable.Number(0));
    AddNumber(node, "averageRate", variable.Number(1));
    AddNumber(node, "maximumRate", variable.Number(2));
    AddNumber(node, "arraySize", variable.Number(3));
    AddWord(node, "direction", variable.Attribute(placeDirection), kDirections);
    AddWord(node, "service", variable.Attribute(placeService), kXifServices);
    for (const AttributeRow& row : kFlags)
        AddFlag(node, row.name, variable.Attribute(row.place));
    // Two places are the same in every file.
    const std::vector<XifNumber> constants{variable.Attribute(placeSecond), variable.Attribute(placeThird)};
    if (constants != std::vector<XifNumber>{1, 63})
        AddNumbers(node, "otherAttributes", constants);
    node.Text("selfDocumentation", variable.documentation);
    AddNumber(node, "standardType", variable.standardType);
    const std::int64_t type = variable.standardType.value_or(0);
    if (type > 0 && type <= 0xFFFF)
        if (std::string name = names.NvName({0, static_cast<std::uint16_t>(type)}); !name.empty())
            node.Text("standardTypeName", std::move(name)).derived = true;
    node.Number("bytes", variable.Size()).derived = true;
    InspectNode elements = InspectNode::Sequence("elements");
    for (const XifElement& element : variable.elements)
        elements.Add(ElementNode(element));
    node.Add(std::move(elements));
    return node;
}

// Digits as the number that they are; what is none, or no 64-bit number, as it stands. Nothing for nothing.
void AddDigits(InspectNode& node, std::string_view name, const std::string& digits) {
    if (const auto number = ExactNumber<std::int64_t>(digits))
        node.Number(name, *number);
    else if (!digits.empty())
        node.Text(name, digits);
}

// The name of a standard property type; empty for others, and where it is not known.
std::string StandardTypeName(const XifProperty& property, const ResourceNames& names) {
    const auto index = ExactNumber<std::uint16_t>(property.type);
    return property.scope == "0" && index ? names.CpName({0, *index}) : std::string();
}

InspectNode PropertyNode(const XifProperty& property, const ResourceNames& names) {
    constexpr auto kAppliesTo =
        std::to_array<std::string_view>({"device", "functional block", "network variable"});
    InspectNode node = InspectNode::Object(property.Key());
    if (!property.isKnown) {
        node.Text("record", property.record);
        return node;
    }
    if (!property.name.empty())
        node.Text("name", property.name);
    AddWord(node, "appliesTo", property.appliesTo[0] - '0', kAppliesTo);
    node.Text("select", property.select);
    AddDigits(node, "scope", property.scope);
    node.Text("flags", property.flags);
    AddDigits(node, "type", property.type);
    if (std::string name = StandardTypeName(property, names); !name.empty())
        node.Text("typeName", std::move(name)).derived = true;
    AddDigits(node, "length", property.length);
    AddDigits(node, "count", property.count);
    if (!property.range.empty())
        node.Text("range", property.range);
    return node;
}

void AddContent(InspectNode& node, const XifContent& content) {
    if (!content.text.empty())
        node.Text("text", content.text);
    if (!content.bytes.empty() || content.text.empty())
        node.Text("bytes", HexText(content.bytes));
}

InspectNode SectionNode(const XifSection& section) {
    InspectNode node = InspectNode::Object(section.name);
    node.Text("name", section.name);
    AddNumber(node, "index", section.index);
    AddNumber(node, "type", section.type);
    if (section.length)
        AddNumber(node, "length", *section.length);
    AddContent(node, section.content);
    return node;
}

// Shown whole, but compared part by part.
void DeriveContent(InspectNode& node, std::string_view content) {
    for (InspectNode& child : node.children)
        if (child.name == content)
            child.derived = true;
}

void AddProperties(InspectNode& node, const XifPropertyTemplate& declared, const ResourceNames& names) {
    DeriveContent(node, "text");
    node.Text("templateVersion", declared.version);
    InspectNode properties = InspectNode::Sequence("properties");
    for (const XifProperty& property : declared.properties)
        properties.Add(PropertyNode(property, names));
    node.Add(std::move(properties));
}

void AddPropertyValues(InspectNode& node, const std::vector<XifPropertyValue>& values) {
    if (values.empty())
        return;
    DeriveContent(node, "bytes");
    InspectNode list = InspectNode::List("values");
    for (const XifPropertyValue& value : values) {
        InspectNode item = InspectNode::Object(value.property->Key());
        item.Text("property", value.property->Key()).derived = true;
        item.Text("bytes", HexText(value.bytes));
        list.Add(std::move(item));
    }
    node.Add(std::move(list));
}

// The files; the template record by record, and the values of its properties one by one.
InspectNode SectionsNode(const XifFile& file, const ResourceNames& names) {
    const XifPropertyTemplate declared = ReadXifTemplate(file);
    InspectNode sections = InspectNode::List("files");
    const XifSection* const declaring = XifTemplateSection(file);
    for (const XifSection& section : file.sections) {
        InspectNode& node = sections.Add(SectionNode(section));
        if (&section == declaring)
            AddProperties(node, declared, names);
        AddPropertyValues(node, XifPropertyValues(file, section, declared.properties));
    }
    return sections;
}

// The default values variable by variable.
void AddDefaults(InspectNode& node, const XifFile& file) {
    InspectNode defaults = InspectNode::List("variables");
    for (const XifDefaultValue& value : XifDefaultValues(file)) {
        InspectNode item = InspectNode::Object(value.variable->name);
        item.Text("name", value.variable->name);
        item.Text("bytes", HexText(value.bytes));
        defaults.Add(std::move(item));
    }
    if (defaults.children.empty())
        return;
    DeriveContent(node, "bytes");
    node.Add(std::move(defaults));
}

InspectNode HeaderNode(const XifFile& file) {
    InspectNode node = InspectNode::Object("header");
    node.Text("fileName", file.name).derived = true;
    node.Text("tool", file.tool);
    node.Text("xifVersion", file.version);
    node.Text("copyright", file.copyright);
    node.Text("run", file.run).derived = true;
    node.Text("programId", file.programId);
    return node;
}

void AddRemains(InspectNode& tree, const XifFile& file) {
    InspectNode unknown = InspectNode::Sequence("unknownRecords");
    for (const XifUnknown& record : file.unknown) {
        InspectNode lines = InspectNode::Sequence("");
        for (const std::string& line : record.lines)
            lines.Text("", line);
        unknown.Add(std::move(lines));
    }
    if (!unknown.children.empty())
        tree.Add(std::move(unknown));
    if (!file.attached.empty()) {
        InspectNode attached = InspectNode::Object("attached");
        attached.Number("offset", static_cast<std::int64_t>(file.attachedAt)).derived = true;
        attached.Number("length", static_cast<std::int64_t>(file.attached.size()));
        attached.Text("bytes", HexText(file.attached));
        tree.Add(std::move(attached));
    }
    InspectNode comments = InspectNode::List("comments");
    comments.derived = true;
    for (const XifComment& comment : file.comments) {
        InspectNode item = InspectNode::Object("");
        item.Number("line", static_cast<std::int64_t>(comment.line));
        item.Text("text", comment.text);
        comments.Add(std::move(item));
    }
    if (!comments.children.empty())
        tree.Add(std::move(comments));
}

}  // namespace

InspectNode XifTree(const XifFile& file, const ResourceNames& names) {
    InspectNode tree = InspectNode::Object("");
    tree.Add(HeaderNode(file));
    InspectNode parameters = InspectNode::Object("parameters");
    for (const XifParameters& line : file.parameters)
        parameters.Add(ParametersNode(line));
    tree.Add(std::move(parameters));
    tree.Text("selfDocumentation", file.documentation);
    InspectNode tags = InspectNode::List("messageTags");
    for (const XifTag& tag : file.tags)
        tags.Add(TagNode(tag));
    tree.Add(std::move(tags));
    InspectNode variables = InspectNode::List("networkVariables");
    for (const XifVariable& variable : file.variables)
        variables.Add(VariableNode(variable, names));
    tree.Add(std::move(variables));
    tree.Add(SectionsNode(file, names));
    if (file.values) {
        InspectNode values = InspectNode::Object("defaultValues");
        AddContent(values, *file.values);
        AddDefaults(values, file);
        tree.Add(std::move(values));
    }
    AddRemains(tree, file);
    return tree;
}

}  // namespace tovarek
