// What may stand next on a command line, for the completion of shells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

struct Completion {
    std::string word;
    std::string_view help;  // empty where the word says all
};

// The words that may take the place of the last one of `words`, those behind the program's name, as far as it
// is typed: commands, options behind a dash, choices behind an option. None where a file or any text belongs.
std::vector<Completion> CompletionsOf(const std::vector<std::string>& words);

// The script that has a shell, "bash", "zsh" or "fish", ask the program; empty for another one.
std::string_view CompletionScript(std::string_view shell);

}  // namespace tovarek
