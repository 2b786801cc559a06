// What the inputs of a job say against each other. Each is read as it is written, and yet both cannot be
// meant: one name twice, a length that its type does not have. All of it are warnings, so callers ask for it
// only when somebody listens. Linear in the inputs.
#pragma once

#include <span>
#include <string>

#include "control/OwnTypes.h"
#include "support/Findings.h"
#include "template/CTemplate.h"
#include "types/CTypes.h"

namespace tovarek {

// Names that stand twice, and properties that contradict the catalog or the rest of the template, which is
// loaded and checked; where weak warnings are wanted, what some programs do not expect.
void TellTemplateContradictions(const CTemplate& source, FindingSink& findings);

// What the device's own types, which are loaded, and the records of the resource files that were made of them
// say against the template and against each other. Without `isWhole` an input of them was refused, so that
// none is missed.
void TellTypeContradictions(const CTypes& types, std::span<const OwnTypes> sets, bool isWhole,
                            FindingSink& findings);

// An output, and the properties that tell its name and its folder.
struct OutputPath {
    std::string path;
    std::string nameProperty;
    std::string folderProperty;
    bool isXif;
};

// Outputs that are one file where letter case does not count, and names that Windows keeps for devices.
void TellOutputContradictions(std::span<const OutputPath> outputs, FindingSink& findings);

}  // namespace tovarek
