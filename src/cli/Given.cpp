#include "cli/Given.h"

namespace tovarek {

bool Given::Has(std::string_view name) const {
    return !All(name).empty();
}

std::string Given::Text(std::string_view name, std::string_view standard) const {
    const std::vector<std::string> all = All(name);
    return all.empty() ? std::string(standard) : all.back();
}

std::vector<std::string> Given::All(std::string_view name) const {
    std::vector<std::string> values;
    for (const GivenOption& option : options)
        if (option.name == name)
            values.push_back(option.value);
    return values;
}

CatalogPlace Given::Catalog() const {
    return {Text("--catalogDir"), Text("--catalogFile")};
}

}  // namespace tovarek
