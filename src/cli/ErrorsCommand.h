// tovarek errors: the component's errors, all or one.
#pragma once

#include "cli/Report.h"

namespace tovarek {

// The list of the component's errors; with a `word` (number, code or name of an error, runtime errors
// included) what causes that error and what mends it. A number may be that of two errors: both are shown.
int RunErrors(const std::string& word, OutputFormat format, Streams streams);

}  // namespace tovarek
