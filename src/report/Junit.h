// Findings in the XML of test results that build servers show: each input a test.
#pragma once

#include <string>
#include <vector>

#include "check/Check.h"

namespace tovarek {

// The document, with a line end behind it: a test case for each of `inputs` and each other file with
// findings, and one called "tovarek" for findings without a file. A case fails by an error, and by a warning
// where it counts as an error; other warnings are its output. Paths are relative to the current folder where
// they lead into it.
std::string JunitText(const std::vector<CheckedFinding>& findings, const std::vector<std::string>& inputs,
                      bool warningsAreErrors);

}  // namespace tovarek
