// Profiles of later versions of the format, made into ones that version 4.0 accepts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "profile/ProfileFields.h"

namespace tovarek {

// A value that the user gives a field.
struct FieldValue {
    const ProfileField* field;
    std::int32_t value;
};

struct Replacement {
    const ProfileField* field;
    std::int32_t old;
    std::int32_t now;
    std::string why;
};

// A value that no row of the table knows how to replace.
struct Unfit {
    const ProfileField* field;
    std::int32_t value;
    std::string_view accepted;
};

struct Fitting {
    std::vector<Replacement> replaced;
    std::vector<Unfit> unfit;  // empty: the profile passes its checks
};

// The field of this INI key, in any letter case; null when there is none.
const ProfileField* FieldNamed(std::string_view iniKey);

// Gives `profile` the values of `given`, then replaces what its checks refuse. What a number means, such as a
// chip, is never replaced by the nearest one that passes: without a row it stays, and is answered as unfit.
Fitting FitProfile(ProfileValues& profile, const std::vector<FieldValue>& given);

}  // namespace tovarek
