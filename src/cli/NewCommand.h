// tovarek new: a folder with all inputs of a device to start from.
#pragma once

#include <string>
#include <vector>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct NewOptions {
    std::string folder;
    std::string like;               // the starter's name
    std::string from;               // an XIF file that the profile comes from
    bool isAll = false;             // and the template, with the types of resource files beside it
    std::vector<std::string> sets;  // FIELD=VALUE for a profile of a later version
    std::string form;               // "ini" or "xml"
    CatalogPlace place;
};

// Says what tovarek convert says. Where something fails, nothing is left of the folder.
int RunNew(const NewOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
