#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <ostream>

#include "base/Nearest.h"
#include "base/Text.h"
#include "cli/CatalogCommand.h"
#include "cli/CheckCommand.h"
#include "cli/ConvertCommand.h"
#include "cli/ErrorsCommand.h"
#include "cli/ExplainCommand.h"
#include "cli/GenerateCommand.h"
#include "cli/InspectCommands.h"
#include "cli/InterfaceDiffCommand.h"
#include "cli/Locations.h"
#include "cli/ProgramIdCommand.h"
#include "cli/ValueCommand.h"
#include "component/PropertyTable.h"

namespace tovarek {
namespace {

// What the program can do. The help is made of these rows: general help of usages and summaries, the help of
// one command of all of its row.
struct Verb {
    std::string_view name;
    std::string_view usage;
    std::string_view summary;
    std::string_view options;
    std::string_view example;
};

constexpr std::string_view kCatalogOptions =
    "  --catalogDir DIR                folder of another catalog than the shipped one\n"
    "  --catalogFile FILE              its file name, ldrf.cat by default\n";

constexpr std::string_view kValueOptions =
    "TYPE is a standard type by name or number, or one of the files below. VALUE is a number, a name, a "
    "text,\n"
    "member=value for each member of a structure, or the elements of an array.\n"
    "  --of TYPE                       the variable's type, for properties that take it\n"
    "  --typeFilesXMLFormat FILE       format file; TYPE is then a number above 255 in it\n"
    "  --typeFilesXMLPrefix PREFIX     prefix of its type elements, SNVT_ by default\n"
    "  --typeFile FILE                 type file (.typ) of a device\n"
    "  --catalogDir DIR                folder of another catalog than the shipped one\n"
    "  --catalogFile FILE              its file name, ldrf.cat by default\n";

constexpr Verb kVerbs[] = {
    {"generate", "generate [OPTIONS]", "write the XIF file and the resource files",
     "Options act in the order in which they stand:\n"
     "  --set PROPERTY=VALUE            set a property\n"
     "  --job FILE                      set the properties of a JSON object {property: value}; in it inputs\n"
     "                                  count from the folder of FILE\n"
     "  --no-warnings                   do not tell what is read otherwise than it was written\n",
     ""},
    {"check", "check [OPTIONS]", "find every fault of a job; nothing is written",
     "The options of 'tovarek generate', and:\n"
     "  --ignore NAME                   leave a warning out, e.g. --ignore ignored-key; may be repeated\n"
     "  --pedantic                      weak warnings too\n"
     "  --warnings-as-errors            exit status 1 for a warning as well\n"
     "  --color auto|always|never       colours; auto: on a terminal, unless NO_COLOR is set\n"
     "  --format sarif                  for code hosts: SARIF 2.1.0\n"
     "  --format junit                  for build servers: a test case for each input, in JUnit's XML\n",
     "tovarek check --iniTemplateFile template.ini --mustGenerateTypes false --mustGenerateXif false"},
    {"explain", "explain NUMBER|NAME", "what a finding means, why it matters, an example, the mend",
     "NUMBER or NAME is what stands in brackets behind a finding of 'tovarek check', or the code of an "
     "error.\n"
     "  --list                          all of them in short\n"
     "  --format markdown               with --list: all texts, as docs/findings.md has them\n",
     "tovarek explain not-a-number"},
    {"errors", "errors [WORD]", "list the errors; WORD: cause and mend of one, e.g. 71",
     "WORD is the number of an error, the code that a message begins with, or a name.\n",
     "tovarek errors nvlength"},
    {"catalog list", "catalog list", "list the standard types", kCatalogOptions, "tovarek catalog list"},
    {"catalog show", "catalog show TYPE", "show one, e.g. SNVT_temp_p, temp_p or 105", kCatalogOptions,
     "tovarek catalog show temp_p"},
    {"catalog find", "catalog find WORD", "find types by name, unit and text", kCatalogOptions,
     "tovarek catalog find pressure"},
    {"dump", "dump FILE [--bytes]", "show a resource, format, catalog or XIF file",
     "  --bytes                         every byte in file order; damaged files too\n"
     "  --catalogDir DIR                the catalog that names of standard types come from\n"
     "  --catalogFile FILE              its file name, ldrf.cat by default\n",
     "tovarek dump fan-coil.xif"},
    {"diff", "diff A B", "compare the content of two such files",
     "  --interface                     may B ship under the program ID of A? Both are XIF files, "
     "templates\n"
     "                                  (.ini, .xml) or jobs (.json); exit status 1 when it may not\n"
     "  --known DIR                     with it: folder of the XIF files that were released; without A the "
     "one "
     "with\n"
     "                                  B's program ID is compared, and the next free model number is named\n"
     "  --format markdown               with it: a table for a review\n"
     "  --catalogDir DIR                with it: folder of another catalog than the shipped one\n"
     "  --catalogFile FILE              its file name, ldrf.cat by default\n",
     "tovarek diff --interface released.xif template.ini"},
    {"convert", "convert INPUT... [OPTIONS]",
     "an XIF file, resource files, or a profile and a template, as other inputs",
     "INPUT is an XIF file of any version, a file of a resource set (.typ, .enu, .fmt), or a profile or\n"
     "template, .ini or .xml (FILE#ELEMENT where it is not the document element). Resource files go alone "
     "or\n"
     "with an XIF file. What an output cannot hold is listed.\n"
     "  --profile FILE                  writes a profile, .ini or .xml\n"
     "  --template FILE                 writes a template, .ini or .xml\n"
     "  --format-file FILE              writes the types of resource files, .xml\n"
     "  --user-types FILE               writes a user type file of those of the scopes 1 to 5, .xml\n"
     "  --job FILE                      writes a job that generates with them\n"
     "  --fit 4.0                       replaces values of later versions that XIF 4.0 does not know\n"
     "  --set FIELD=VALUE               for it: a value of the profile, such as typeNeuron=0\n"
     "  --strict                        exit status 1 when something is not held\n"
     "  --catalogDir DIR                folder of another catalog than the shipped one\n"
     "  --catalogFile FILE              its file name, ldrf.cat by default\n",
     "tovarek convert old.xif --profile profile.ini --template template.xml --job job.json"},
    {"value encode", "value encode TYPE VALUE...", "a value as the bytes that devices send", kValueOptions,
     "tovarek value encode SCPTmaxSendTime 60"},
    {"value decode", "value decode TYPE BYTES", "such bytes, in hexadecimal, as a value", kValueOptions,
     "tovarek value decode SNVT_switch C801"},
    {"program-id", "program-id [ID]", "split a program ID, or make one of its fields",
     "Without ID all of these, in hexadecimal:\n"
     "  --maker, --class, --usage, --channel, --model\n"
     "  --certified                     format 8 instead of 9\n",
     "tovarek program-id --maker FFFFF --class 5014 --usage 03 --channel 04 --model 01"},
};

std::string Column(std::string_view text, std::size_t width) {
    std::string column(text);
    column.resize(std::max(column.size() + 1, width), ' ');
    return column;
}

void WriteHelp(const std::string& program, std::ostream& out) {
    const std::string examples = ExampleFolder();
    const std::string folder = examples.empty() ? "examples/fan-coil" : examples;
    out << "tovarek " TOVAREK_VERSION " - generates the device-interface files of LonWorks devices\n\n";
    for (const Verb& verb : kVerbs)
        out << Column("  tovarek " + std::string(verb.usage), 36) << verb.summary << '\n';
    out << "\n"
           "  --format json                     results and errors as JSON on standard output\n"
           "  --help, --version                 'tovarek COMMAND --help' tells of one command\n"
           "\n"
           "Without --catalogDir the shipped catalog of standard types is used. SOURCE_DATE_EPOCH, in "
           "seconds,\n"
           "fixes the date in the files. Exit status: 0 done, 1 an error or a difference was found, 2 wrong "
           "use.\n"
           "\n"
           "Example:\n"
        << "  " << program << " generate --iniProfileFile " << folder << "/profile.ini \\\n"
        << "      --iniTemplateFile " << folder << "/template.ini --mustGenerateTypes false \\\n"
        << "      --outputXIFfile fan-coil.xif\n";
}

void WriteVerbHelp(const Verb& verb, std::ostream& out) {
    out << "tovarek " << verb.usage << ": " << verb.summary << ".\n"
        << verb.options << "  --format text|json              how results and errors are shown\n";
    if (verb.name == "generate" || verb.name == "check")
        for (const Property& property : Properties())
            out << Column("  --" + std::string(property.name), 34) << property.help << '\n';
    if (!verb.example.empty())
        out << "Example: " << verb.example << '\n';
}

struct FormatRow {
    std::string_view name;
    OutputFormat format;
    std::string_view verb;  // one that has it; empty: all have
};
constexpr FormatRow kFormats[] = {
    {"text", OutputFormat::text, ""},
    {"json", OutputFormat::json, ""},
    {"markdown", OutputFormat::markdown, "explain"},
    {"markdown", OutputFormat::markdown, "diff"},
    {"sarif", OutputFormat::sarif, "check"},
    {"junit", OutputFormat::junit, "check"},
};

const FormatRow* FindFormat(std::string_view name) {
    for (const FormatRow& row : kFormats)
        if (row.name == name)
            return &row;
    return nullptr;
}

// What is wrong with a name after --format; empty when the command has such a format.
std::string FaultOfFormat(std::string_view name, std::string_view verb) {
    std::string choice;
    for (const FormatRow& row : kFormats) {
        if (!row.verb.empty() && row.verb != verb)
            continue;
        if (row.name == name)
            return {};
        choice += (choice.empty() ? "" : " or ") + ("--format " + std::string(row.name));
    }
    return "there is no output format '" + Excerpt(name) + "'" +
           (FindFormat(name) == nullptr ? "" : " for 'tovarek " + std::string(verb) + "'") + "; give " +
           choice;
}

// The options of a command that set properties.
class SettingOptions {
  public:
    explicit SettingOptions(CLI::App& command) : command_(command) {
        Add("--set", Setting::Kind::pair);
        Add("--job", Setting::Kind::job);
        for (const Property& property : Properties())
            Add("--" + std::string(property.name), Setting::Kind::property);
    }

    // What was given, in the order in which it stands on the command line.
    std::vector<Setting> InOrder() const {
        std::vector<Setting> settings;
        std::map<const CLI::Option*, std::size_t> taken;
        for (const CLI::Option* option : command_.parse_order())
            if (const auto kind = kinds_.find(option); kind != kinds_.end())
                settings.push_back(
                    {kind->second, option->get_single_name(), option->results().at(taken[option]++)});
        return settings;
    }

  private:
    void Add(const std::string& name, Setting::Kind kind) {
        kinds_[command_.add_option(name)->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)] =
            kind;
    }

    CLI::App& command_;
    std::map<const CLI::Option*, Setting::Kind> kinds_;
};

// The command line as CLI11 sees it, and what it found.
struct Commands {
    CLI::App app{"tovarek"};
    CLI::App* generate = app.add_subcommand("generate");
    CLI::App* check = app.add_subcommand("check");
    CLI::App* explain = app.add_subcommand("explain");
    CLI::App* errors = app.add_subcommand("errors");
    CLI::App* catalog = app.add_subcommand("catalog");
    CLI::App* list = catalog->add_subcommand("list");
    CLI::App* show = catalog->add_subcommand("show");
    CLI::App* find = catalog->add_subcommand("find");
    CLI::App* dump = app.add_subcommand("dump");
    CLI::App* diff = app.add_subcommand("diff");
    CLI::App* convert = app.add_subcommand("convert");
    CLI::App* value = app.add_subcommand("value");
    CLI::App* encode = value->add_subcommand("encode");
    CLI::App* decode = value->add_subcommand("decode");
    CLI::App* programId = app.add_subcommand("program-id");

    std::string formatName = "text";
    bool version = false;
    CatalogPlace place;
    ExplainWishes explainWishes;
    std::string word;       // of errors, catalog show and catalog find
    std::string file;       // of dump, and the first one of diff
    std::string otherFile;  // the second one of diff
    bool bytes = false;
    bool ofInterface = false;  // diff compares interfaces
    std::string known;         // their folder
    ProgramIdWords programIdWords;
    // But for the catalog, which stands in `place`.
    ValueOptions valueOptions;
    ConvertOptions convertOptions;
    SettingOptions generateSettings{*generate};
    SettingOptions checkSettings{*check};
    bool withoutWarnings = false;
    CheckWishes checkWishes;

    Commands() {
        app.allow_extras();
        app.add_flag("--version", version);
        AddFormat(app);
        for (CLI::App* command : {generate, check, explain, errors, catalog, list, show, find, dump, diff,
                                  convert, value, encode, decode, programId}) {
            command->allow_extras();
            AddFormat(*command);
        }
        generate->add_flag("--no-warnings", withoutWarnings);
        check->add_option("--ignore", checkWishes.options.ignored)
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        check->add_flag("--pedantic", checkWishes.options.isPedantic);
        check->add_flag("--warnings-as-errors", checkWishes.warningsAsErrors);
        check->add_option("--color", checkWishes.color)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
        for (CLI::App* command : {catalog, list, show, find, dump, diff, encode, decode, convert}) {
            command->add_option("--catalogDir", place.folder);
            command->add_option("--catalogFile", place.file);
        }
        explain->add_option("WORD", explainWishes.word);
        explain->add_flag("--list", explainWishes.isList);
        errors->add_option("WORD", word);
        show->add_option("TYPE", word);
        find->add_option("WORD", word);
        dump->add_option("FILE", file);
        dump->add_flag("--bytes", bytes);
        diff->add_option("A", file);
        diff->add_option("B", otherFile);
        diff->add_flag("--interface", ofInterface);
        diff->add_option("--known", known);
        for (CLI::App* command : {encode, decode}) {
            command->add_option("TYPE", valueOptions.type);
            command->add_option("VALUE", valueOptions.value);
            command->add_option("--of", valueOptions.of);
            command->add_option("--typeFilesXMLFormat", valueOptions.formatFile);
            command->add_option("--typeFilesXMLPrefix", valueOptions.prefix);
            command->add_option("--typeFile", valueOptions.typeFile);
        }
        convert->add_option("INPUT", convertOptions.inputs);
        convert->add_option("--profile", convertOptions.profile);
        convert->add_option("--template", convertOptions.deviceTemplate);
        convert->add_option("--format-file", convertOptions.formatFile);
        convert->add_option("--user-types", convertOptions.userTypes);
        convert->add_option("--job", convertOptions.job);
        convert->add_option("--fit", convertOptions.fit);
        convert->add_option("--set", convertOptions.sets)
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        convert->add_flag("--strict", convertOptions.isStrict);
        programId->add_option("ID", programIdWords.whole);
        programId->add_flag("--certified", programIdWords.certified);
        for (std::size_t i = 1; i < kProgramIdFields.size(); ++i)
            programId->add_option("--" + std::string(kProgramIdFields[i].name), programIdWords.fields[i]);
    }

    void AddFormat(CLI::App& command) {
        command.add_option("--format", formatName)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }

    OutputFormat Format() const {
        const FormatRow* const row = FindFormat(formatName);
        return row == nullptr ? OutputFormat::text : row->format;
    }

    // The innermost command that was given, and its name with those of the commands that it belongs to.
    const CLI::App& Given(std::string& name) const {
        const CLI::App* command = &app;
        while (!command->get_subcommands().empty()) {
            command = command->get_subcommands().front();
            name += (name.empty() ? "" : " ") + command->get_name();
        }
        return *command;
    }
};

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

// The options, or the commands, of the command at hand that are near to the one that was typed.
int RefuseExtra(const Commands& commands, const std::string& extra, Streams streams) {
    std::string name;
    const CLI::App& command = commands.Given(name);
    const bool isOption = extra.starts_with("-");
    const std::string typed = extra.substr(0, extra.find('='));
    const std::size_t dashes = isOption ? std::min(typed.find_first_not_of('-'), typed.size()) : 0;
    std::vector<std::string> words;
    if (isOption) {
        for (const CLI::Option* option : command.get_options())
            for (const std::string& word : option->get_lnames())
                words.push_back(word);
    } else {
        for (const CLI::App* sub : command.get_subcommands({}))
            words.push_back(sub->get_name());
    }
    const std::string where = name.empty() ? "" : " for 'tovarek " + name + "'";
    const std::string what = isOption        ? "there is no option '" + Excerpt(typed) + "'" + where
                             : words.empty() ? "'" + Excerpt(typed) + "' is one word too many" + where
                                             : "there is no command '" + Excerpt(typed) + "'" + where;
    // The dashes make no name nearer.
    const std::string nearest = Nearest(typed.substr(dashes), words);
    std::string mend;
    if (!nearest.empty())
        mend = "; did you mean '" + std::string(isOption ? "--" : "") + nearest + "'?";
    else if (!isOption && &command == commands.generate)
        mend = "; a property is set by --PROPERTY VALUE or --set PROPERTY=VALUE";
    return ReportWrongUse(what + mend, commands.Format(), streams);
}

int RunCatalog(const Commands& commands, Streams streams) {
    const OutputFormat format = commands.Format();
    if (commands.list->parsed())
        return RunCatalogList(commands.place, format, streams);
    if (commands.show->parsed())
        return commands.word.empty()
                   ? ReportWrongUse("catalog show needs a type: its name, a part of it, or its number",
                                    format, streams)
                   : RunCatalogShow(commands.place, commands.word, format, streams);
    if (commands.find->parsed())
        return commands.word.empty()
                   ? ReportWrongUse("catalog find needs a word to look for in names, units and texts", format,
                                    streams)
                   : RunCatalogFind(commands.place, commands.word, format, streams);
    return ReportWrongUse("catalog needs a command: list, show TYPE or find WORD", format, streams);
}

int RunDiff(const Commands& commands, Streams streams) {
    const OutputFormat format = commands.Format();
    const bool isKnown = commands.ofInterface && !commands.known.empty() && commands.otherFile.empty();
    if (commands.file.empty() || (commands.otherFile.empty() && !isKnown))
        return ReportWrongUse("diff needs two files to compare", format, streams);
    if (commands.ofInterface)
        return RunInterfaceDiff({isKnown ? "" : commands.file, isKnown ? commands.file : commands.otherFile,
                                 commands.known, commands.place},
                                format, streams);
    if (format == OutputFormat::markdown || !commands.known.empty())
        return ReportWrongUse("--known and --format markdown belong to diff --interface", format, streams);
    return RunDiff(commands.file, commands.otherFile, format, streams);
}

int RunValue(const Commands& commands, Streams streams) {
    const OutputFormat format = commands.Format();
    ValueOptions options = commands.valueOptions;
    options.place = commands.place;
    if (!commands.encode->parsed() && !commands.decode->parsed())
        return ReportWrongUse("value needs a command: encode TYPE VALUE or decode TYPE BYTES", format,
                              streams);
    const bool isEncoding = commands.encode->parsed();
    if (options.type.empty() || options.value.empty())
        return ReportWrongUse(isEncoding ? "value encode needs a type and a value of it"
                                         : "value decode needs a type and bytes in hexadecimal",
                              format, streams);
    return isEncoding ? RunValueEncode(options, format, streams) : RunValueDecode(options, format, streams);
}

int RunConvert(const Commands& commands, Streams streams) {
    ConvertOptions options = commands.convertOptions;
    options.place = commands.place;
    return RunConvert(options, commands.Format(), streams);
}

int RunParsed(const Commands& commands, const std::string& program, Streams streams) {
    const OutputFormat format = commands.Format();
    if (const std::string fault = FaultOfFormat(commands.formatName, streams.command); !fault.empty())
        return ReportWrongUse(fault, OutputFormat::text, streams);
    if (commands.version) {
        streams.out << (format == OutputFormat::json ? "{\"version\": \"" TOVAREK_VERSION "\"}\n"
                                                     : "tovarek " TOVAREK_VERSION "\n");
        return kDone;
    }
    if (const std::vector<std::string> extras = commands.app.remaining(true); !extras.empty())
        return RefuseExtra(commands, extras.front(), streams);
    if (commands.generate->parsed())
        return RunGenerate(commands.generateSettings.InOrder(), !commands.withoutWarnings, format, streams);
    if (commands.check->parsed())
        return RunCheck(commands.checkSettings.InOrder(), commands.checkWishes, format, streams);
    if (commands.explain->parsed())
        return RunExplain(commands.explainWishes, format, streams);
    if (commands.errors->parsed())
        return RunErrors(commands.word, format, streams);
    if (commands.catalog->parsed())
        return RunCatalog(commands, streams);
    if (commands.dump->parsed()) {
        if (commands.file.empty())
            return ReportWrongUse("dump needs a file to show", format, streams);
        return RunDump(commands.file, {format, commands.bytes, commands.place}, streams);
    }
    if (commands.diff->parsed())
        return RunDiff(commands, streams);
    if (commands.convert->parsed())
        return RunConvert(commands, streams);
    if (commands.value->parsed())
        return RunValue(commands, streams);
    if (commands.programId->parsed())
        return RunProgramId(commands.programIdWords, format, streams);
    if (format == OutputFormat::json)
        return ReportWrongUse("no command was given", format, streams);
    WriteHelp(program, streams.error);
    return kWrongUse;
}

void WriteWantedHelp(const Commands& commands, const std::string& program, std::ostream& out) {
    std::string name;
    commands.Given(name);
    if (name.empty())
        return WriteHelp(program, out);
    // "catalog" stands for its commands.
    for (const Verb& verb : kVerbs)
        if (verb.name.starts_with(name))
            WriteVerbHelp(verb, out);
}

// What the parser refuses, in our words: it tells the option and the kind of fault.
std::string ParserFault(const CLI::Error& error) {
    const std::string text = error.what();
    const std::string option = text.substr(0, text.find(':'));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr && option.starts_with("--"))
        return "option '" + option + "' needs a value";
    return "the options --help, --version, --bytes, --certified, --interface and --strict take no value";
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, Streams streams) {
    const std::string program = arguments.empty() ? "tovarek" : arguments.front();
    Commands commands;
    try {
        // The parser takes its arguments from the back.
        std::vector<std::string> reversed;
        if (!arguments.empty())
            reversed.assign(arguments.rbegin(), std::prev(arguments.rend()));
        commands.app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        WriteWantedHelp(commands, program, streams.out);
        return kDone;
    } catch (const CLI::Error& error) {
        std::string name;
        commands.Given(name);
        streams.command = name;
        return ReportWrongUse(ParserFault(error), WantedFormat(arguments), streams);
    }
    std::string name;
    commands.Given(name);
    streams.command = name;
    return RunParsed(commands, program, streams);
}

}  // namespace tovarek
