#include <io.h>

#include <cstdio>

#include "cli/ProgramFile.h"
#include "system/ModuleFile.h"
#include "system/Wide.h"

namespace tovarek {

std::string ProgramFile() {
    return FromWide(ModuleFile(nullptr));
}

bool OutIsTerminal() {
    return _isatty(_fileno(stdout)) != 0;
}

}  // namespace tovarek
