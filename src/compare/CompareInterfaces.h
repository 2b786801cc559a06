// Two interfaces of a device: what changed, and whether the new one may ship under the old program ID.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "compare/InterfaceChange.h"
#include "control/OwnTypes.h"
#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"

namespace tovarek {

struct ComparedInterface {
    XifFile file;
    bool isFile = true;             // false: made from inputs, so that nothing tells of a file
    bool hasParameters = true;      // false: nothing gives lines 6 to 10
    std::vector<OwnTypes> types{};  // of its resource files, one set a scope
};

enum class InterfaceVerdict { equal, harmless, breakingUnderNewId, breakingUnderSameId };

struct InterfaceComparison {
    std::vector<InterfaceChange> changes;  // breaking ones first
    std::string programIdBefore;
    std::string programIdAfter;
    // Of types of the device's own an interface file tells the length alone: the others were missed.
    OwnTypeCount ownTypesOfVariables;
    OwnTypeCount ownTypesOfProperties;

    InterfaceVerdict Verdict() const;
};

// `catalog` tells what types and values are and may be null, `texts` which texts of it other sets refer to.
InterfaceComparison CompareInterfaces(const ComparedInterface& before, const ComparedInterface& after,
                                      const StandardCatalog* catalog, StandardTexts texts);

// "equal", "harmless", "breaking under a new program ID", "breaking under the same program ID".
std::string_view VerdictName(InterfaceVerdict verdict);

}  // namespace tovarek
