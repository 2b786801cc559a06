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
    std::vector<std::string> names;
    for (const CatalogEntry& entry : catalog->NvTypes())
        names.push_back(entry.name);
    const std::string name = Nearest(typed, names);
    if (name.empty())
        return {};
    const std::string number = std::to_string(catalog->NvIndex(name));
    return name + " is " + number + ": write " + number;
}

}  // namespace tovarek
