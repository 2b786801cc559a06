// tovarek generate: sets the properties in the order of the command line and generates.
#pragma once

#include <vector>

#include "cli/BuildRecord.h"
#include "cli/JobSetup.h"
#include "cli/Report.h"

namespace tovarek {

struct GenerateWishes {
    BuildWishes build;
    bool warns = true;  // what is read otherwise than it was written is told as well
};

// Answers the exit status. Without a catalog property the shipped catalog is used. SOURCE_DATE_EPOCH fixes
// the clock.
int RunGenerate(const std::vector<Setting>& settings, const GenerateWishes& wishes, OutputFormat format,
                Streams streams);

}  // namespace tovarek
