// The value lines of an XIF file.
#pragma once

#include <string>
#include <string_view>

#include "inspect/XifFile.h"

namespace tovarek {

// Adds one line of content: text behind a double quote up to a second one, else hexadecimal values that may
// start with 0x or \x and are separated by blanks, tabs or commas, or by nothing. False when it is neither.
bool AddXifContent(std::string_view line, XifContent& content);

// Appends the values at the beginning of `line` as far as it consists of values. Answers their length in it.
std::size_t TakeXifValues(std::string_view line, std::string& bytes);

}  // namespace tovarek
