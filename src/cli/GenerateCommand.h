// tovarek generate: sets the properties in the order of the command line and generates.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "cli/BuildRecord.h"
#include "cli/JobSetup.h"
#include "cli/Report.h"

namespace tovarek {

struct GenerateWishes {
    BuildWishes build;
    // Looked up where no property names a catalog: the shipped one, open already. Null: it is opened.
    std::shared_ptr<const StandardCatalog> catalog{};
    // Sees the files of the run when their folders are there and nothing is written; what it throws ends it.
    std::function<void(const JobFiles&)> guard{};
    bool warns = true;  // what is read otherwise than it was written is told as well
};

// Answers the exit status. Without a catalog property the shipped catalog is used. SOURCE_DATE_EPOCH fixes
// the clock.
int RunGenerate(const std::vector<Setting>& settings, const GenerateWishes& wishes, OutputFormat format,
                Streams streams);

}  // namespace tovarek
