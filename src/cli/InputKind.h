// What kind of input a file is that is none of the files which the program shows.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// "this looks like an INI template, which 'tovarek generate --iniTemplateFile' takes"; empty for a file that
// looks like no input. `bytes` may be the beginning of the file alone.
std::string InputHint(std::string_view bytes);

}  // namespace tovarek
