// The formats of output by name.
#pragma once

#include <optional>
#include <string>

#include "cli/Verbs.h"

namespace tovarek {

std::optional<OutputFormat> FormatOf(std::string_view name);

// What is wrong with a name after --format; empty when `verb` has such a format. `verb` may be null.
std::string FaultOfFormat(std::string_view name, const Verb* verb);

}  // namespace tovarek
