// Findings as SARIF 2.1.0, the JSON in which tools of source analysis hand their results to code hosts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/Check.h"

namespace tovarek {

// The document of one run, with a line end behind it. `version` is that of the program. Paths are relative to
// the current folder where they lead into it. A finding has a fingerprint that does not depend on its line:
// it stays when lines are added in front of it.
std::string SarifText(const std::vector<CheckedFinding>& findings, std::string_view version);

}  // namespace tovarek
