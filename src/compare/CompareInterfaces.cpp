#include "compare/CompareInterfaces.h"

#include <algorithm>
#include <map>
#include <set>

#include "compare/Documentation.h"
#include "compare/RecordChanges.h"
#include "profile/ProfileFields.h"

namespace tovarek {
namespace {

// Places of lines 6 and 8 that no profile has.
struct OtherPlace {
    int line;
    std::size_t place;
    std::string_view name;
};
constexpr OtherPlace kOtherPlaces[] = {{6, 3, "numberOfStaticNvs"},
                                       {6, 4, "numberOfTags"},
                                       {6, 22, "maximumNumberOfNvs"},
                                       {8, 2, "transceiverType"}};

std::string ParameterName(int line, std::size_t place) {
    for (const ProfileField& field : kProfileFields)
        if (field.line == line && static_cast<std::size_t>(field.token) == place + 1)
            return std::string(field.iniKey);
    for (const OtherPlace& other : kOtherPlaces)
        if (other.line == line && other.place == place)
            return std::string(other.name);
    return "number " + std::to_string(place + 1);
}

// The parameters by line. The counts of variables and tags are left out where they say what the lists do.
std::map<int, std::vector<std::string>> ParametersOf(const XifFile& file) {
    constexpr int kCounts = 6;
    std::map<int, std::vector<std::string>> lines;
    for (const XifParameters& parameters : file.parameters) {
        std::vector<std::string>& line = lines[parameters.line];
        for (const XifNumber& number : parameters.numbers)
            line.push_back(NumberText(number));
    }
    std::vector<std::string>& counts = lines[kCounts];
    const std::size_t held[] = {file.variables.size(), file.tags.size()};
    for (std::size_t i = 0; i < 2 && kOtherPlaces[i].place < counts.size(); ++i)
        if (std::string& count = counts[kOtherPlaces[i].place]; count == std::to_string(held[i]))
            count = "as many as there are";
    return lines;
}

void CompareParameters(const XifFile& before, const XifFile& after, ChangeList& changes) {
    std::map<int, std::vector<std::string>> old = ParametersOf(before);
    std::map<int, std::vector<std::string>> now = ParametersOf(after);
    std::set<int> lines;
    for (const auto* side : {&old, &now})
        for (const auto& [line, numbers] : *side)
            lines.insert(line);
    for (const int line : lines) {
        const std::size_t count = std::max(old[line].size(), now[line].size());
        old[line].resize(count);
        now[line].resize(count);
        for (std::size_t place = 0; place < count; ++place)
            changes.Expect(InterfaceRule::parameters, "line " + std::to_string(line),
                           ParameterName(line, place), old[line][place], now[line][place]);
    }
}

void CompareDeviceDocumentation(const XifFile& before, const XifFile& after, ChangeList& changes) {
    const DocumentationParts old = PartsOfDocumentation(before.documentation);
    const DocumentationParts now = PartsOfDocumentation(after.documentation);
    const auto tell = [&](InterfaceRule rule, const char* field, bool isChanged) {
        if (isChanged)
            changes.Tell(rule, "device", field, before.documentation, after.documentation);
    };
    tell(InterfaceRule::deviceDocumentation, "self-documentation", old.head != now.head);
    tell(InterfaceRule::objectList, "functional blocks", old.objects != now.objects);
    tell(InterfaceRule::deviceText, "text", old.text != now.text);
}

std::string ContentText(const std::optional<XifContent>& content) {
    return content ? HexText(content->bytes) : "none";
}

void CompareHeaders(const XifFile& before, const XifFile& after, ChangeList& changes) {
    const auto expect = [&](const char* field, const std::string& old, const std::string& now) {
        changes.Expect(InterfaceRule::fileHeader, "file", field, old, now);
    };
    expect("name", before.name, after.name);
    expect("tool", before.tool, after.tool);
    expect("version", before.version, after.version);
    expect("copyright", before.copyright, after.copyright);
    expect("date", before.run, after.run);
}

std::string OtherRecordsOf(const XifFile& file) {
    std::string text;
    for (const XifUnknown& record : file.unknown)
        for (const std::string& line : record.lines)
            text += line + '\n';
    for (const XifComment& comment : file.comments)
        text += comment.text + '\n';
    return text + file.attached;
}

}  // namespace

InterfaceVerdict InterfaceComparison::Verdict() const {
    if (changes.empty())
        return InterfaceVerdict::equal;
    const bool isBreaking = std::any_of(changes.begin(), changes.end(), [](const InterfaceChange& change) {
        return RowOf(change.rule).IsBreaking();
    });
    if (!isBreaking)
        return InterfaceVerdict::harmless;
    return programIdBefore == programIdAfter ? InterfaceVerdict::breakingUnderSameId
                                             : InterfaceVerdict::breakingUnderNewId;
}

InterfaceComparison CompareInterfaces(const ComparedInterface& before, const ComparedInterface& after,
                                      const StandardCatalog* catalog, StandardTexts texts) {
    const XifFile& old = before.file;
    const XifFile& now = after.file;
    InterfaceComparison result;
    result.programIdBefore = UpperCase(old.programId);
    result.programIdAfter = UpperCase(now.programId);
    const ResourceNames names(catalog);
    const OwnTypesOfDevice typesBefore(old, before.types, catalog, texts);
    const OwnTypesOfDevice typesAfter(now, after.types, catalog, texts);
    ChangeList changes;
    changes.Expect(InterfaceRule::programId, "device", "program ID", result.programIdBefore,
                   result.programIdAfter);
    CompareDeviceDocumentation(old, now, changes);
    CompareTags(old, now, changes);
    result.ownTypesOfVariables = CompareVariables({old, typesBefore}, {now, typesAfter}, names, changes);
    result.ownTypesOfProperties = CompareProperties({old, typesBefore}, {now, typesAfter}, names, changes);
    if (ContentText(old.values) != ContentText(now.values))
        changes.Tell(InterfaceRule::variableValues, "configuration variables", "default values",
                     ContentText(old.values), ContentText(now.values));
    if (before.hasParameters && after.hasParameters)
        CompareParameters(old, now, changes);
    if (before.isFile && after.isFile)
        CompareHeaders(old, now, changes);
    if (OtherRecordsOf(old) != OtherRecordsOf(now))
        changes.Tell(InterfaceRule::otherRecords, "file", "comments and unknown records");
    result.changes = changes.Take();
    std::stable_sort(result.changes.begin(), result.changes.end(),
                     [](const InterfaceChange& a, const InterfaceChange& b) {
                         return RowOf(a.rule).effect > RowOf(b.rule).effect;
                     });
    return result;
}

std::string_view VerdictName(InterfaceVerdict verdict) {
    switch (verdict) {
        case InterfaceVerdict::equal:
            return "equal";
        case InterfaceVerdict::harmless:
            return "harmless";
        case InterfaceVerdict::breakingUnderNewId:
            return "breaking under a new program ID";
        case InterfaceVerdict::breakingUnderSameId:
            break;
    }
    return "breaking under the same program ID";
}

}  // namespace tovarek
