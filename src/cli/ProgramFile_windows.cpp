#include "cli/ProgramFile.h"
#include "system/ModuleFile.h"
#include "system/Wide.h"

namespace tovarek {

std::string ProgramFile() {
    return FromWide(ModuleFile(nullptr));
}

}  // namespace tovarek
