// tovarek errors: the list of the component's errors.
#pragma once

#include "cli/Report.h"

namespace tovarek {

int RunErrors(OutputFormat format, Streams streams);

}  // namespace tovarek
