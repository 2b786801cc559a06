// The help of the command line, made of the table of verbs.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "cli/Verbs.h"

namespace tovarek {

// What the program is for, and what holds for all of its commands.
inline constexpr std::string_view kPurpose = "generates the device-interface files of LonWorks devices";
inline constexpr std::string_view kRemarks =
    "SOURCE_DATE_EPOCH, in seconds, fixes the date in the files; TOVAREK_CATALOG names the folder of "
    "another\n"
    "catalog than the shipped one. Exit status: 0 done, 1 an error or a difference was found, 2 wrong use.";

// What the program can do, in a screen: usages and summaries. `program`: how it was called.
void WriteHelp(const std::string& program, std::ostream& out);

// All that is to be told of the verb `name`, or of the verbs that it groups.
void WriteVerbHelp(const std::string& name, std::ostream& out);

}  // namespace tovarek
