// The value lines of an XIF file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

// Lines of texts and values. Values are bytes whatever their notation.
struct XifContent {
    std::string text;                     // of all its lines
    std::vector<std::size_t> lineStarts;  // where each line begins in it
    std::string bytes;
};

// Adds one line of content: text behind a double quote up to a second one, else hexadecimal values that may
// start with 0x or \x and are separated by blanks, tabs or commas, or by nothing. False when it is neither.
bool AddXifContent(std::string_view line, XifContent& content);

// Appends the values at the beginning of `line` as far as it consists of values. Answers their length in it.
std::size_t TakeXifValues(std::string_view line, std::string& bytes);

}  // namespace tovarek
