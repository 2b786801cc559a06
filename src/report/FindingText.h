// How findings are shown to people.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "check/Check.h"

namespace tovarek {

// One line a finding in the form "FILE:LINE:COLUMN: error: TEXT [71 nvlength]" that editors and build systems
// know, under it the line itself with a mark, then its notes.
void WriteFindings(const std::vector<CheckedFinding>& findings, bool inColor, std::ostream& out);

// "FILE:LINE:COLUMN"; a line or column of 0 is left out.
std::string PlaceText(const std::string& file, int line, int column);

}  // namespace tovarek
