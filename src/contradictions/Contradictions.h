// What the inputs of a job say against each other. Each is read as it is written, and yet both cannot be
// meant: one name twice, a length that its type does not have. All of it are warnings, so callers ask for it
// only when somebody listens. Linear in the inputs.
#pragma once

#include <span>
#include <string>

#include "support/Findings.h"
#include "template/CTemplate.h"

namespace tovarek {

// Names that stand twice, and properties that contradict the catalog or the rest of the template, which is
// loaded and checked.
void TellTemplateContradictions(const CTemplate& source, FindingSink& findings);

// An output, and the properties that tell its name and its folder.
struct OutputPath {
    std::string path;
    std::string nameProperty;
    std::string folderProperty;
};

// Outputs that are one file where letter case does not count, and names that Windows keeps for devices.
void TellOutputContradictions(std::span<const OutputPath> outputs, FindingSink& findings);

}  // namespace tovarek
