// What the program does on every platform, once its arguments are UTF-8.
#pragma once

#include <string>
#include <vector>

namespace tovarek {

// Runs the command line on the standard streams and answers the exit status; output that cannot be written is
// a failure.
int RunProgram(const std::vector<std::string>& arguments);

}  // namespace tovarek
