// What of the type inputs is read otherwise than it was written: what both files have in common.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "control/StandardCatalog.h"
#include "support/Edit.h"

namespace tovarek {

// What to write in place of a word where the number of a type is read: "SNVT_temp is 39: write 39". Empty
// when no type is meant. Type elements are called `prefix` and a number; `catalog` may be null.
Advice MendTypeNumber(const StandardCatalog* catalog, std::string_view prefix, std::string_view typed);

}  // namespace tovarek
