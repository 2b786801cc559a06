#include "contradictions/Contradictions.h"

#include "contradictions/Names.h"
#include "contradictions/Properties.h"

namespace tovarek {

void TellTemplateContradictions(const CTemplate& source, FindingSink& findings) {
    TellDuplicateNames(source, findings);
    TellProperties(source, findings);
}

}  // namespace tovarek
