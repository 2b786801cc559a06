#include "cli/RunProgram.h"

#include <iostream>

#include "cli/CommandLine.h"

namespace tovarek {

int RunProgram(const std::vector<std::string>& arguments) {
    std::ios::sync_with_stdio(false);
    const int status = RunCommandLine(arguments, {std::cout, std::cerr});
    // Output that could not be written is a failure like any other.
    if (!std::cout.flush() && status == kDone) {
        std::cerr << "tovarek: the output could not be written\n";
        return kFailed;
    }
    return status;
}

}  // namespace tovarek
