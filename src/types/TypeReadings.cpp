#include "types/TypeReadings.h"

#include <vector>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace tovarek {

std::string MendTypeNumber(const StandardCatalog* catalog, std::string_view prefix, std::string_view typed) {
    if (typed.empty())
        return {};
    const std::string upper = UpperCase(typed);
    if (upper.starts_with(UpperCase(prefix)) && IsNumber(upper.substr(prefix.size())))
        return "write " + upper.substr(prefix.size());
    if (catalog == nullptr)
        return {};
    const CatalogEntry type = catalog->NearestNv(typed);
    const std::string number = std::to_string(type.index);
    return type.name.empty() ? type.name : type.name + " is " + number + ": write " + number;
}

}  // namespace tovarek
