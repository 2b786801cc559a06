#include "cli/CheckCommand.h"

#include <algorithm>
#include <cstdlib>
#include <ostream>
#include <utility>

#include "base/Nearest.h"
#include "base/Text.h"
#include "check/WarningNames.h"
#include "cli/Assignments.h"
#include "cli/Json.h"
#include "cli/OutputGuard.h"
#include "report/FindingText.h"
#include "report/Junit.h"
#include "report/Sarif.h"

namespace tovarek {
namespace {

void RefuseUnknownNames(const std::vector<std::string>& ignored) {
    std::vector<std::string> names;
    for (const WarningRow& row : WarningRows())
        names.emplace_back(row.name);
    for (const std::string& name : ignored)
        if (std::find(names.begin(), names.end(), name) == names.end())
            throw WrongUse("there is no warning '" + Excerpt(name) + "' to ignore" + DidYouMean(name, names));
}

bool InColor(const std::string& wish, const Streams& streams) {
    if (wish == "always" || wish == "never")
        return wish == "always";
    if (wish != "auto")
        throw WrongUse("'" + Excerpt(wish) + "' cannot be the value of --color; give auto, always or never");
    const char* const noColor = std::getenv("NO_COLOR");
    return streams.outIsTerminal && (noColor == nullptr || *noColor == '\0');
}

std::string Count(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

int RunCheck(const std::vector<Setting>& settings, const CheckWishes& wishes, OutputFormat format,
             Streams streams) {
    Tovarek component;
    FindingList findings(wishes.options.isPedantic);
    std::vector<SetProperty> set;
    bool inColor = false;
    try {
        RefuseUnknownNames(wishes.options.ignored);
        inColor = InColor(wishes.color, streams);
        set = SetUp(component, settings, findings);
        TellingErrors(findings, [&] { UseShippedCatalog(component); });
        RefuseOverwriting(component.Files(), JobsOf(settings));
        TellingErrors(findings, [&] { component.Check(findings); });
        RefuseOverwriting(component.Files(), JobsOf(settings));
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    }
    CheckOptions options = wishes.options;
    options.inputs = InputsOf(component, settings);
    std::vector<Finding> all = findings.TakeAll();
    ExplainErrors(component, all);
    PlaceInJobs(set, all);
    const std::vector<CheckedFinding> judged = Judge(std::move(all), options);
    const auto errors = static_cast<std::size_t>(std::count_if(
        judged.begin(), judged.end(), [](const CheckedFinding& finding) { return finding.isError; }));
    const std::size_t warnings = judged.size() - errors;
    switch (format) {
        case OutputFormat::json:
            streams.out << JsonText({{"findings", FindingsJson(judged)},
                                     {"errors", errors},
                                     {"warnings", warnings}})
                        << '\n';
            break;
        case OutputFormat::sarif:
            streams.out << SarifText(judged, TOVAREK_VERSION);
            break;
        case OutputFormat::junit:
            streams.out << JunitText(judged, options.inputs, wishes.warningsAsErrors);
            break;
        default:
            WriteFindings(judged, inColor, streams.out);
            streams.out << Count(errors, "error") << ", " << Count(warnings, "warning") << '\n';
    }
    return errors > 0 || (wishes.warningsAsErrors && warnings > 0) ? kFailed : kDone;
}

}  // namespace tovarek
