// What the generator's inputs say of the types that resource files hold.
#pragma once

#include <string>
#include <vector>

#include "control/ResourceNames.h"
#include "convert/DeviceInterface.h"
#include "convert/ResourceSetInput.h"

namespace tovarek {

// The whole text of a reference of the set; empty where neither the set nor the catalog knows it.
std::string TextIn(const ResourceSetInput& set, const ResourceNames& names, const StringRef& string);

// The definitions and types of all sets, which are of different scopes. A type refers to another one of its
// set by the content of that: inputs know references to standard types alone. What they cannot describe at
// all becomes plain bytes of the same number. `catalog` may be null.
TypeInputs TypesOfSets(const std::vector<ResourceSetInput>& sets, const StandardCatalog* catalog,
                       StandardTexts texts);

}  // namespace tovarek
