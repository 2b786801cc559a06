// Device-interface files as trees.
#pragma once

#include "formats/xif/XifFile.h"
#include "inspect/InspectNode.h"
#include "inspect/ResourceNames.h"

namespace tovarek {

InspectNode XifTree(const XifFile& file, const ResourceNames& names);

}  // namespace tovarek
