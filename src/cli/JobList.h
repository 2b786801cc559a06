// The jobs of a batch.
#pragma once

#include <string>
#include <vector>

namespace tovarek {

// The job files that `words` name: JOB, or @LIST for a file with one on each line. Throws WrongUse for a list
// that cannot be read, and for none at all.
std::vector<std::string> AllJobs(const std::vector<std::string>& words);

}  // namespace tovarek
