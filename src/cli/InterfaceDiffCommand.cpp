#include "cli/InterfaceDiffCommand.h"

#include <algorithm>
#include <ostream>

#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/InterfaceInput.h"
#include "cli/Json.h"

namespace tovarek {
namespace {

std::string_view EffectName(const InterfaceChange& change) {
    return RowOf(change.rule).IsBreaking() ? "breaking" : "harmless";
}

std::string VerdictText(const InterfaceComparison& comparison) {
    const InterfaceVerdict verdict = comparison.Verdict();
    std::string text(VerdictName(verdict));
    if (verdict == InterfaceVerdict::breakingUnderNewId)
        text += " " + comparison.programIdAfter + ": fine";
    if (verdict == InterfaceVerdict::breakingUnderSameId)
        text += " " + comparison.programIdAfter + ": raise the model number";
    if (comparison.hasOwnTypes)
        text += "; own types not compared";
    return text;
}

void WriteText(const InterfaceComparison& comparison, std::ostream& out) {
    for (const InterfaceChange& change : comparison.changes)
        out << EffectName(change) << ": " << ChangeText(change) << " [" << RowOf(change.rule).name << "]\n";
    out << "verdict: " << VerdictText(comparison) << '\n';
}

Json ChangeJson(const InterfaceChange& change) {
    return {{"effect", EffectName(change)}, {"rule", RowOf(change.rule).name},
            {"record", change.record},      {"field", change.field},
            {"old", change.before},         {"new", change.after}};
}

void WriteJson(const InterfaceComparison& comparison, std::ostream& out) {
    Json changes = Json::array();
    for (const InterfaceChange& change : comparison.changes)
        changes.push_back(ChangeJson(change));
    out << JsonText({{"verdict", VerdictName(comparison.Verdict())},
                     {"text", VerdictText(comparison)},
                     {"programID", {{"old", comparison.programIdBefore}, {"new", comparison.programIdAfter}}},
                     {"ownTypes", comparison.hasOwnTypes ? "not compared" : "none"},
                     {"changes", std::move(changes)}})
        << '\n';
}

int Diff(const InterfaceDiffOptions& options, OutputFormat format, Streams streams) {
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    const ResourceNames names(catalog->types.Catalog());
    const InterfaceComparison comparison =
        CompareInterfaces(ReadComparedInterface(options.before, options.place),
                          ReadComparedInterface(options.after, options.place), names);
    if (format == OutputFormat::json)
        WriteJson(comparison, streams.out);
    else
        WriteText(comparison, streams.out);
    return comparison.Verdict() == InterfaceVerdict::breakingUnderSameId ? kDifferent : kDone;
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
