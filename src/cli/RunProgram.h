// What the program does on every platform, once its arguments are UTF-8.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tovarek {

// Runs the command line that `arguments` makes on the standard streams and answers the exit status; output
// that cannot be written is a failure, and so is memory that ends, wherever it does.
int RunProgram(const std::function<std::vector<std::string>()>& arguments) noexcept;

}  // namespace tovarek
