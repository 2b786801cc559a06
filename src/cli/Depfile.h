// The file by which a build system learns what an output was made from.
#pragma once

#include <string>
#include <vector>

namespace tovarek {

// A rule of Make, which Ninja reads as well: `target` depends on `inputs`. '/' stands between the parts of a
// path; blanks, '#', '$' and ':' are escaped so that both read them as they are. Throws WrongUse for a name
// with a line break, which such a file cannot hold.
std::string DepfileText(const std::string& target, const std::vector<std::string>& inputs);

}  // namespace tovarek
