// Device-interface files as trees.
#pragma once

#include "inspect/InspectNode.h"
#include "inspect/ResourceNames.h"
#include "inspect/XifFile.h"

namespace tovarek {

InspectNode XifTree(const XifFile& file, const ResourceNames& names);

}  // namespace tovarek
