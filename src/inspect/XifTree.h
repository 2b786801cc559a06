// Device-interface files as trees.
#pragma once

#include "control/ResourceNames.h"
#include "formats/xif/XifFile.h"
#include "inspect/InspectNode.h"

namespace tovarek {

InspectNode XifTree(const XifFile& file, const ResourceNames& names);

}  // namespace tovarek
