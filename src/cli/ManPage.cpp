#include "cli/ManPage.h"

#include "cli/Help.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

// `text` as groff shows it: its hyphens are those that are typed, and no line of it is a request.
std::string Groff(std::string_view text) {
    std::string escaped;
    for (const char each : text) {
        if (each == '-')
            escaped += "\\-";
        else if (each == '\\')
            escaped += "\\e";
        else if (each == '\'')
            escaped += "\\(aq";
        else
            escaped += each == '\n' ? ' ' : each;
    }
    return "\\&" + escaped;
}

std::string Row(const OptionRow& row) {
    return ".TP\n.B " + Groff(row.name) +
           (row.argument.empty() ? "" : " \\fI" + Groff(row.argument) + "\\fR") + '\n' + Groff(row.help) +
           '\n';
}

std::string Section(const Verb& verb) {
    std::string text = ".SS " + Groff("tovarek " + UsageOf(verb)) + '\n' + Groff(verb.summary) + ".\n";
    if (!verb.note.empty())
        text += ".PP\n" + Groff(verb.note) + '\n';
    for (const OptionRow& row : verb.options)
        text += Row(row);
    if (!verb.example.empty())
        text += ".PP\nExample:\n.RS\n" + Groff(verb.example) + "\n.RE\n";
    return text;
}

}  // namespace

std::string ManPage() {
    std::string text = ".TH TOVAREK 1 \"\" \"tovarek " TOVAREK_VERSION
                       "\" \"User commands\"\n"
                       ".SH NAME\ntovarek \\- " +
                       Groff(kPurpose) +
                       "\n.SH SYNOPSIS\n.B tovarek\n.I COMMAND\n[\\fIOPTIONS\\fR]\n"
                       ".SH DESCRIPTION\n" +
                       Groff(kRemarks) + "\n.SH OPTIONS OF ALL COMMANDS\n";
    for (const OptionRow& row : CommonOptions())
        text += Row(row);
    text += ".SH COMMANDS\n";
    for (const Verb& verb : Verbs())
        if (!verb.summary.empty())
            text += Section(verb);
    return text;
}

}  // namespace tovarek
