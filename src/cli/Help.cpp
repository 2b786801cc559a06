#include "cli/Help.h"

#include <algorithm>
#include <ostream>

#include "cli/Locations.h"

namespace tovarek {
namespace {

std::string Column(std::string_view text, std::size_t width) {
    std::string column(text);
    column.resize(std::max(column.size() + 1, width), ' ');
    return column;
}

void WriteRow(const std::string& name, std::string_view argument, std::string_view help, std::ostream& out) {
    constexpr std::size_t kColumn = 34;
    out << Column("  " + name + (argument.empty() ? "" : " ") + std::string(argument), kColumn);
    for (const char each : help)
        out << each << (each == '\n' ? std::string(kColumn, ' ') : "");
    out << '\n';
}

void WriteOne(const Verb& verb, std::ostream& out) {
    out << "tovarek " << UsageOf(verb) << ": " << verb.summary << ".\n";
    if (!verb.note.empty())
        out << verb.note << '\n';
    for (const OptionRow& row : verb.options)
        WriteRow(row.name, row.argument, row.help, out);
    const OptionRow format = CommonOptions().front();
    WriteRow(format.name, format.argument, format.help, out);
    if (!verb.example.empty())
        out << "Example: " << verb.example << '\n';
}

}  // namespace

void WriteHelp(const std::string& program, std::ostream& out) {
    const std::string examples = ExampleFolder();
    const std::string folder = examples.empty() ? "examples/fan-coil" : examples;
    out << "tovarek " TOVAREK_VERSION " - " << kPurpose << "\n\n";
    for (const Verb& verb : Verbs())
        if (!verb.summary.empty())
            out << Column("  tovarek " + UsageOf(verb), 36) << verb.summary << '\n';
    out << "\n"
           "  --format json                     results and errors as JSON on standard output\n"
           "  --help, --version                 'tovarek COMMAND --help' tells of one command\n"
           "\n"
        << kRemarks
        << "\n\n"
           "Example:\n"
        << "  " << program << " generate --iniProfileFile " << folder << "/profile.ini \\\n"
        << "      --iniTemplateFile " << folder << "/template.ini --mustGenerateTypes false \\\n"
        << "      --outputXIFfile fan-coil.xif\n";
}

void WriteVerbHelp(const std::string& name, std::ostream& out) {
    for (const Verb& verb : Verbs())
        if (!verb.summary.empty() && (verb.name == name || verb.name.starts_with(name + " ")))
            WriteOne(verb, out);
}

}  // namespace tovarek
