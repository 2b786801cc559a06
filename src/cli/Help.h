// The help of the command line, made of the table of verbs.
#pragma once

#include <iosfwd>
#include <string>

#include "cli/Verbs.h"

namespace tovarek {

// What the program can do, in a screen: usages and summaries. `program`: how it was called.
void WriteHelp(const std::string& program, std::ostream& out);

// All that is to be told of the verb `name`, or of the verbs that it groups.
void WriteVerbHelp(const std::string& name, std::ostream& out);

}  // namespace tovarek
