// Declarations of properties against the standard catalog and the rest of the template.
#pragma once

#include "support/Findings.h"
#include "template/CTemplate.h"

namespace tovarek {

void TellProperties(const CTemplate& source, FindingSink& findings);

// Tells a property whose type has `size` bytes and whose declaration says otherwise. `type` is what messages
// call it, `other` where its size is settled.
void TellPropertyLength(const CTemplate& source, std::size_t position, std::uint32_t size,
                        const std::string& type, Warning warning, FindingNote other, FindingSink& findings);

}  // namespace tovarek
