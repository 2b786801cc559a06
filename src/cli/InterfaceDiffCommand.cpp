#include "cli/InterfaceDiffCommand.h"

#include <algorithm>
#include <ostream>

#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/Json.h"
#include "cli/KnownInterfaces.h"
#include "report/InterfaceSarif.h"

namespace tovarek {
namespace {

std::string_view EffectName(const InterfaceChange& change) {
    return RowOf(change.rule).IsBreaking() ? "breaking" : "harmless";
}

// A comparison, and what the folder of known interfaces says of it.
struct Judgement {
    InterfaceComparison comparison;
    std::string comparedWith;  // the known interface, where one was looked for
    bool isNew = false;        // none is known under the program ID
    std::string nextFree;      // program ID, where a new one is needed and known ones are told
};

std::string VerdictOf(const Judgement& judgement) {
    return judgement.isNew ? "new" : std::string(VerdictName(judgement.comparison.Verdict()));
}

std::string CountText(std::size_t count, const char* one, const char* more) {
    return std::to_string(count) + ' ' + (count == 1 ? one : more);
}

// What of the own types nobody has told, as the end of a sentence.
std::string MissedTypes(const InterfaceComparison& comparison) {
    const OwnTypeCount& variables = comparison.ownTypesOfVariables;
    const OwnTypeCount& properties = comparison.ownTypesOfProperties;
    if (variables.missed + properties.missed == 0)
        return {};
    if (variables.compared + properties.compared == 0)
        return "; own types not compared";
    std::string text;
    if (variables.missed > 0)
        text += CountText(variables.missed, "variable", "variables");
    if (properties.missed > 0)
        text += (text.empty() ? "" : " and ") + CountText(properties.missed, "property", "properties");
    return "; own types of " + text + " not compared";
}

std::string VerdictText(const Judgement& judgement) {
    const InterfaceComparison& comparison = judgement.comparison;
    const InterfaceVerdict verdict = comparison.Verdict();
    std::string text = VerdictOf(judgement);
    if (judgement.isNew)
        return text + ": no known interface has the program ID " + comparison.programIdAfter;
    if (verdict == InterfaceVerdict::breakingUnderNewId)
        text += " " + comparison.programIdAfter + ": fine";
    if (verdict == InterfaceVerdict::breakingUnderSameId)
        text += " " + comparison.programIdAfter + ": raise the model number" +
                (judgement.nextFree.empty() ? "" : ", the next free one is " + judgement.nextFree);
    return text + MissedTypes(comparison);
}

void WriteText(const Judgement& judgement, std::ostream& out) {
    if (!judgement.comparedWith.empty())
        out << "compared with " << judgement.comparedWith << '\n';
    for (const InterfaceChange& change : judgement.comparison.changes)
        out << EffectName(change) << ": " << ChangeText(change) << " [" << RowOf(change.rule).name << "]\n";
    out << "verdict: " << VerdictText(judgement) << '\n';
}

// A cell of a table, as it stands.
std::string Cell(const std::string& text) {
    std::string cell;
    for (const char c : Printable(text)) {
        if (std::string_view("\\`*_|<[&~").find(c) != std::string_view::npos)
            cell += '\\';
        cell += c;
    }
    return cell;
}

void WriteMarkdown(const Judgement& judgement, std::ostream& out) {
    out << "**Interface: " << Cell(VerdictText(judgement)) << "**\n";
    if (judgement.comparison.changes.empty())
        return;
    out << "\n| Effect | Where | What | Old | New | Rule |\n|---|---|---|---|---|---|\n";
    for (const InterfaceChange& change : judgement.comparison.changes)
        out << "| " << (RowOf(change.rule).IsBreaking() ? "**breaking**" : "harmless") << " | "
            << Cell(change.record) << " | " << Cell(change.field) << " | " << Cell(change.before) << " | "
            << Cell(change.after) << " | `" << RowOf(change.rule).name << "` |\n";
}

Json ChangeJson(const InterfaceChange& change) {
    return {{"effect", EffectName(change)}, {"rule", RowOf(change.rule).name},
            {"record", change.record},      {"field", change.field},
            {"old", change.before},         {"new", change.after}};
}

Json OwnTypesJson(const InterfaceComparison& comparison) {
    const auto counts = [](const OwnTypeCount& count) {
        return Json{{"compared", count.compared}, {"notCompared", count.missed}};
    };
    return {{"variables", counts(comparison.ownTypesOfVariables)},
            {"properties", counts(comparison.ownTypesOfProperties)}};
}

void WriteJson(const Judgement& judgement, std::ostream& out) {
    const InterfaceComparison& comparison = judgement.comparison;
    Json changes = Json::array();
    for (const InterfaceChange& change : comparison.changes)
        changes.push_back(ChangeJson(change));
    Json json = {{"verdict", VerdictOf(judgement)},
                 {"text", VerdictText(judgement)},
                 {"programID", {{"old", comparison.programIdBefore}, {"new", comparison.programIdAfter}}},
                 {"ownTypes", OwnTypesJson(comparison)},
                 {"changes", std::move(changes)}};
    if (!judgement.comparedWith.empty())
        json["comparedWith"] = judgement.comparedWith;
    if (!judgement.nextFree.empty())
        json["nextFree"] = judgement.nextFree;
    out << JsonText(json) << '\n';
}

Judgement Judge(const InterfaceDiffOptions& options, OutputFormat format, Streams streams) {
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    const ComparedInterface after = ReadComparedInterface(options.after, options.place);
    const std::string programId = UpperCase(after.file.programId);
    std::vector<KnownInterface> known;
    if (!options.known.empty())
        known = ReadKnownInterfaces(options.known, options.after.interface, format, streams);
    InterfaceWords before = options.before;
    Judgement judgement;
    if (const KnownInterface* const one = before.interface.empty() ? FindKnown(known, programId) : nullptr)
        judgement.comparedWith = before.interface = one->path;
    judgement.isNew = before.interface.empty();
    if (judgement.isNew)
        judgement.comparison.programIdAfter = programId;
    else
        judgement.comparison =
            CompareInterfaces(ReadComparedInterface(before, options.place), after, catalog->types.Catalog(),
                              options.place.IsShipped() ? StandardTexts::published : StandardTexts::all);
    if (!known.empty() && judgement.comparison.Verdict() == InterfaceVerdict::breakingUnderSameId)
        judgement.nextFree = NextFreeModel(programId, known).value_or("");
    return judgement;
}

int Diff(const InterfaceDiffOptions& options, OutputFormat format, Streams streams) {
    const Judgement judgement = Judge(options, format, streams);
    if (format == OutputFormat::json)
        WriteJson(judgement, streams.out);
    else if (format == OutputFormat::markdown)
        WriteMarkdown(judgement, streams.out);
    else if (format == OutputFormat::sarif)
        streams.out << SarifText({judgement.comparison, InputNamed(options.after.interface).file,
                                  VerdictOf(judgement), VerdictText(judgement)},
                                 TOVAREK_VERSION);
    else
        WriteText(judgement, streams.out);
    return judgement.comparison.Verdict() == InterfaceVerdict::breakingUnderSameId ? kDifferent : kDone;
}

}  // namespace

int RunInterfaceDiff(const InterfaceDiffOptions& options, OutputFormat format, Streams streams) {
    try {
        return Diff(options, format, streams);
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (const Error& error) {
        // Not kFailed, which here tells of breaking changes.
        ReportError(error, format, streams);
        return kWrongUse;
    }
}

}  // namespace tovarek
