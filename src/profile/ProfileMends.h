// What people write in place of the numbers of a profile, and which numbers they mean.
#pragma once

#include <string>
#include <string_view>

#include "profile/ProfileFields.h"
#include "support/Edit.h"

namespace tovarek {

// What to write for `typed`, which is no number of the field: "write firmware=7"; `isXml` tells the form.
// Where that is not known, what the field takes; empty when it takes everything.
Advice MendOfProfile(const ProfileField& field, std::string_view typed, bool isXml);

}  // namespace tovarek
