// What every command answers, and where it writes to.
#pragma once

#include <iosfwd>
#include <string_view>

namespace tovarek {

// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;     // the command found a fault
inline constexpr int kWrongUse = 2;   // the command line itself is wrong
inline constexpr int kDifferent = 1;  // a comparison found differences

// Where results and messages go, and whose they are.
struct Streams {
    std::ostream& out;
    std::ostream& error;
    bool outIsTerminal = false;     // somebody looks at `out`
    std::string_view command = {};  // "generate", "catalog show"; empty where none is given
    bool errorIsTerminal = false;   // somebody looks at `error`
};

}  // namespace tovarek
