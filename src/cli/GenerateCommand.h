// tovarek generate: sets the properties in the order of the command line and generates.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cli/Report.h"

namespace tovarek {

// One option of the command line that sets properties.
struct Setting {
    enum class Kind { property, pair, job };
    Kind kind;
    std::string name;   // of the property, for Kind::property
    std::string value;  // its value, "NAME=VALUE", or the path of the job file
};

// Answers the exit status. Without a catalog property the shipped catalog is used. SOURCE_DATE_EPOCH fixes
// the clock.
int RunGenerate(const std::vector<Setting>& settings, OutputFormat format, Streams streams);

}  // namespace tovarek
