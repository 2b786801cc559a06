// Keeps a generation from writing over what it reads, and two outputs from writing over each other.
#pragma once

#include <string>
#include <vector>

#include "component/JobFiles.h"

namespace tovarek {

// Throws WrongUse when an output is the same file as an input, one of the job files `jobs` included, or as
// another output. An XIF profile may be its own output.
void RefuseOverwriting(const JobFiles& files, const std::vector<std::string>& jobs);

}  // namespace tovarek
