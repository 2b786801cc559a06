// tovarek show: a device as people look at it.
#pragma once

#include <string>
#include <vector>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct ShowOptions {
    std::vector<std::string> inputs;
    std::string form = "text";
    CatalogPlace place;
};

// Writes the device in the form that is asked for; in JSON that is one text of it. Answers kWrongUse for
// inputs that are no device and for a form that there is not.
int RunShow(const ShowOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
