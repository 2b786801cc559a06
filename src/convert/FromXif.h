// The interface that an XIF file of any version describes.
#pragma once

#include <string_view>

#include "control/StandardCatalog.h"
#include "convert/DeviceInterface.h"
#include "formats/xif/XifFile.h"

namespace tovarek {

// What profile and template have no place for is listed among the losses. Standard types that `catalog` lacks
// become types of the device's own, since nothing could be generated with them.
DeviceInterface InterfaceOfXif(const XifFile& file, const StandardCatalog& catalog);

}  // namespace tovarek
