#include "cli/GenerateCommand.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

#include "cli/Assignments.h"
#include "cli/Locations.h"
#include "cli/OpenCatalog.h"
#include "cli/OutputGuard.h"
#include "component/Tovarek.h"
#include "system/Clock.h"
#include "system/Files.h"

namespace tovarek {
namespace {

void Apply(Tovarek& component, const Setting& setting) {
    switch (setting.kind) {
        case Setting::Kind::property:
            AssignText(component, setting.name, setting.value);
            break;
        case Setting::Kind::pair:
            AssignPair(component, setting.value);
            break;
        case Setting::Kind::job:
            AssignJob(component, setting.value);
            break;
    }
}

// Builds that are to be reproduced name their date in seconds since 1970.
void TakeClockFromEnvironment(Tovarek& component) {
    const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr || *variable == '\0')
        return;
    const std::string_view text = variable;
    std::int64_t seconds = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size() || seconds < 0 ||
        seconds > kEndOf9999)
        throw WrongUse("SOURCE_DATE_EPOCH is '" + std::string(text) +
                       "'; give whole seconds since 1970, up to the year 9999, or unset it");
    component.SetClock(FixedClock(seconds));
}

// A catalog property that was set, even in vain, is the user's word; only without one the shipped catalog
// stands in.
void UseShippedCatalog(Tovarek& component) {
    if (!component.catalogDir().empty() || component.catalogFile() != kUsualCatalogFile)
        return;
    if (const std::string folder = ShippedCatalogFolder(); !folder.empty())
        component.catalogDir(folder);
}

// A standard type that nobody can know.
bool LacksCatalog(const Tovarek& component, const Error& error) {
    return error.Number() == eQVXIFerr_unknowntype && component.catalogDir().empty() &&
           component.catalogFile() == kUsualCatalogFile;
}

// The last level of a folder. When that fails, the first file that is written there tells.
void CreateFolder(std::string folder) {
    while (!folder.empty() && (folder.back() == '/' || folder.back() == '\\'))
        folder.pop_back();
    if (!folder.empty())
        MakeDirectory(folder);
}

}  // namespace

int RunGenerate(const std::vector<Setting>& settings, OutputFormat format, Streams streams) {
    Tovarek component;
    try {
        TakeClockFromEnvironment(component);
        for (const Setting& setting : settings)
            Apply(component, setting);
        UseShippedCatalog(component);
        std::vector<std::string> jobs;
        for (const Setting& setting : settings)
            if (setting.kind == Setting::Kind::job)
                jobs.push_back(setting.value);
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
        if (LacksCatalog(component, error))
            error.AddReason(NoShippedCatalog());
        return ReportError(error, format, streams, &component.WrittenFiles());
    }
    return ReportWritten(component.WrittenFiles(), format, streams);
}

}  // namespace tovarek
