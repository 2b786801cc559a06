// tovarek check: every finding of a job, without writing anything.
#pragma once

#include <string>
#include <vector>

#include "check/Check.h"
#include "cli/JobSetup.h"
#include "cli/Report.h"

namespace tovarek {

struct CheckWishes {
    CheckOptions options;
    bool warningsAsErrors = false;
    bool isMending = false;      // what has a mend, in the inputs
    bool isTrial = false;        // with it: only shows what would be done
    std::string color = "auto";  // auto, always or never
};

// Answers kDone, kFailed when there is an error (or a warning that counts as one), kWrongUse.
int RunCheck(const std::vector<Setting>& settings, const CheckWishes& wishes, OutputFormat format,
             Streams streams);

}  // namespace tovarek
