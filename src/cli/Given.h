// What the command line gives to a verb.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct GivenOption {
    std::string name;  // "--bytes", or the word of an operand: "FILE"
    std::string value;
};

struct Given {
    OutputFormat format = OutputFormat::text;
    std::vector<GivenOption> options{};  // in the order in which they stand

    bool Has(std::string_view name) const;

    // The value that was given last; `standard` without one.
    std::string Text(std::string_view name, std::string_view standard = {}) const;

    // All of its values.
    std::vector<std::string> All(std::string_view name) const;

    // --catalogDir and --catalogFile.
    CatalogPlace Catalog() const;
};

}  // namespace tovarek
