// How the component gets the properties of a job: from the command line, job files and the environment.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "cli/Assignments.h"
#include "component/Tovarek.h"
#include "support/Findings.h"

namespace tovarek {

// One option of the command line that sets properties.
struct Setting {
    enum class Kind { property, pair, job };
    Kind kind;
    std::string name;   // of the property, for Kind::property
    std::string value;  // its value, "NAME=VALUE", or the path of the job file
};

// Sets the properties in order, and the clock when SOURCE_DATE_EPOCH fixes it; answers what was set. Throws
// WrongUse for what is no property or no value of it. What setters raise is told to `findings`, and so is a
// source that another one overrules at once.
std::vector<SetProperty> SetUp(Tovarek& component, const std::vector<Setting>& settings,
                               FindingSink& findings);

// Places the findings about properties in the job files that have set them, and errors about a file or folder
// that is not there at the key that names it.
void PlaceInJobs(const Tovarek& component, const std::vector<SetProperty>& set,
                 std::vector<Finding>& findings);
// The error of a generation, placed likewise.
Error PlacedInJobs(const Tovarek& component, const std::vector<SetProperty>& set, const Error& error);

// Opens the usual catalog where the user has set neither of the catalog's properties, or takes `shared`,
// which is that catalog already open; null for none. One that is set counts, even if no catalog is found with
// it.
void UseUsualCatalog(Tovarek& component, std::shared_ptr<const StandardCatalog> shared);

// Adds what helps where the program knows more than the component.
void ExplainError(const Tovarek& component, Error& error);
void ExplainErrors(const Tovarek& component, std::vector<Finding>& findings);

// What people write for a job, as far as it is read; the catalog comes with the program.
std::vector<std::string> InputsOf(const Tovarek& component, const std::vector<Setting>& settings);

// The job files among the settings.
std::vector<std::string> JobsOf(const std::vector<Setting>& settings);

}  // namespace tovarek
