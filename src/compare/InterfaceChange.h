// One change between two interfaces, and how much of their own types was compared.
#pragma once

#include <cstddef>
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

// Own types of records that both sides have: those that both sides describe, and the others.
struct OwnTypeCount {
    std::size_t compared = 0;
    std::size_t missed = 0;
};

// "network variable 3 (nviTemp): direction: input -> output".
std::string ChangeText(const InterfaceChange& change);

}  // namespace tovarek
