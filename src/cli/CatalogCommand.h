// tovarek catalog: what a standard type catalog knows.
#pragma once

#include <string>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

// All types: kind (NV or CP), index, size in bytes, name.
int RunCatalogList(const CatalogPlace& place, OutputFormat format, Streams streams);

// All that is known of the type `name`, e.g. "SNVT_temp_p".
int RunCatalogShow(const CatalogPlace& place, const std::string& name, OutputFormat format, Streams streams);

}  // namespace tovarek
