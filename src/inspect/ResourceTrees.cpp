#include "inspect/ResourceTrees.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/Text.h"
#include "formats/catalog/CatalogFile.h"
#include "inspect/TypeTree.h"
#include "system/Files.h"

namespace tovarek {
namespace {

std::string SavedText(const CivilTime& time) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d UTC", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    return text.data();
}

InspectNode HeaderNode(const ResourceHeader& header, ResourceKind kind, const ResourceNames& names) {
    InspectNode node = InspectNode::Object("header");
    // The usual title only repeats the version.
    node.Text("title", header.title).derived =
        header.title == TitleText(kind, header.majorVersion, header.minorVersion);
    node.Text("contact", header.contact);
    node.Text("webPage", header.webPage);
    AddString(node, "description", header.description, names);
    AddString(node, "creator", header.creator, names);
    node.Text("version", VersionText(header.majorVersion, header.minorVersion));
    node.Text("formatVersion", VersionText(header.formatVersion, header.formatMinor));
    node.Text("saved", SavedText(header.saved)).derived = true;
    node.Text("programId", HexText(std::string(header.programId.begin(), header.programId.end()), ':'));
    node.Number("scope", header.scope);
    return node;
}

// The two tables of unknown meaning, where they are not the usual ones.
void AddMarks(InspectNode& tree, const HeaderMarks& marks) {
    if (marks == kUsualMarks)
        return;
    std::string text;
    for (const std::uint16_t mark : marks)
        text += (text.empty() ? "" : " ") + std::to_string(mark);
    tree.Text("marks", std::move(text));
}

// What stood beside the file and could not be used.
void AddProblems(InspectNode& tree, const ResourceNames& names) {
    if (names.Problems().empty())
        return;
    InspectNode problems = InspectNode::List("problems");
    problems.derived = true;
    for (const std::string& problem : names.Problems())
        problems.Text("", problem);
    tree.Add(std::move(problems));
}

// A list of what has a number; a deleted number stays visible.
template <class Member, class Maker>
InspectNode NumberedList(std::string_view name, const std::vector<std::optional<Member>>& members,
                         Maker make) {
    InspectNode list = InspectNode::List(name);
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (members[i]) {
            list.Add(make(i + 1, *members[i]));
            continue;
        }
        InspectNode deleted = InspectNode::Object(std::to_string(i + 1));
        deleted.Number("number", static_cast<std::int64_t>(i + 1));
        deleted.Flag("deleted", true);
        list.Add(std::move(deleted));
    }
    return list;
}

void AddMemberValues(InspectNode& node, const MemberValues& values, const TypeDescription* type,
                     const ResourceNames& names) {
    node.Number("valueSize", values.size);
    if (values.initial)
        AddRawValue(node, "rawDefault", *values.initial, type, names);
    if (values.minimum)
        AddRawValue(node, "rawMinimum", *values.minimum, type, names);
    if (values.maximum)
        AddRawValue(node, "rawMaximum", *values.maximum, type, names);
}

void AddMemberHead(InspectNode& node, const ProfileMember& member, const ResourceNames& names) {
    node.Number("number", member.number);
    node.Text("name", member.name);
    node.Flag("mandatory", member.mandatory);
    AddString(node, "name", member.nameText, names);
    AddString(node, "description", member.description, names);
    if (member.reserved != 0)
        node.Number("reserved", member.reserved);
}

// The three service bits of a member; the one that stands for "repeated" is a guess.
std::string ServiceText(std::uint8_t service) {
    switch (service) {
        case 0:
            return "any";
        case 1:
            return "unacknowledged";
        case 2:
            return "repeated";
        case 4:
            return "acknowledged";
        default:
            return std::to_string(service);
    }
}

InspectNode ProfileNvNode(const ProfileNv& nv, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(std::to_string(nv.number));
    AddMemberHead(node, nv, names);
    AddReference(node, "type", nv.type, names.NvName(nv.type));
    node.Text("direction", nv.isInput ? "input" : "output");
    node.Flag("polled", nv.isPolled);
    node.Text("service", ServiceText(nv.service));
    AddMemberValues(node, nv.values, names.NvDescription(nv.type), names);
    return node;
}

InspectNode ProfileCpNode(const ProfileCp& cp, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(std::to_string(cp.number));
    AddMemberHead(node, cp, names);
    AddReference(node, "type", cp.type, names.CpName(cp.type));
    node.Number("appliesTo", cp.appliesTo);
    node.Number("smallestArray", cp.smallestArray);
    node.Number("largestArray", cp.largestArray);
    if (cp.restrictions != 0)
        node.Number("restrictions", cp.restrictions);
    AddMemberValues(node, cp.values, names.CpDescription(cp.type), names);
    return node;
}

InspectNode ProfileNode(std::size_t number, const Profile& profile, const ResourceNames& names) {
    InspectNode node = InspectNode::Object(std::to_string(number));
    node.Number("number", static_cast<std::int64_t>(number));
    node.Text("name", profile.name);
    node.Number("key", profile.key);
    node.Flag("inheritsFromStandard", profile.inherits);
    AddString(node, "name", profile.nameText, names);
    AddString(node, "description", profile.description, names);
    if (profile.reservedByte != 0)
        node.Number("reservedByte", profile.reservedByte);
    if (profile.reservedWord != 0)
        node.Number("reservedWord", profile.reservedWord);
    node.Number("principalNv", profile.principalNv);
    InspectNode nvs = InspectNode::List("networkVariables");
    for (const ProfileNv& nv : profile.nvs)
        nvs.Add(ProfileNvNode(nv, names));
    node.Add(std::move(nvs));
    InspectNode cps = InspectNode::List("configurationProperties");
    for (const ProfileCp& cp : profile.cps)
        cps.Add(ProfileCpNode(cp, names));
    node.Add(std::move(cps));
    return node;
}

InspectNode ParameterNode(const FormatParameter& parameter, const ResourceNames& names) {
    InspectNode node = InspectNode::Object("");
    if (!parameter.conversion.empty())
        node.Text("conversion", parameter.conversion);
    if (!parameter.expression.empty())
        node.Text("expression", parameter.expression);
    node.Real("factor", parameter.factor);
    node.Real("offset", parameter.offset);
    if (!parameter.unit.empty())
        node.Text("unit", parameter.unit);
    AddString(node, "unit", parameter.unitText, names);
    return node;
}

// Without form and parameters the body is all that is known; with them it is the same once more.
InspectNode DisplayFormatNode(const DisplayFormat& format, const ResourceNames& names) {
    InspectNode node =
        InspectNode::Object(format.name.empty() ? format.type : format.type + '#' + format.name);
    node.Text("type", format.type);
    node.Text("name", format.name);
    node.Text("form", format.form);
    if (format.form == "text")
        node.Text("text", format.text);
    InspectNode parameters = InspectNode::Sequence("parameters");
    for (const FormatParameter& parameter : format.parameters)
        parameters.Add(ParameterNode(parameter, names));
    node.Add(std::move(parameters));
    node.Text("body", format.body).derived = !format.form.empty();
    return node;
}

InspectNode FolderNode(const CatalogFolder& folder) {
    InspectNode node = InspectNode::Object(folder.name);
    node.Text("folder", folder.name);
    node.Flag("exists", FolderExists(folder.path)).derived = true;
    std::vector<std::string> entries = DirectoryEntries(folder.path);
    std::sort(entries.begin(), entries.end());
    InspectNode types = InspectNode::List("typeFiles");
    types.derived = true;
    for (const std::string& entry : entries)
        if (entry.size() > 4 && UpperCase(entry).ends_with(".TYP"))
            types.Text("", entry);
    node.Add(std::move(types));
    return node;
}

}  // namespace

InspectNode LanguageTree(const LanguageFile& file, const ResourceNames& names) {
    InspectNode tree = InspectNode::Object("");
    tree.Add(HeaderNode(file.header, ResourceKind::language, names));
    tree.Text("language", file.language);
    tree.Add(NumberedList("strings", file.strings, [](std::size_t number, const std::string& text) {
        InspectNode node = InspectNode::Object(std::to_string(number));
        node.Number("number", static_cast<std::int64_t>(number));
        node.Text("text", text);
        return node;
    }));
    return tree;
}

InspectNode TypeTree(const TypeFile& file, const ResourceNames& names) {
    InspectNode tree = InspectNode::Object("");
    tree.Add(HeaderNode(file.header, ResourceKind::type, names));
    AddMarks(tree, file.marks);
    AddProblems(tree, names);
    const std::uint8_t scope = file.header.scope;
    tree.Add(NumberedList("nvTypes", file.nvTypes, [&](std::size_t number, const NvType& type) {
        return NvTypeNode(number, scope, type, names);
    }));
    tree.Add(NumberedList("cpTypes", file.cpTypes, [&](std::size_t number, const CpType& type) {
        return CpTypeNode(number, scope, type, names);
    }));
    tree.Add(NumberedList("enumerations", file.enumerations, [&](std::size_t number, const Enumeration& set) {
        return EnumerationNode(number, set, names);
    }));
    return tree;
}

InspectNode ProfileTree(const ProfileFile& file, const ResourceNames& names) {
    InspectNode tree = InspectNode::Object("");
    tree.Add(HeaderNode(file.header, ResourceKind::profile, names));
    AddMarks(tree, file.marks);
    AddProblems(tree, names);
    tree.Add(NumberedList("profiles", file.profiles, [&](std::size_t number, const Profile& profile) {
        return ProfileNode(number, profile, names);
    }));
    return tree;
}

InspectNode FormatTree(const FormatFile& file, const ResourceNames& names) {
    InspectNode tree = InspectNode::Object("");
    AddProblems(tree, names);
    InspectNode settings = InspectNode::Sequence("settings");
    for (const std::string& setting : file.settings)
        settings.Text("", setting);
    tree.Add(std::move(settings));
    InspectNode formats = InspectNode::List("formats");
    for (const DisplayFormat& format : file.formats)
        formats.Add(DisplayFormatNode(format, names));
    tree.Add(std::move(formats));
    return tree;
}

InspectNode CatalogTree(std::string_view bytes, const std::string& path) {
    InspectNode tree = InspectNode::Object("");
    InspectNode folders = InspectNode::Sequence("folders");
    for (const CatalogFolder& folder : ReadCatalogFile(bytes, path))
        folders.Add(FolderNode(folder));
    tree.Add(std::move(folders));
    return tree;
}

}  // namespace tovarek
