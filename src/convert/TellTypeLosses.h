// What generated resource files do not hold of those that their inputs were converted from.
#pragma once

#include <vector>

#include "control/ResourceNames.h"
#include "convert/DeviceInterface.h"
#include "convert/ResourceSetInput.h"

namespace tovarek {

// Whether the header counts: who and what a generation writes there is a job's to say.
enum class CompareHeaders { yes, no };

// Compares all that `given` holds with what was generated. `made`: one set, or two of them, the first for
// the network-variable types and the second for the property types. References to other types of a set count
// as their content; what differs is listed by type and field.
void TellTypeLosses(const ResourceSetInput& given, const std::vector<ResourceSetInput>& made,
                    const StandardCatalog* catalog, StandardTexts texts, CompareHeaders headers,
                    std::vector<Loss>& losses);

}  // namespace tovarek
