// The properties of a job that generates resource files like given ones: what their headers say.
#pragma once

#include "control/ResourceNames.h"
#include "convert/ResourceSetInput.h"
#include "types/TypeFilesSettings.h"

namespace tovarek {

// The base name is that of the files without their scope; a language that no locale has leaves the usual
// locale. Folders are not among it.
TypeFilesSettings SettingsOf(const ResourceSetInput& set);

// Whether the formats of the set take over the named ones of the standard types that its types are. True
// where nothing tells.
bool TakesUnitsFromReferences(const ResourceSetInput& set, const StandardCatalog& catalog);

}  // namespace tovarek
