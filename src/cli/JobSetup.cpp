#include "cli/JobSetup.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

#include "cli/Assignments.h"
#include "cli/Locations.h"
#include "cli/OpenCatalog.h"
#include "system/Clock.h"

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

// A standard type that nobody can know.
bool LacksCatalog(const Tovarek& component, const Error& error) {
    return error.Number() == eQVXIFerr_unknowntype && component.catalogDir().empty() &&
           component.catalogFile() == kUsualCatalogFile;
}

}  // namespace

void SetUp(Tovarek& component, const std::vector<Setting>& settings) {
    TakeClockFromEnvironment(component);
    for (const Setting& setting : settings)
        Apply(component, setting);
}

void UseShippedCatalog(Tovarek& component) {
    if (!component.catalogDir().empty() || component.catalogFile() != kUsualCatalogFile)
        return;
    if (const std::string folder = ShippedCatalogFolder(); !folder.empty())
        component.catalogDir(folder);
}

void ExplainError(const Tovarek& component, Error& error) {
    if (LacksCatalog(component, error))
        error.AddReason(NoShippedCatalog());
}

std::vector<std::string> JobsOf(const std::vector<Setting>& settings) {
    std::vector<std::string> jobs;
    for (const Setting& setting : settings)
        if (setting.kind == Setting::Kind::job)
            jobs.push_back(setting.value);
    return jobs;
}

}  // namespace tovarek
