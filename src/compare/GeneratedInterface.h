// What a generation would write, read back: the interface file and the types.
#pragma once

#include <string>
#include <vector>

#include "control/OwnTypes.h"
#include "formats/xif/XifFile.h"
#include "profile/ProfileValues.h"
#include "template/CTemplate.h"

namespace tovarek {

// Checks the template with `catalog` and completes it as a generation does. Raises the first fault of its
// checks, and a file error when its texts make a file that nobody can read. `path` is for messages: where the
// template is from.
XifFile GeneratedInterface(CTemplate device, const ProfileValues& profile, bool addsNames, CCatalog& catalog,
                           const std::string& path);

// What a generation takes its types from.
struct GeneratedTypesInput {
    std::string formatFile;
    std::string userTypeFilePath;
    std::string prefix;
    bool takesUnits = true;
};

// The types of the resource files that a generation would write, one set a scope. Raises the first fault of
// the template's checks and of the types.
std::vector<OwnTypes> GeneratedTypes(CTemplate device, const GeneratedTypesInput& input, CCatalog& catalog);

}  // namespace tovarek
