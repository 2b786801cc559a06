// Two interfaces of a device: what changed, and whether the new one may ship under the old program ID.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "compare/InterfaceChange.h"
#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"

namespace tovarek {

struct ComparedInterface {
    XifFile file;
    bool isFile = true;         // false: made from inputs, so that nothing tells of a file
    bool hasParameters = true;  // false: nothing gives lines 6 to 10
};

enum class InterfaceVerdict { equal, harmless, breakingUnderNewId, breakingUnderSameId };

struct InterfaceComparison {
    std::vector<InterfaceChange> changes;  // breaking ones first
    std::string programIdBefore;
    std::string programIdAfter;
    // True when one of the two has types of its own, of which an interface file tells the length alone.
    bool hasOwnTypes = false;

    InterfaceVerdict Verdict() const;
};

// `names` tells what types and values are.
InterfaceComparison CompareInterfaces(const ComparedInterface& before, const ComparedInterface& after,
                                      const ResourceNames& names);

// "equal", "harmless", "breaking under a new program ID", "breaking under the same program ID".
std::string_view VerdictName(InterfaceVerdict verdict);

}  // namespace tovarek
