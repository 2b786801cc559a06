// The view of a device, made from its interface.
#pragma once

#include <string>
#include <vector>

#include "control/OwnTypes.h"
#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"
#include "show/View.h"

namespace tovarek {

struct ShownDevice {
    std::string title;  // what it is called, for example by its file
    XifFile file;
    std::vector<OwnTypes> own;  // sets of different scopes
    bool hasParameters = true;  // false: nothing gives lines 6 to 10
    // The own types were made with the catalog, so that they mean all of its texts.
    bool areTypesGenerated = false;
};

// `catalog` may be null; `texts` tells which of its texts other sets mean.
View MakeView(const ShownDevice& device, const StandardCatalog* catalog, StandardTexts texts);

}  // namespace tovarek
