#include "cli/JobSetup.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "base/Numbers.h"
#include "base/Path.h"
#include "cli/Assignments.h"
#include "cli/Locations.h"
#include "cli/OpenCatalog.h"
#include "system/Clock.h"
#include "system/Files.h"

namespace tovarek {
namespace {

std::vector<SetProperty> Apply(Tovarek& component, const Setting& setting, FindingSink& findings) {
    std::vector<SetProperty> set;
    switch (setting.kind) {
        case Setting::Kind::property:
            TellingErrors(findings, [&] { set = {AssignText(component, setting.name, setting.value)}; });
            break;
        case Setting::Kind::pair:
            TellingErrors(findings, [&] { set = {AssignPair(component, setting.value)}; });
            break;
        case Setting::Kind::job:
            set = AssignJob(component, setting.value, findings);
            break;
    }
    return set;
}

// Of the sources in a row only the last one that is set counts.
constexpr std::array<std::string_view, 4> kSources[] = {
    {"iniProfileFile", "xmlProfileFile", "xifProfileFile", ""},
    {"iniTemplateFile", "xmlTemplateFile", "xmlTemplateNode", ""},
};

// Two sources at one place, in a job or on the command line, are hardly meant; a command line that overrules
// a job is.
void TellOverruled(const std::vector<SetProperty>& set, FindingSink& findings) {
    for (const auto& sources : kSources) {
        const SetProperty* earlier = nullptr;
        for (const SetProperty& property : set) {
            if (property.isEmpty || std::find(sources.begin(), sources.end(), property.name) == sources.end())
                continue;
            if (earlier != nullptr && earlier->job == property.job && earlier->name != property.name)
                findings.Take({.context = {.record = "property " + earlier->name,
                                           .field = earlier->name,
                                           .file = earlier->job,
                                           .line = earlier->line,
                                           .reason = earlier->name + " is not read: " + property.name +
                                                     " behind it takes its place; give one of them"},
                               .warning = Warning::overruledSource,
                               .part = LinePart::name});
            earlier = &property;
        }
    }
}

// Whether the property names what the error is about: a file that is not there, or its missing folder.
bool NamesMissing(const Tovarek& component, const SetProperty& property, const std::string& file) {
    const Property* const row = FindProperty(property.name);
    if (row == nullptr || row->kind != PropertyKind::string)
        return false;
    const std::string value = SystemPath(std::get<std::string>(row->get(component)));
    return value == file || (!value.empty() && !FolderExists(value) && file.starts_with(value) &&
                             SystemPath(WithFinalBackslash(value)) == FolderOf(file));
}

// The property of a job that the finding is about; null for none. The last one that sets it counts, and may
// stand in no job.
const SetProperty* PropertyInJob(const Tovarek& component, const std::vector<SetProperty>& set,
                                 const Finding& finding) {
    const ErrorContext& context = finding.context;
    if (context.line > 0)
        return nullptr;
    const std::string file = SystemPath(context.file);
    const bool isMissing = !file.empty() && finding.warning == Warning::none && !FileExists(file);
    const auto property = std::find_if(set.rbegin(), set.rend(), [&](const SetProperty& other) {
        return other.name == context.field ||
               (isMissing && (NamesMissing(component, other, file) ||
                              context.reason.find(other.name + " is empty") != std::string::npos));
    });
    return property == set.rend() || property->line == 0 ? nullptr : &*property;
}

void PlaceInJob(const Tovarek& component, const std::vector<SetProperty>& set, Finding& finding) {
    const SetProperty* const property = PropertyInJob(component, set, finding);
    if (property == nullptr)
        return;
    ErrorContext& context = finding.context;
    if (context.value.empty())
        context.value = context.file;
    context.field = property->name;
    context.file = property->job;
    context.line = property->line;
    finding.part = LinePart::name;
    // An error at the key tells the same.
    finding.causeLine = finding.warning == Warning::none ? 0 : property->line;
}

// Builds that are to be reproduced name their date in seconds since 1970.
void TakeClockFromEnvironment(Tovarek& component) {
    const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr || *variable == '\0')
        return;
    const std::string_view text = variable;
    const auto seconds = ExactNumber<std::int64_t>(text);
    if (!seconds || *seconds < 0 || *seconds > kEndOf9999)
        throw WrongUse("SOURCE_DATE_EPOCH is '" + std::string(text) +
                       "'; give whole seconds since 1970, up to the year 9999, or unset it");
    component.SetClock(FixedClock(*seconds));
}

bool TakesUsualCatalog(const Tovarek& component) {
    return component.catalogDir().empty() && component.catalogFile() == kUsualCatalogFile;
}

// Where the types of the job are looked up; empty when no catalog is open.
std::string SetInUse(const Tovarek& component) {
    for (const JobFile& file : component.Files().inputs)
        if (file.role == "catalog")
            return SetFrom(file.path);
    return TakesUsualCatalog(component) ? SetFrom("") : "";
}

}  // namespace

std::vector<SetProperty> SetUp(Tovarek& component, const std::vector<Setting>& settings,
                               FindingSink& findings) {
    TakeClockFromEnvironment(component);
    std::vector<SetProperty> all;
    for (const Setting& setting : settings)
        for (SetProperty& property : Apply(component, setting, findings))
            all.push_back(std::move(property));
    if (findings.WantsWarnings())
        TellOverruled(all, findings);
    return all;
}

void PlaceInJobs(const Tovarek& component, const std::vector<SetProperty>& set,
                 std::vector<Finding>& findings) {
    for (Finding& finding : findings)
        PlaceInJob(component, set, finding);
}

Error PlacedInJobs(const Tovarek& component, const std::vector<SetProperty>& set, const Error& error) {
    Finding finding{.error = error.Number(), .context = error.Context()};
    PlaceInJob(component, set, finding);
    return {error.Number(), error.Description(), std::move(finding.context)};
}

void UseUsualCatalog(Tovarek& component, std::shared_ptr<const StandardCatalog> shared) {
    if (!TakesUsualCatalog(component))
        return;
    if (shared == nullptr)
        shared = OpenUsualCatalog();
    if (shared != nullptr)
        component.UseCatalog(std::move(shared));
    else
        component.catalogDir(UsualCatalogFolder());
}

void ExplainError(const Tovarek& component, Error& error) {
    if (error.Number() == eQVXIFerr_unknowntype)
        if (const std::string set = SetInUse(component); !set.empty())
            error.AddReason("looked up in the " + set);
    const std::string note = VariableNote();
    if (error.Number() == eQVXIFerr_erroraccessingSNVTmasterlist && !note.empty() &&
        component.catalogDir() == UsualCatalogFolder())
        error.AddReason(note);
}

void ExplainErrors(const Tovarek& component, std::vector<Finding>& findings) {
    for (Finding& finding : findings) {
        if (finding.warning != Warning::none)
            continue;
        Error error(finding.error, {}, std::move(finding.context));
        ExplainError(component, error);
        finding.context = error.Context();
    }
}

std::vector<std::string> JobsOf(const std::vector<Setting>& settings) {
    std::vector<std::string> jobs;
    for (const Setting& setting : settings)
        if (setting.kind == Setting::Kind::job)
            jobs.push_back(setting.value);
    return jobs;
}

std::vector<std::string> InputsOf(const Tovarek& component, const std::vector<Setting>& settings) {
    std::vector<std::string> inputs = JobsOf(settings);
    for (const JobFile& file : component.Files().inputs) {
        const bool isOfTypes = file.role == "typeFilesXMLFormat" || file.role == "user type file";
        if (file.role != "catalog" && (!isOfTypes || component.mustGenerateTypes()))
            inputs.push_back(file.path);
    }
    return inputs;
}

}  // namespace tovarek
