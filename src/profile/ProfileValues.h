// The values of a device profile, by line of the XIF header, under the names of the interface.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tovarek {

struct ProfileValues {
#define TOVAREK_PROFILE_FIELD(name, iniKey, line, token, meaning) std::int32_t name = 0;
#include "profile/ProfileList.inc"
#undef TOVAREK_PROFILE_FIELD
};

inline constexpr std::size_t kProfileValueCount = sizeof(ProfileValues) / sizeof(std::int32_t);

}  // namespace tovarek
