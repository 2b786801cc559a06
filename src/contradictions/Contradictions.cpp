#include "contradictions/Contradictions.h"

#include "contradictions/Matters.h"
#include "contradictions/Names.h"
#include "contradictions/OwnRecords.h"
#include "contradictions/Properties.h"
#include "contradictions/Types.h"
#include "contradictions/ValueRanges.h"

namespace tovarek {

void TellTemplateContradictions(const CTemplate& source, FindingSink& findings) {
    TellDuplicateNames(source, findings);
    TellProperties(source, findings);
    TellStandardValues(source, findings);
    if (findings.WantsWeak())
        TellMatters(source, findings);
}

void TellTypeContradictions(const CTypes& types, std::span<const OwnTypes> sets, bool isWhole,
                            FindingSink& findings) {
    const OwnRecords records(sets);
    TellTypesOfRecords(types, records, isWhole, findings);
    TellDefinitions(types, records, findings);
    TellOwnValues(types, records, findings);
}

}  // namespace tovarek
