// Values of properties against the limits of their types and against their own.
#pragma once

#include "contradictions/OwnRecords.h"
#include "support/Findings.h"
#include "template/CTemplate.h"
#include "types/CTypes.h"

namespace tovarek {

// Those of standard properties.
void TellStandardValues(const CTemplate& source, FindingSink& findings);

// Those of the device's own property types, in the template and in the user type file.
void TellOwnValues(const CTypes& types, const OwnRecords& records, FindingSink& findings);

}  // namespace tovarek
