#include "cli/JobList.h"

#include <string_view>

#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/Locations.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// Each line of a list names a job as it counts from the list's folder; empty lines and those behind '#' do
// not.
void AddListed(const std::string& list, std::vector<std::string>& jobs) {
    std::string bytes;
    try {
        bytes = ReadFile(list);
    } catch (const Error& error) {
        throw WrongUse("list of jobs '" + Excerpt(list) + "': " + error.Context().reason);
    }
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::string_view line = Trim(TakeLine(rest));
        if (!line.empty() && !line.starts_with('#'))
            jobs.push_back(BesideFile(list, std::string(line)));
    }
}

}  // namespace

std::vector<std::string> AllJobs(const std::vector<std::string>& words) {
    std::vector<std::string> jobs;
    for (const std::string& word : words) {
        if (word.starts_with('@'))
            AddListed(word.substr(1), jobs);
        else
            jobs.push_back(word);
    }
    if (jobs.empty())
        throw WrongUse("batch needs job files: JOB..., or @LIST with one on each line");
    return jobs;
}

}  // namespace tovarek
