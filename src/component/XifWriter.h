// Writes the external interface file, "XIF Version 4.0".
#pragma once

#include <string>

#include "profile/CProfile.h"
#include "support/CResources.h"
#include "system/Clock.h"
#include "system/Files.h"
#include "template/CTemplate.h"

namespace tovarek {

// Loads and checks `profile`, then writes the interface file of the device to `path`, created or truncated.
// The template is loaded and checked already. Raises the errors of the profile before the file is opened,
// file errors after; a half-written file is closed and left.
void WriteXif(const std::string& path, CProfile& profile, const CTemplate& deviceTemplate,
              const CResources& resources, const Clock& clock);

// The same into any sink, of a profile that is loaded and checked; `fileName` is shown on the first line. The
// sink is not closed.
void WriteXifText(FileSink& sink, const std::string& fileName, const CProfile& profile,
                  const CTemplate& deviceTemplate, const CResources& resources, const Clock& clock);

}  // namespace tovarek
