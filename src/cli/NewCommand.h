// tovarek new: a folder with all inputs of a device to start from.
#pragma once

#include <string>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct NewOptions {
    std::string folder;
    std::string like;  // the starter's name
    std::string form;  // "ini" or "xml"
    CatalogPlace place;
};

// Text: what was written, one line a file. JSON: an object of `written`. Where something fails, nothing is
// left of the folder.
int RunNew(const NewOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
