// The inputs of tovarek show, read.
#pragma once

#include <string>
#include <vector>

#include "cli/OpenCatalog.h"
#include "show/MakeView.h"

namespace tovarek {

// `words` are an XIF file, a job, or a template (.ini, .xml, FILE#ELEMENT) and its profile, and files of the
// sets of the device's own types, one a scope. Without such those count that lie beside an XIF file and have
// its program ID, and those that a job would generate. `catalog` is that of `place`. Throws WrongUse for what
// is none of these, and raises what reading and generating raises.
ShownDevice ReadShownDevice(const std::vector<std::string>& words, const CatalogPlace& place,
                            CCatalog& catalog);

}  // namespace tovarek
