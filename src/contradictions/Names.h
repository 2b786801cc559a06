// Names of a template's records.
#pragma once

#include "support/Findings.h"
#include "template/CTemplate.h"

namespace tovarek {

// Variables, tags and properties that are called like an earlier one of their kind.
void TellDuplicateNames(const CTemplate& source, FindingSink& findings);

}  // namespace tovarek
