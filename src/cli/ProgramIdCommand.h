// tovarek program-id: splits a program ID into its fields, or makes one of them.
#pragma once

#include <array>
#include <string>

#include "cli/Report.h"
#include "values/ProgramId.h"

namespace tovarek {

struct ProgramIdWords {
    std::string whole;                                        // the ID that is to be split
    std::array<std::string, kProgramIdFields.size()> fields;  // or the fields, by kProgramIdFields
    bool certified = false;                                   // format 8, where `fields` has none
};

// With `whole` its fields, else the ID that the fields make; a field that is missing is wrong use, since no
// value of it would be right for anybody.
int RunProgramId(const ProgramIdWords& words, OutputFormat format, Streams streams);

}  // namespace tovarek
