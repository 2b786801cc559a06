// What a job file may hold, for editors.
#pragma once

#include "cli/Json.h"

namespace tovarek {

// A JSON Schema (draft 2020-12) of job files, made of the table of properties.
Json JobSchema();

}  // namespace tovarek
