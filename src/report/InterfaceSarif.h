// Changes of an interface as SARIF 2.1.0.
#pragma once

#include <string>
#include <string_view>

#include "compare/CompareInterfaces.h"

namespace tovarek {

// What the comparison of two interfaces came to.
struct InterfaceReport {
    const InterfaceComparison& comparison;
    std::string file;     // of the new interface
    std::string verdict;  // its name
    std::string text;     // the verdict in words
};

// The document, with a line end behind it: a result for each change, at the file of the new interface. A
// change is an error where it is breaking under the same program ID, else a note; the verdict stands in the
// run's property bag. `version` is that of the program.
std::string SarifText(const InterfaceReport& report, std::string_view version);

}  // namespace tovarek
