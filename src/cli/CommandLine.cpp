#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <map>
#include <ostream>

#include "base/Nearest.h"
#include "cli/CatalogCommand.h"
#include "cli/ErrorsCommand.h"
#include "cli/GenerateCommand.h"
#include "cli/InspectCommands.h"
#include "cli/Locations.h"
#include "component/PropertyTable.h"

namespace tovarek {
namespace {

// The help is written by hand: it fits a screen, and its example works when pasted.
void WriteHelp(const std::string& program, std::ostream& out) {
    const std::string examples = ExampleFolder();
    const std::string folder = examples.empty() ? "examples/fan-coil" : examples;
    out << "tovarek " TOVAREK_VERSION
           " - generates the device-interface files of LonWorks devices\n"
           "\n"
           "  tovarek generate [OPTIONS]        write the XIF file and the resource files\n"
           "      --PROPERTY VALUE              set one of the 33 properties (generate --help lists them)\n"
           "      --set PROPERTY=VALUE          the same\n"
           "      --job FILE                    set properties from a JSON object {property: value}\n"
           "                                    options act in the order in which they stand\n"
           "  tovarek errors                    list the errors of the generator\n"
           "  tovarek catalog list              list the standard types\n"
           "  tovarek catalog show NAME         show one, e.g. SNVT_temp_p\n"
           "  tovarek dump FILE [--bytes]       show what is in a resource file, format file, catalog or XIF "
           "file\n"
           "  tovarek diff A B                  compare the content of two such files\n"
           "      --catalogDir DIR --catalogFile FILE   another catalog than the shipped one\n"
           "\n"
           "  --format json                     results and errors as JSON on standard output\n"
           "  --help, --version\n"
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

void WriteGenerateHelp(std::ostream& out) {
    out << "tovarek generate [OPTIONS]: write the XIF file and the resource files.\n"
           "Options act in the order in which they stand:\n"
           "  --set PROPERTY=VALUE            set a property\n"
           "  --job FILE                      set the properties of a JSON object {property: value}\n"
           "  --format text|json              how results and errors are shown\n";
    for (const Property& property : Properties()) {
        std::string option = "  --" + std::string(property.name) + " ";
        option.resize(std::max<std::size_t>(option.size(), 34), ' ');
        out << option << property.help << '\n';
    }
}

// The settings among the options of `generate`, in the order in which they stand on the command line.
std::vector<Setting> SettingsInOrder(const CLI::App& generate, const CLI::Option* pairs,
                                     const CLI::Option* jobs) {
    std::vector<Setting> settings;
    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* option : generate.parse_order()) {
        if (option->get_single_name() == "format")
            continue;
        const std::string& value = option->results().at(taken[option]++);
        if (option == pairs)
            settings.push_back({Setting::Kind::pair, "", value});
        else if (option == jobs)
            settings.push_back({Setting::Kind::job, "", value});
        else
            settings.push_back({Setting::Kind::property, option->get_single_name(), value});
    }
    return settings;
}

// The command line as CLI11 sees it, and what it found.
struct Commands {
    CLI::App app{"tovarek"};
    CLI::App* generate = app.add_subcommand("generate");
    CLI::App* errors = app.add_subcommand("errors");
    CLI::App* catalog = app.add_subcommand("catalog");
    CLI::App* list = catalog->add_subcommand("list");
    CLI::App* show = catalog->add_subcommand("show");
    CLI::App* dump = app.add_subcommand("dump");
    CLI::App* diff = app.add_subcommand("diff");

    OutputFormat format = OutputFormat::text;
    bool version = false;
    CatalogPlace place;
    std::string typeName;
    std::string file;       // of dump, and the first one of diff
    std::string otherFile;  // the second one of diff
    bool bytes = false;
    CLI::Option* pairs = nullptr;
    CLI::Option* jobs = nullptr;

    Commands() {
        app.allow_extras();
        app.add_flag("--version", version);
        AddFormat(app);
        for (CLI::App* command : {generate, errors, catalog, list, show, dump, diff}) {
            command->allow_extras();
            AddFormat(*command);
        }
        pairs = AddSetting("--set");
        jobs = AddSetting("--job");
        for (const Property& property : Properties())
            AddSetting("--" + std::string(property.name));
        for (CLI::App* command : {catalog, list, show, dump}) {
            command->add_option("--catalogDir", place.folder);
            command->add_option("--catalogFile", place.file);
        }
        show->add_option("NAME", typeName);
        dump->add_option("FILE", file);
        dump->add_flag("--bytes", bytes);
        diff->add_option("A", file);
        diff->add_option("B", otherFile);
    }

    CLI::Option* AddSetting(const std::string& name) {
        return generate->add_option(name)->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }

    void AddFormat(CLI::App& command) {
        static const std::map<std::string, OutputFormat> kFormats = {{"text", OutputFormat::text},
                                                                     {"json", OutputFormat::json}};
        command.add_option("--format", format)
            ->transform(CLI::CheckedTransformer(kFormats))
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }

    // The names of the options of the innermost command that was given.
    std::vector<std::string> KnownWords() const {
        const CLI::App* command = &app;
        while (!command->get_subcommands().empty())
            command = command->get_subcommands().front();
        std::vector<std::string> words;
        for (const CLI::Option* option : command->get_options())
            words.push_back(option->get_name());
        for (const CLI::App* sub : command->get_subcommands({}))
            words.push_back(sub->get_name());
        return words;
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

int RefuseExtra(const Commands& commands, const std::string& extra, Streams streams) {
    const std::string word = extra.substr(0, extra.find('='));
    const char* kind = word.starts_with("-") ? "unknown option '" : "unexpected '";
    return ReportWrongUse(kind + word + "'" + DidYouMean(word, commands.KnownWords()), commands.format,
                          streams);
}

int RunParsed(const Commands& commands, const std::string& program, Streams streams) {
    const bool isJson = commands.format == OutputFormat::json;
    if (commands.version) {
        streams.out << (isJson ? "{\"version\": \"" TOVAREK_VERSION "\"}\n"
                               : "tovarek " TOVAREK_VERSION "\n");
        return kDone;
    }
    if (const std::vector<std::string> extras = commands.app.remaining(true); !extras.empty())
        return RefuseExtra(commands, extras.front(), streams);
    if (commands.generate->parsed())
        return RunGenerate(SettingsInOrder(*commands.generate, commands.pairs, commands.jobs),
                           commands.format, streams);
    if (commands.errors->parsed())
        return RunErrors(commands.format, streams);
    if (commands.list->parsed())
        return RunCatalogList(commands.place, commands.format, streams);
    if (commands.show->parsed()) {
        if (commands.typeName.empty())
            return ReportWrongUse("catalog show wants the name of a type", commands.format, streams);
        return RunCatalogShow(commands.place, commands.typeName, commands.format, streams);
    }
    if (commands.dump->parsed()) {
        if (commands.file.empty())
            return ReportWrongUse("dump wants a file", commands.format, streams);
        return RunDump(commands.file, {commands.format, commands.bytes, commands.place}, streams);
    }
    if (commands.diff->parsed()) {
        if (commands.file.empty() || commands.otherFile.empty())
            return ReportWrongUse("diff wants two files", commands.format, streams);
        return RunDiff(commands.file, commands.otherFile, commands.format, streams);
    }
    if (commands.catalog->parsed())
        return ReportWrongUse("catalog wants 'list' or 'show NAME'", commands.format, streams);
    if (isJson)
        return ReportWrongUse("no command was given", commands.format, streams);
    WriteHelp(program, streams.error);
    return kWrongUse;
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
        if (commands.generate->parsed())
            WriteGenerateHelp(streams.out);
        else
            WriteHelp(program, streams.out);
        return kDone;
    } catch (const CLI::Error& error) {
        return ReportWrongUse(error.what(), WantedFormat(arguments), streams);
    }
    return RunParsed(commands, program, streams);
}

}  // namespace tovarek
