// The interface file that a generation would write, read back.
#pragma once

#include <string>

#include "formats/xif/XifFile.h"
#include "profile/ProfileValues.h"
#include "template/CTemplate.h"

namespace tovarek {

// Checks the template with `catalog` and completes it as a generation does. Raises the first fault of its
// checks, and a file error when its texts make a file that nobody can read. `path` is for messages: where the
// template is from.
XifFile GeneratedInterface(CTemplate device, const ProfileValues& profile, bool addsNames, CCatalog& catalog,
                           const std::string& path);

}  // namespace tovarek
