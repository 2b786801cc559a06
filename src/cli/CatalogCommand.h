// tovarek catalog: what a standard type catalog knows.
#pragma once

#include <string>

#include "cli/Report.h"

namespace tovarek {

// Where the catalog is; empty members stand for the shipped one and its usual name.
struct CatalogPlace {
    std::string folder;
    std::string file;
};

// All types: kind (NV or CP), index, size in bytes, name.
int RunCatalogList(const CatalogPlace& place, OutputFormat format, Streams streams);

// All that is known of the type `name`, e.g. "SNVT_temp_p".
int RunCatalogShow(const CatalogPlace& place, const std::string& name, OutputFormat format, Streams streams);

}  // namespace tovarek
