// What the system tells of the running program.
#pragma once

#include <cstddef>
#include <string>

namespace tovarek {

// Its absolute path in UTF-8; empty when the system does not tell.
std::string ProgramFile();

// An environment variable in UTF-8; empty when it is not set.
std::string EnvironmentText(const char* name);

// Whether its standard output is a terminal, and its standard error.
bool OutIsTerminal();
bool ErrorIsTerminal();

// Characters of a line of that terminal; 0 when it does not tell.
std::size_t TerminalWidth();

}  // namespace tovarek
