// The manual page of the program, made of the table of verbs.
#pragma once

#include <string>

namespace tovarek {

// In the man macros of groff.
std::string ManPage();

}  // namespace tovarek
