#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <ostream>

#include "base/Nearest.h"
#include "base/Text.h"
#include "cli/Completions.h"
#include "cli/Formats.h"
#include "cli/Help.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

// The table of verbs as the parser takes it, and what it found.
class Parser {
  public:
    CLI::App app{"tovarek"};
    std::string formatName = "text";
    bool wantsVersion = false;

    explicit Parser(const std::vector<std::string>& arguments) {
        app.allow_extras();
        app.add_flag("--version", wantsVersion);
        AddFormat(app);
        for (const Verb& verb : Verbs()) {
            CLI::App& command = Command(verb.name);
            // To make the options of every verb takes a sixth of the time that the program needs to start.
            if (std::find(arguments.begin(), arguments.end(), command.get_name()) != arguments.end())
                AddOptions(command, verb);
        }
    }

    // The innermost command that was given, and its name with those of the commands that it belongs to.
    const CLI::App& Innermost(std::string& name) const {
        const CLI::App* command = &app;
        while (!command->get_subcommands().empty()) {
            command = command->get_subcommands().front();
            name += (name.empty() ? "" : " ") + command->get_name();
        }
        return *command;
    }

    std::vector<GivenOption> Options() const {
        std::vector<GivenOption> options;
        for (const CLI::App* command = &app; command != nullptr; command = Inner(*command)) {
            std::map<const CLI::Option*, std::size_t> taken;
            for (const CLI::Option* option : command->parse_order())
                options.push_back({option->get_name(), option->results().at(taken[option]++)});
        }
        return options;
    }

  private:
    static const CLI::App* Inner(const CLI::App& command) {
        const auto given = command.get_subcommands();
        return given.empty() ? nullptr : given.front();
    }

    void AddFormat(CLI::App& command) {
        command.add_option("--format", formatName)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }

    CLI::App& Command(std::string_view name) {
        const std::size_t blank = name.rfind(' ');
        CLI::App& group = blank == std::string_view::npos ? app : Command(name.substr(0, blank));
        const std::string word(name.substr(blank + 1));
        for (CLI::App* known : group.get_subcommands({}))
            if (known->get_name() == word)
                return *known;
        CLI::App& command = *group.add_subcommand(word)->allow_extras();
        AddFormat(command);
        return command;
    }

    static void AddOptions(CLI::App& command, const Verb& verb) {
        constexpr auto kAll = CLI::MultiOptionPolicy::TakeAll;
        // A negative number stands for any number of values.
        for (const auto& [name, isRepeatable] : OperandsOf(verb))
            command.add_option(name)->multi_option_policy(kAll)->expected(isRepeatable ? -1 : 1);
        for (const OptionRow& row : verb.options) {
            if (row.name == "--format")
                continue;
            if (row.argument.empty())
                command.add_flag(row.name)->multi_option_policy(kAll);
            else
                command.add_option(row.name)->expected(1)->multi_option_policy(kAll);
        }
    }
};

const Verb* FindVerb(const std::string& name) {
    for (const Verb& verb : Verbs())
        if (verb.name == name)
            return &verb;
    return nullptr;
}

// The format that the arguments ask for, where they are too wrong to be parsed whole.
OutputFormat WantedFormat(const std::vector<std::string>& arguments) {
    OutputFormat format = OutputFormat::text;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument.starts_with("--format="))
            format = argument.ends_with("=json") ? OutputFormat::json : OutputFormat::text;
        else if (argument == "--format" && i + 1 < arguments.size())
            format = arguments[i + 1] == "json" ? OutputFormat::json : OutputFormat::text;
    }
    return format;
}

std::vector<std::string> WordsNear(const CLI::App& command, bool isOption) {
    std::vector<std::string> words;
    if (isOption) {
        for (const CLI::Option* option : command.get_options())
            for (const std::string& word : option->get_lnames())
                words.push_back(word);
    } else {
        for (const CLI::App* sub : command.get_subcommands({}))
            words.push_back(sub->get_name());
    }
    return words;
}

// What is wrong with a word that nobody takes, with the nearest one that somebody does.
std::string FaultOfExtra(const CLI::App& command, const std::string& name, const std::string& extra) {
    const bool isOption = extra.starts_with("-");
    const std::string typed = extra.substr(0, extra.find('='));
    const std::size_t dashes = isOption ? std::min(typed.find_first_not_of('-'), typed.size()) : 0;
    const std::vector<std::string> words = WordsNear(command, isOption);
    const std::string where = name.empty() ? "" : " for 'tovarek " + name + "'";
    std::string what = isOption        ? "there is no option '" + Excerpt(typed) + "'" + where
                       : words.empty() ? "'" + Excerpt(typed) + "' is one word too many" + where
                                       : "there is no command '" + Excerpt(typed) + "'" + where;
    // The dashes make no name nearer.
    const std::string nearest = Nearest(typed.substr(dashes), words);
    if (!nearest.empty())
        return what + "; did you mean '" + std::string(isOption ? "--" : "") + nearest + "'?";
    if (isOption || (name != "generate" && name != "check"))
        return what;
    return what + (typed.ends_with(".json")
                       ? "; a job is given by --job FILE"
                       : "; a property is set by --PROPERTY VALUE or --set PROPERTY=VALUE");
}

// What is wrong with options that each are known; empty for nothing.
std::string FaultOfOptions(const Verb& verb, const Given& given) {
    for (const OptionRow& row : verb.options) {
        const std::vector<std::string> values = given.All(row.name);
        if (row.name == "--format" || values.empty())
            continue;
        if (row.argument.empty() && values.back() != "true")
            return "option '" + row.name + "' takes no value";
        if (!row.argument.empty() && !row.isRepeatable && values.size() > 1)
            return "option '" + row.name + "' is given more than once";
    }
    return {};
}

int RunParsed(const Parser& parser, const std::string& name, const std::string& program, Streams streams) {
    const Verb* const verb = FindVerb(name);
    const Given given = {FormatOf(parser.formatName).value_or(OutputFormat::text), parser.Options()};
    if (const std::string fault = FaultOfFormat(parser.formatName, verb); !fault.empty())
        return ReportWrongUse(fault, OutputFormat::text, streams);
    if (parser.wantsVersion) {
        streams.out << (given.format == OutputFormat::json ? "{\"version\": \"" TOVAREK_VERSION "\"}\n"
                                                           : "tovarek " TOVAREK_VERSION "\n");
        return kDone;
    }
    if (const std::vector<std::string> extras = parser.app.remaining(true); !extras.empty()) {
        std::string ignored;
        return ReportWrongUse(FaultOfExtra(parser.Innermost(ignored), name, extras.front()), given.format,
                              streams);
    }
    if (verb != nullptr) {
        const std::string fault = FaultOfOptions(*verb, given);
        return fault.empty() ? verb->run(given, streams) : ReportWrongUse(fault, given.format, streams);
    }
    if (given.format == OutputFormat::json)
        return ReportWrongUse("no command was given", given.format, streams);
    WriteHelp(program, streams.error);
    return kWrongUse;
}

// What the parser refuses, in our words: it tells the option and the kind of fault.
std::string ParserFault(const CLI::Error& error) {
    const std::string text = error.what();
    const std::string option = text.substr(0, text.find(':'));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr && option.starts_with("--"))
        return "option '" + option + "' needs a value";
    return "the options --help and --version take no value";
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, Streams streams) {
    const std::string program = arguments.empty() ? "tovarek" : arguments.front();
    // What a shell has completed is no whole command line and may hold anything.
    if (arguments.size() > 2 && arguments[1] == "print" && arguments[2] == "words") {
        for (const Completion& each : CompletionsOf({arguments.begin() + 3, arguments.end()}))
            streams.out << each.word << '\t' << each.help << '\n';
        return kDone;
    }
    Parser parser(arguments);
    std::string name;
    try {
        // The parser takes its arguments from the back.
        std::vector<std::string> reversed;
        if (!arguments.empty())
            reversed.assign(arguments.rbegin(), std::prev(arguments.rend()));
        parser.app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        parser.Innermost(name);
        name.empty() ? WriteHelp(program, streams.out) : WriteVerbHelp(name, streams.out);
        return kDone;
    } catch (const CLI::Error& error) {
        parser.Innermost(name);
        streams.command = name;
        return ReportWrongUse(ParserFault(error), WantedFormat(arguments), streams);
    }
    parser.Innermost(name);
    streams.command = name;
    return RunParsed(parser, name, program, streams);
}

}  // namespace tovarek
