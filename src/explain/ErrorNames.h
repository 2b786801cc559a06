// How errors are called, and texts of inputs on one line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovarek {

// One line, whatever an input held.
std::string OneLine(std::string_view text);

// The public name of an error number: one of eErrors, or a runtime error's; "unknown" for any other.
std::string_view ErrorName(std::int32_t number);

// "0x80040037" for the component's own errors, "53" for runtime errors.
std::string ErrorNumberText(std::int32_t number);

}  // namespace tovarek
