// tovarek diff --interface: may the new interface ship under the old program ID?
#pragma once

#include <string>

#include "cli/InterfaceInput.h"
#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct InterfaceDiffOptions {
    // XIF files, templates or jobs; with `known` an empty one before is looked for there.
    InterfaceWords before;
    InterfaceWords after;
    std::string known;  // folder of the interfaces that were released; may be empty
    CatalogPlace place;
};

// One line for each change, breaking ones first, and the verdict. Answers kDone, kDifferent for breaking
// changes under the same program ID, kWrongUse when an interface cannot be read.
int RunInterfaceDiff(const InterfaceDiffOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
