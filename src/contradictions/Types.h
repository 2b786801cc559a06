// The device's own types: the template, the format file, the user type file and the records of the resource
// files against each other.
#pragma once

#include "contradictions/OwnRecords.h"
#include "support/Findings.h"
#include "types/CTypes.h"

namespace tovarek {

// Variables and properties against the types that they have. Without `isWhole` a type that is missing is not
// told: its input was refused.
void TellTypesOfRecords(const CTypes& types, const OwnRecords& records, bool isWhole, FindingSink& findings);

// What the definitions of the types say against themselves: names and values that stand twice, lengths that
// are not those of the records.
void TellDefinitions(const CTypes& types, const OwnRecords& records, FindingSink& findings);

}  // namespace tovarek
