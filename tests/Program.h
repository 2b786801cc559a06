// Runs the command line in process.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/CommandLine.h"

namespace tovarek::test {

struct Answer {
    int status = 0;
    std::string out;
    std::string error;
};

inline Answer Call(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "tovarek");
    std::ostringstream out;
    std::ostringstream error;
    Answer run;
    run.status = RunCommandLine(arguments, {out, error});
    run.out = out.str();
    run.error = error.str();
    return run;
}

}  // namespace tovarek::test
