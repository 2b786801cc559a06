#include "cli/Completions.h"

#include <sstream>
#include <utility>

#include "cli/Verbs.h"

namespace tovarek {
namespace {

// As file names come with bash and zsh where nothing is answered; fish has to be told when it is.
constexpr std::string_view kBash = R"sh(# Completion of tovarek for bash.
_tovarek() {
    local IFS=$'\n'
    COMPREPLY=($("$1" print words "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null | cut -f1))
}
complete -o default -F _tovarek tovarek
)sh";

constexpr std::string_view kZsh = R"sh(#compdef tovarek
local -a found=(${(f)"$("${(Q)words[1]}" print words "${(@Q)words[2,CURRENT]}" 2>/dev/null)"})
if (( $#found )); then
    found=("${(@)found//:/\\:}")
    found=("${(@)found/$'\t'/:}")
    _describe tovarek found
else
    _files
fi
)sh";

constexpr std::string_view kFish = R"sh(# Completion of tovarek for fish.
function __tovarek
    set -l words (commandline -opc)
    tovarek print words $words[2..-1] (commandline -ct | string collect --allow-empty) 2>/dev/null
end
complete -c tovarek -f -n 'count (__tovarek) >/dev/null' -a '(__tovarek)'
)sh";

const Verb* VerbNamed(std::string_view name) {
    for (const Verb& verb : Verbs())
        if (verb.name == name)
            return &verb;
    return nullptr;
}

std::string_view FirstLine(std::string_view text) {
    return text.substr(0, text.find('\n'));
}

// What a command line holds up to the word that is being typed.
class Typed {
  public:
    explicit Typed(const std::vector<std::string>& words) {
        for (std::size_t i = 0; i + 1 < words.size(); ++i)
            Take(words[i]);
    }

    std::vector<Completion> Next(std::string_view start) const {
        if (!asked_.empty())
            return Beginning(Choices(), start);
        return Beginning(start.starts_with('-') ? Options() : Commands(), start);
    }

  private:
    void Take(const std::string& word) {
        if (!std::exchange(asked_, {}).empty())
            return;
        const std::string name = name_.empty() ? word : name_ + ' ' + word;
        if (VerbNamed(name) != nullptr)
            name_ = name;
        for (const OptionRow& row : Rows())
            if (row.name == word && !row.argument.empty())
                asked_ = word;
    }

    std::vector<OptionRow> Rows() const {
        const Verb* const verb = VerbNamed(name_);
        return Join(CommonOptions(), verb == nullptr ? std::vector<OptionRow>() : verb->options);
    }

    std::vector<Completion> Commands() const {
        const std::string group = name_.empty() ? "" : name_ + ' ';
        std::vector<Completion> all;
        for (const Verb& verb : Verbs())
            if (verb.name.starts_with(group) && verb.name.find(' ', group.size()) == std::string_view::npos &&
                verb.name != "print")
                all.push_back({std::string(verb.name.substr(group.size())), verb.summary});
        return all;
    }

    std::vector<Completion> Options() const {
        std::vector<Completion> all;
        // The formats of one verb stand in rows of their own.
        for (const OptionRow& row : Rows())
            if (row.name != "--format" || all.empty())
                all.push_back({row.name, FirstLine(row.help)});
        if (name_.empty())
            all.push_back({"--version", {}});
        return all;
    }

    // "text|json" is a choice, "FILE" is none.
    std::vector<Completion> Choices() const {
        std::vector<Completion> all;
        for (const OptionRow& row : Rows()) {
            const bool isChoice = row.argument.find('|') != std::string_view::npos || row.name == "--format";
            std::istringstream choices(row.argument == "BOOL" ? "true|false" : std::string(row.argument));
            if (row.name == asked_ && (isChoice || row.argument == "BOOL"))
                for (std::string choice; std::getline(choices, choice, '|');)
                    all.push_back({choice, {}});
        }
        return all;
    }

    static std::vector<Completion> Beginning(std::vector<Completion> all, std::string_view start) {
        std::erase_if(all, [&](const Completion& each) { return !each.word.starts_with(start); });
        return all;
    }

    std::string name_;   // of the command
    std::string asked_;  // the option whose value is being typed
};

}  // namespace

std::vector<Completion> CompletionsOf(const std::vector<std::string>& words) {
    return words.empty() ? std::vector<Completion>() : Typed(words).Next(words.back());
}

std::string_view CompletionScript(std::string_view shell) {
    return shell == "bash" ? kBash : shell == "zsh" ? kZsh : shell == "fish" ? kFish : "";
}

}  // namespace tovarek
