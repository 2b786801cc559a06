// One change between two interfaces.
#pragma once

#include <string>

#include "compare/InterfaceRules.h"

namespace tovarek {

struct InterfaceChange {
    InterfaceRule rule;
    std::string record;  // "network variable 3 (nviTemp)", of what is gone as the old interface has it
    std::string field;   // empty where the record as a whole is meant
    // As people read them: scaled, with units, by name where a number has one. Both are empty where the field
    // says it all.
    std::string before;
    std::string after;
};

// "network variable 3 (nviTemp): direction: input -> output".
std::string ChangeText(const InterfaceChange& change);

}  // namespace tovarek
