#include "cli/GenerateCommand.h"

#include <utility>

#include "check/Check.h"
#include "cli/Assignments.h"
#include "cli/JobSetup.h"
#include "cli/OutputGuard.h"
#include "component/Tovarek.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// The last level of a folder. When that fails, the first file that is written there tells.
void CreateFolder(std::string folder) {
    while (!folder.empty() && (folder.back() == '/' || folder.back() == '\\'))
        folder.pop_back();
    if (!folder.empty())
        MakeDirectory(folder);
}

}  // namespace

int RunGenerate(const std::vector<Setting>& settings, bool warns, OutputFormat format, Streams streams) {
    Tovarek component;
    FindingList warnings;
    if (warns)
        component.SetWarnings(&warnings);
    const CErrorHandler errorHandler;
    RaisingSink sink(errorHandler, warns ? &warnings : nullptr);
    std::vector<SetProperty> set;
    RunReport report{.format = format, .streams = streams};
    const auto finish = [&](bool isWhole) {
        report.written = component.WrittenFiles();
        std::vector<Finding> all = warnings.TakeAll();
        PlaceInJobs(set, all);
        report.warnings =
            Judge(std::move(all), {.inputs = InputsOf(component, settings), .isWhole = isWhole && warns});
    };
    try {
        set = SetUp(component, settings, sink);
        UseShippedCatalog(component);
        const std::vector<std::string> jobs = JobsOf(settings);
        RefuseOverwriting(component.Files(), jobs);
        // Once more when the template is in order and has told the user type file.
        component.SetGuard([&](const JobFiles& files) {
            RefuseOverwriting(files, jobs);
            if (component.mustGenerateTypes())
                CreateFolder(component.typeFilesDirectory());
        });
        component.Generate();
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (Error& error) {
        ExplainError(component, error);
        finish(false);
        return ReportFailedRun(error, report);
    }
    finish(true);
    return ReportRun(report);
}

}  // namespace tovarek
