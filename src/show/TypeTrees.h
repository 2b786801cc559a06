// Types of a resource set as trees for people.
#pragma once

#include <vector>

#include "control/ResourceNames.h"
#include "formats/type/TypeFile.h"
#include "show/View.h"

namespace tovarek {

// Appends a tree for each network-variable type and property type of the file, in the order of their numbers.
// The values of an enumeration stand where it is met first.
void AddTypeTrees(const TypeFile& file, const ResourceNames& names, std::vector<ViewType>& trees);

}  // namespace tovarek
