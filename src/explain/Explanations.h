// What each finding means, for people: warnings, the component's errors and runtime errors, from one table.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "support/Findings.h"

namespace tovarek {

struct Explanation {
    Warning warning = Warning::none;  // `none` of an error
    int number = 0;                   // of an error, as findings print it: 71
    std::int32_t value = 0;           // of an error, one of eErrors; of a runtime error its number
    std::string_view name;            // as findings print it: "not-a-number", "nvlength"
    std::string_view message;         // of an error what it always says; of a warning its meaning in short
    std::string_view meaning;         // of an error its usual cause
    std::string_view why;             // what becomes of it in a network tool or a device
    std::string_view wrong;           // lines of an input or options that show it; may be empty
    std::string_view right;           // what to write instead; may be empty
    std::string_view mend;

    bool IsError() const { return warning == Warning::none; }
};

// A part of the component's errors that tell of one thing, with one reason why they matter.
struct ErrorArea {
    int first = 0;  // number of its first error; it ends where the next one begins
    std::string_view title;
    std::string_view why;
};

// Warnings, then errors by number, then runtime errors by number.
std::span<const Explanation> Explanations();
std::span<const ErrorArea> ErrorAreas();

// All that a word may mean, in any letter case: the number of an error, its code or value, or a name. A
// number may be that of two errors. Nothing for any other word.
std::vector<Explanation> ExplanationsOf(std::string_view word);

// That of a finding, by the name that it prints. Throws std::out_of_range for one that is none.
const Explanation& ExplanationOf(std::string_view name);

}  // namespace tovarek
