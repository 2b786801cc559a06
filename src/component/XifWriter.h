// Writes the external interface file, "XIF Version 4.0".
#pragma once

#include <string>

#include "profile/CProfile.h"
#include "support/CResources.h"
#include "system/Clock.h"
#include "system/Files.h"
#include "template/CTemplate.h"

namespace tovarek {

// Writes the interface file of the device to `path`, created or truncated. Profile and template are loaded
// and checked already. Raises file errors; a half-written file is closed and left.
void WriteXif(const std::string& path, const CProfile& profile, const CTemplate& deviceTemplate,
              const CResources& resources, const Clock& clock);

// The same into any sink; `fileName` is shown on the first line. The sink is not closed.
void WriteXifText(FileSink& sink, const std::string& fileName, const CProfile& profile,
                  const CTemplate& deviceTemplate, const CResources& resources, const Clock& clock);

}  // namespace tovarek
