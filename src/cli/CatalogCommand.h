// tovarek catalog: what a standard type catalog knows.
#pragma once

#include <string>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

// All types: kind (NV or CP), index, size in bytes, name. Text tells in the end where they are from.
int RunCatalogList(const CatalogPlace& place, OutputFormat format, Streams streams);

// All that is known of the type that `word` names (see TypesNamed): "SNVT_temp_p", "temp_p", "105". A number
// may be that of a type of each class; both are shown.
int RunCatalogShow(const CatalogPlace& place, const std::string& word, OutputFormat format, Streams streams);

// The types whose name, unit or text holds `word`: as the list, and unit and range.
int RunCatalogFind(const CatalogPlace& place, const std::string& word, OutputFormat format, Streams streams);

}  // namespace tovarek
