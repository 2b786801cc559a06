// The command line of the host. It holds no logic of the domain: it drives the property table and shows
// results.
#pragma once

#include <string>
#include <vector>

#include "cli/Streams.h"

namespace tovarek {

// Runs the command line `arguments` (UTF-8, the program's own name first) and answers the exit status.
int RunCommandLine(const std::vector<std::string>& arguments, Streams streams);

}  // namespace tovarek
