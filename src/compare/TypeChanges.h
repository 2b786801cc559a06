// What changed between two descriptions of an own type, by what they mean: references count as their content.
#pragma once

#include <string>

#include "compare/OwnTypesOfDevice.h"
#include "compare/RecordChanges.h"

namespace tovarek {

// Counts the types as compared where both sides describe them, else as missed.
void CompareOwnTypes(const std::string& record, const DescribedType<NvType>& before,
                     const DescribedType<NvType>& after, ChangeList& changes, OwnTypeCount& count);
// The same, with the raw limits and the initial value.
void CompareOwnTypes(const std::string& record, const DescribedType<CpType>& before,
                     const DescribedType<CpType>& after, ChangeList& changes, OwnTypeCount& count);

}  // namespace tovarek
