// What the numbers of a template's fields mean, and the words that people write in their place.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/Edit.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {

// A field as a table has it; `xmlName` is empty when the template has INI form.
struct FieldName {
    std::string_view iniKey;
    std::string_view xmlName;
};

// What is told of a value that is no number: what `read` means, and what to write. `catalog`, which may be
// null, knows the names of standard types.
Advice ExplainNumber(const CCatalog* catalog, const FieldName& field, std::string_view typed,
                     std::int32_t read);

// INPUT or OUTPUT for a text that is neither and means one of them; empty for any other.
std::string_view DirectionMeant(std::string_view typed);

}  // namespace tovarek
