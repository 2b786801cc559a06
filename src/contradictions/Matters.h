// Matters of taste: what a device may have, and some programs that read its interface file do not expect.
#pragma once

#include "support/Findings.h"
#include "template/CTemplate.h"

namespace tovarek {

void TellMatters(const CTemplate& source, FindingSink& findings);

}  // namespace tovarek
