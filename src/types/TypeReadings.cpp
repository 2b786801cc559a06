#include "types/TypeReadings.h"

#include <vector>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace tovarek {

Advice MendTypeNumber(const StandardCatalog* catalog, std::string_view prefix, std::string_view typed) {
    if (typed.empty())
        return {};
    const std::string upper = UpperCase(typed);
    if (upper.starts_with(UpperCase(prefix)) && IsNumber(upper.substr(prefix.size())))
        return {"write " + upper.substr(prefix.size()), upper.substr(prefix.size())};
    if (catalog == nullptr)
        return {};
    const CatalogEntry type = catalog->NearestNv(typed);
    const std::string number = std::to_string(type.index);
    if (type.name.empty())
        return {};
    // Of a misspelt name another type may be meant.
    return {type.name + " is " + number + ": write " + number,
            UpperCase(type.name) == upper ? number : std::string()};
}

}  // namespace tovarek
