// tovarek generate: sets the properties in the order of the command line and generates.
#pragma once

#include <vector>

#include "cli/JobSetup.h"
#include "cli/Report.h"

namespace tovarek {

// Answers the exit status. Without a catalog property the shipped catalog is used. SOURCE_DATE_EPOCH fixes
// the clock. `warns`: what is read otherwise than it was written is told as well.
int RunGenerate(const std::vector<Setting>& settings, bool warns, OutputFormat format, Streams streams);

}  // namespace tovarek
