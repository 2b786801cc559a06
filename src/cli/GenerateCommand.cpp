#include "cli/GenerateCommand.h"

#include <algorithm>
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

// One run with what it comes to.
class Generation {
  public:
    Generation(const std::vector<Setting>& settings, const GenerateWishes& wishes)
        : settings_(settings), wishes_(wishes), record_(wishes.build) {
        if (wishes_.warns)
            component_.SetWarnings(&warnings_);
    }

    void Run() {
        RaisingSink sink(errorHandler_, wishes_.warns ? &warnings_ : nullptr);
        if (!wishes_.build.depfile.empty() && wishes_.build.stamp.empty())
            throw WrongUse("--depfile needs --stamp FILE, the file that it tells of");
        set_ = SetUp(component_, settings_, sink);
        UseUsualCatalog(component_, wishes_.catalog);
        const std::vector<std::string> jobs = JobsOf(settings_);
        RefuseOverwriting(record_.With(component_.Files()), jobs);
        // Once more when the template is in order and has told the user type file.
        component_.SetGuard([&](const JobFiles& files) {
            RefuseOverwriting(record_.With(files), jobs);
            if (component_.mustGenerateTypes())
                CreateFolder(component_.typeFilesDirectory());
            if (wishes_.guard)
                wishes_.guard(files);
        });
        component_.Generate();
        record_.Finish(component_.WrittenFiles());
    }

    void Explain(Error& error) const {
        ExplainError(component_, error);
        error = PlacedInJobs(component_, set_, error);
    }

    void Tell(bool isWhole, RunReport& report) {
        report.kept = record_.Kept();
        for (const std::string& file : component_.WrittenFiles())
            if (std::find(report.kept.begin(), report.kept.end(), file) == report.kept.end())
                report.written.push_back(file);
        std::vector<Finding> all = warnings_.TakeAll();
        PlaceInJobs(component_, set_, all);
        report.warnings = Judge(
            std::move(all), {.inputs = InputsOf(component_, settings_), .isWhole = isWhole && wishes_.warns});
    }

  private:
    const std::vector<Setting>& settings_;
    const GenerateWishes& wishes_;
    BuildRecord record_;
    const CErrorHandler errorHandler_;
    Tovarek component_;
    FindingList warnings_;
    std::vector<SetProperty> set_;
};

}  // namespace

int RunGenerate(const std::vector<Setting>& settings, const GenerateWishes& wishes, OutputFormat format,
                Streams streams) {
    RunReport report{.format = format, .streams = streams};
    Generation generation(settings, wishes);
    try {
        generation.Run();
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (Error& error) {
        generation.Explain(error);
        generation.Tell(false, report);
        return ReportFailedRun(error, report);
    }
    generation.Tell(true, report);
    return ReportRun(report);
}

}  // namespace tovarek
