// The verbs that take a device's files.
#include "cli/ConvertCommand.h"
#include "cli/InspectCommands.h"
#include "cli/InterfaceDiffCommand.h"
#include "cli/NewCommand.h"
#include "cli/ShowCommand.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

int Show(const Given& given, Streams streams) {
    return RunShow({given.All("FILE"), given.Text("--as", "text"), given.Catalog()}, given.format, streams);
}

int Dump(const Given& given, Streams streams) {
    const std::string file = given.Text("FILE");
    if (file.empty())
        return ReportWrongUse("dump needs a file to show", given.format, streams);
    return RunDump(file, {given.format, given.Has("--bytes"), given.Catalog()}, streams);
}

int Diff(const Given& given, Streams streams) {
    const std::string a = given.Text("A");
    const std::string b = given.Text("B");
    const std::string known = given.Text("--known");
    const bool ofInterface = given.Has("--interface");
    const bool isKnown = ofInterface && !known.empty() && b.empty();
    if (a.empty() || (b.empty() && !isKnown))
        return ReportWrongUse("diff needs two files to compare", given.format, streams);
    if (ofInterface)
        return RunInterfaceDiff({{isKnown ? "" : a, given.All("--old-types")},
                                 {isKnown ? a : b, given.All("--new-types")},
                                 known,
                                 given.Catalog()},
                                given.format, streams);
    for (const char* option : {"--known", "--old-types", "--new-types"})
        if (given.Has(option))
            return ReportWrongUse(std::string(option) + " belongs to diff --interface", given.format,
                                  streams);
    if (given.format != OutputFormat::text && given.format != OutputFormat::json)
        return ReportWrongUse("the formats markdown and sarif belong to diff --interface", OutputFormat::text,
                              streams);
    return RunDiff(a, b, given.format, streams);
}

int Convert(const Given& given, Streams streams) {
    return RunConvert({.inputs = given.All("INPUT"),
                       .profile = given.Text("--profile"),
                       .deviceTemplate = given.Text("--template"),
                       .formatFile = given.Text("--format-file"),
                       .userTypes = given.Text("--user-types"),
                       .job = given.Text("--job"),
                       .fit = given.Text("--fit"),
                       .sets = given.All("--set"),
                       .isStrict = given.Has("--strict"),
                       .place = given.Catalog()},
                      given.format, streams);
}

int New(const Given& given, Streams streams) {
    return RunNew({.folder = given.Text("NAME"),
                   .like = given.Text("--like"),
                   .from = given.Text("--from"),
                   .isAll = given.Has("--all"),
                   .sets = given.All("--set"),
                   .form = given.Text("--form", "ini"),
                   .place = given.Catalog()},
                  given.format, streams);
}

}  // namespace

std::vector<Verb> FileVerbs() {
    return {
        {"new", "NAME [OPTIONS]", "a folder with all inputs of a device to start from",
         "NAME is the folder, which must not exist yet. A job in it generates as it stands; its README.md "
         "says\n"
         "what to change first.",
         "tovarek new pump --like fan-coil",
         Join({{"--like", "DEVICE", "fan-coil, sensor or switch"},
               {"--from", "FILE", "the profile is that of this XIF file, of any version"},
               {"--all", "",
                "with it: the template too, and the types of resource files beside it that\n"
                "have its program ID"},
               {"--set", "FIELD=VALUE", "with it: a value that XIF 4.0 knows, such as typeNeuron=0", true},
               {"--form", "ini|xml", "the form of profile and template, ini by default"}},
              CatalogOptions()),
         New},
        {"show", "FILE... [OPTIONS]", "a device for people: its objects, variables, properties and types",
         "FILE is an XIF file, a job (.json), or a template, .ini or .xml (FILE#ELEMENT where it is not the\n"
         "document element), with its profile. Files of the device's own resource sets may stand beside it;\n"
         "else those count that lie beside an XIF file and have its program ID, or that a job would "
         "generate.",
         "tovarek show fan-coil.xif --as html",
         Join({{"--as", "text",
                "for the terminal, no line is longer than it is wide; or markdown, for a\n"
                "review; html, one page for screens and paper; svg, the drawing alone"}},
              CatalogOptions()),
         Show},
        {"dump",
         "FILE [--bytes]",
         "show a resource, format, catalog or XIF file",
         "",
         "tovarek dump fan-coil.xif",
         {{"--bytes", "", "every byte in file order; damaged files too"},
          {"--catalogDir", "DIR", "the catalog that names of standard types come from"},
          {"--catalogFile", "FILE", "its file name, ldrf.cat by default"}},
         Dump},
        {"diff",
         "A B",
         "compare the content of two such files",
         "",
         "tovarek diff --interface fan-coil.xif template.ini",
         {{"--interface", "",
           "may B ship under the program ID of A? Both are XIF files, templates\n"
           "(.ini, .xml) or jobs (.json); exit status 1 when it may not"},
          {"--known", "DIR",
           "with it: folder of the XIF files that were released; without A the one with\n"
           "B's program ID is compared, and the next free model number is named"},
          {"--old-types", "FILE",
           "with it: a type file (.typ) of A; may be repeated for other scopes. An\n"
           "XIF file without has those beside it that have its program ID",
           true},
          {"--new-types", "FILE", "the same of B", true},
          {"--format", "markdown", "with it: a table for a review"},
          {"--format", "sarif", "with it: for code hosts, SARIF 2.1.0"},
          {"--catalogDir", "DIR", "with it: folder of another catalog than the shipped one"},
          {"--catalogFile", "FILE", "its file name, ldrf.cat by default"}},
         Diff},
        {"convert", "INPUT... [OPTIONS]",
         "an XIF file, resource files, or a profile and a template, as other inputs",
         "INPUT is an XIF file of any version, a file of a resource set (.typ, .enu, .fmt), or a profile or\n"
         "template, .ini or .xml (FILE#ELEMENT where it is not the document element). Resource files go "
         "alone "
         "or\n"
         "with an XIF file. What an output cannot hold is listed.",
         "tovarek convert fan-coil.xif --profile old.ini --template old.xml --job old.json",
         Join({{"--profile", "FILE", "writes a profile, .ini or .xml"},
               {"--template", "FILE", "writes a template, .ini or .xml"},
               {"--format-file", "FILE", "writes the types of resource files, .xml"},
               {"--user-types", "FILE", "writes a user type file of those of the scopes 1 to 5, .xml"},
               {"--job", "FILE", "writes a job that generates with them"},
               {"--fit", "4.0", "replaces values of later versions that XIF 4.0 does not know"},
               {"--set", "FIELD=VALUE", "for it: a value of the profile, such as typeNeuron=0", true},
               {"--strict", "", "exit status 1 when something is not held"}},
              CatalogOptions()),
         Convert},
    };
}

}  // namespace tovarek
