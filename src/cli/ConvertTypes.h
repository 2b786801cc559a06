// Resource files as the inputs that a generation makes them from.
#pragma once

#include <string>
#include <vector>

#include "cli/ConvertInputs.h"
#include "cli/OpenCatalog.h"
#include "control/ResourceNames.h"
#include "types/TypeFilesSettings.h"

namespace tovarek {

// The files of one generation. A user type file holds types of variables or of properties, so resource files
// with both in the scopes 1 to 5 become two generations.
struct TypeOutputs {
    bool isUnvt = false;  // what the user type file holds
    std::string formatFile;
    std::string userTypes;  // empty ones are not written
    std::string deviceTemplate;
    std::string job;
    TypeFilesSettings settings;
    bool takesUnits = true;  // createUnitsFromReference
};

// The generations that the types of `inputs` need. The names of a second one are those of the first with
// "-unvts" and "-ucpts".
std::vector<TypeOutputs> OutputsOfTypes(const ConvertInputs& inputs, TypeOutputs names,
                                        const StandardCatalog& catalog);

// Whether there are types of the scopes 1 to 5, and of scope 6.
bool HasListedTypes(const TypeInputs& own);
bool HasTemplateTypes(const TypeInputs& own);

// Generates the resource files from what was written, in memory, and lists what they hold no more of the
// given ones. `device`: the template, as its form holds it.
void TellLossesOfTypes(const ConvertInputs& inputs, const std::vector<TypeOutputs>& outputs,
                       const CTemplate& device, CCatalog& catalog, StandardTexts texts,
                       std::vector<Loss>& losses);

}  // namespace tovarek
