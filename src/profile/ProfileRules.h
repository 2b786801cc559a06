// The checks of a device profile, in their order.
#pragma once

#include <cstdint>
#include <span>

#include "base/Error.h"
#include "profile/ProfileValues.h"

namespace tovarek {

struct ProfileRule {
    std::int32_t ProfileValues::*field;
    bool (*accepts)(const ProfileValues& profile);
    eErrors error;
    const char* accepted;                               // for people: what would have been accepted
    std::int32_t ProfileValues::*upperBound = nullptr;  // of another field, where its upper bound is checked
};

// All checks, in the order in which they are made; the first that does not accept is the fault.
std::span<const ProfileRule> ProfileRules();

// The field that a rule refuses in `profile`; the error's context shows it.
std::int32_t ProfileValues::*FaultyField(const ProfileRule& rule, const ProfileValues& profile);

}  // namespace tovarek
