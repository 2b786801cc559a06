// A device's interface as one model, wherever it was read: an XIF file, a profile, a template.
#pragma once

#include <string>
#include <vector>

#include "profile/ProfileValues.h"
#include "template/CTemplate.h"

namespace tovarek {

// Something of an input that an output does not hold.
struct Loss {
    std::string record;  // "network variable 3 (nviTemp)", "line 6"
    std::string field;
    std::string value;  // as the input has it
    std::string reason;
    // False for what nobody misses in an input of this system: it is told, and that is all.
    bool counts = true;
};

struct DeviceInterface {
    bool hasProfile = false;
    bool hasTemplate = false;
    ProfileValues profile;
    CTemplate device;  // as a loader leaves it: nothing is completed
    // The declarations of an XIF file carried the names of all properties: generating has to add them again.
    bool addsNames = false;
    std::vector<Loss> losses;
};

}  // namespace tovarek
