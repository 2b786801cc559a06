// The checks of a device profile, in their order.
#pragma once

#include <cstdint>
#include <span>

#include "base/Error.h"
#include "profile/ProfileValues.h"

namespace tovarek {

struct ProfileRule {
    std::int32_t ProfileValues::*field;  // the value that the error's context shows
    bool (*accepts)(const ProfileValues& profile);
    eErrors error;
    const char* accepted;  // for people: what would have been accepted
};

// All checks, in the order in which they are made; the first that does not accept is the fault.
std::span<const ProfileRule> ProfileRules();

}  // namespace tovarek
