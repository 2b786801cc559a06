// The command line of the host. It holds no logic of the domain: it drives the property table and shows
// results.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tovarek {

// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;     // the command found a fault
inline constexpr int kWrongUse = 2;   // the command line itself is wrong
inline constexpr int kDifferent = 1;  // a comparison found differences

// Where results and messages go.
struct Streams {
    std::ostream& out;
    std::ostream& error;
};

// Runs the command line `arguments` (UTF-8, the program's own name first) and answers the exit status.
int RunCommandLine(const std::vector<std::string>& arguments, Streams streams);

}  // namespace tovarek
