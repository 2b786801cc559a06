#include <iostream>
#include <string>
#include <vector>

#include "cli/CommandLine.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const int status =
        tovarek::RunCommandLine(std::vector<std::string>(argv, argv + argc), {std::cout, std::cerr});
    // Output that could not be written is a failure like any other.
    if (!std::cout.flush() && status == tovarek::kDone) {
        std::cerr << "tovarek: the output could not be written\n";
        return tovarek::kFailed;
    }
    return status;
}
