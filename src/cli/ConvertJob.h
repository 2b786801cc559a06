// The job that generates with what tovarek convert has written.
#pragma once

#include <string>

#include "cli/ConvertTypes.h"

namespace tovarek {

struct ConvertedFiles {
    std::string job;      // where it is written; inputs of a job count from its folder
    std::string profile;  // empty: the job writes no XIF file
    std::string deviceTemplate;
    bool addsNames = false;
    const TypeOutputs* types = nullptr;  // null: the job writes no resource files
    std::string outputs{};               // what its outputs are called; empty: as the job
};

std::string JobText(const ConvertedFiles& files);

}  // namespace tovarek
