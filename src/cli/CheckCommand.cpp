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
#include "cli/Mending.h"
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

void RefuseWishes(const CheckWishes& wishes, OutputFormat format) {
    RefuseUnknownNames(wishes.options.ignored);
    if (wishes.isTrial && !wishes.isMending)
        throw WrongUse("--dry-run shows what --fix would do; give both");
    if (wishes.isTrial && format != OutputFormat::text && format != OutputFormat::json)
        throw WrongUse("--fix --dry-run shows a diff; give --format text or json with it");
}

struct CheckedJob {
    std::vector<CheckedFinding> findings;
    std::vector<std::string> inputs;
    FileStamps stamps;
};

CheckedJob CheckJob(const std::vector<Setting>& settings, const CheckOptions& wishes) {
    Tovarek component;
    FindingList findings(wishes.isPedantic);
    const std::vector<SetProperty> set = SetUp(component, settings, findings);
    TellingErrors(findings, [&] { UseUsualCatalog(component, nullptr); });
    RefuseOverwriting(component.Files(), JobsOf(settings));
    CheckedJob job;
    AddStamps(InputsOf(component, settings), job.stamps);
    TellingErrors(findings, [&] { component.Check(findings); });
    // The template names one more input.
    RefuseOverwriting(component.Files(), JobsOf(settings));
    CheckOptions options = wishes;
    options.inputs = InputsOf(component, settings);
    AddStamps(options.inputs, job.stamps);
    std::vector<Finding> all = findings.TakeAll();
    ExplainErrors(component, all);
    PlaceInJobs(component, set, all);
    job.findings = Judge(std::move(all), options);
    job.inputs = std::move(options.inputs);
    return job;
}

// Leaves out what a trial would mend.
void LeaveOut(const std::vector<MendedFinding>& made, std::vector<CheckedFinding>& findings) {
    std::erase_if(findings, [&](const CheckedFinding& finding) {
        return std::any_of(made.begin(), made.end(), [&](const MendedFinding& mended) {
            return mended.finding.order == finding.order;
        });
    });
}

void WriteAsText(const CheckedJob& job, const CheckWishes& wishes, const MendRun& mends,
                 const std::string& summary, bool inColor, Streams streams) {
    if (wishes.isTrial) {
        streams.out << mends.diff;
        WriteMends(mends.left, streams.error);
        return;
    }
    WriteMends(mends.made, streams.out);
    WriteMends(mends.left, streams.out);
    WriteFindings(job.findings, inColor, streams.out);
    streams.out << summary;
    if (wishes.isMending)
        streams.out << ", " << Count(mends.made.size(), "mend");
    const bool isMore = !mends.made.empty() &&
                        std::any_of(job.findings.begin(), job.findings.end(),
                                    [](const CheckedFinding& finding) { return !finding.mend.empty(); });
    streams.out << (isMore ? "; --fix again mends more\n" : "\n");
}

Json AnswerJson(const CheckedJob& job, const CheckWishes& wishes, const MendRun& mends, std::size_t errors) {
    Json json = {{"findings", FindingsJson(job.findings)},
                 {"errors", errors},
                 {"warnings", job.findings.size() - errors}};
    if (wishes.isMending) {
        json["mends"] = MendsJson(mends.made);
        json["left"] = MendsJson(mends.left);
    }
    if (wishes.isTrial)
        json["diff"] = mends.diff;
    return json;
}

}  // namespace

int RunCheck(const std::vector<Setting>& settings, const CheckWishes& wishes, OutputFormat format,
             Streams streams) {
    CheckedJob job;
    MendRun mends;
    bool inColor = false;
    try {
        RefuseWishes(wishes, format);
        inColor = InColor(wishes.color, streams);
        job = CheckJob(settings, wishes.options);
        if (wishes.isMending)
            mends = MendFindings(job.findings, job.stamps, wishes.isTrial);
        if (wishes.isTrial)
            LeaveOut(mends.made, job.findings);
        else if (!mends.made.empty())
            job = CheckJob(settings, wishes.options);
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    }
    const auto errors = static_cast<std::size_t>(
        std::count_if(job.findings.begin(), job.findings.end(),
                      [](const CheckedFinding& finding) { return finding.isError; }));
    const std::size_t warnings = job.findings.size() - errors;
    switch (format) {
        case OutputFormat::json:
            streams.out << JsonText(AnswerJson(job, wishes, mends, errors)) << '\n';
            break;
        case OutputFormat::sarif:
            streams.out << SarifText(job.findings, TOVAREK_VERSION);
            break;
        case OutputFormat::junit:
            streams.out << JunitText(job.findings, job.inputs, wishes.warningsAsErrors);
            break;
        default:
            WriteAsText(job, wishes, mends, Count(errors, "error") + ", " + Count(warnings, "warning"),
                        inColor, streams);
    }
    return errors > 0 || mends.hasFailed || (wishes.warningsAsErrors && warnings > 0) ? kFailed : kDone;
}

}  // namespace tovarek
