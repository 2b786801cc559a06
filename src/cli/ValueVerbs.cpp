// The verbs for values of types and for program IDs.
#include "cli/ProgramIdCommand.h"
#include "cli/ValueCommand.h"
#include "cli/Verbs.h"

namespace tovarek {
namespace {

constexpr std::string_view kValueNote =
    "TYPE is a standard type by name or number, or one of the files below. VALUE is a number, a name, a "
    "text,\n"
    "member=value for each member of a structure, or the elements of an array.";

std::vector<OptionRow> ValueRows() {
    return Join({{"--of", "TYPE", "the variable's type, for properties that take it"},
                 {"--typeFilesXMLFormat", "FILE", "format file; TYPE is then a number above 255 in it"},
                 {"--typeFilesXMLPrefix", "PREFIX", "prefix of its type elements, SNVT_ by default"},
                 {"--typeFile", "FILE", "type file (.typ) of a device"}},
                CatalogOptions());
}

ValueOptions ValueOf(const Given& given, std::string_view operand) {
    ValueOptions options{.place = given.Catalog(),
                         .type = given.Text("TYPE"),
                         .of = given.Text("--of"),
                         .formatFile = given.Text("--typeFilesXMLFormat"),
                         .typeFile = given.Text("--typeFile"),
                         .value = given.All(operand)};
    options.prefix = given.Text("--typeFilesXMLPrefix", options.prefix);
    return options;
}

int Encode(const Given& given, Streams streams) {
    const ValueOptions options = ValueOf(given, "VALUE");
    if (options.type.empty() || options.value.empty())
        return ReportWrongUse("value encode needs a type and a value of it", given.format, streams);
    return RunValueEncode(options, given.format, streams);
}

int Decode(const Given& given, Streams streams) {
    const ValueOptions options = ValueOf(given, "BYTES");
    if (options.type.empty() || options.value.empty())
        return ReportWrongUse("value decode needs a type and bytes in hexadecimal", given.format, streams);
    return RunValueDecode(options, given.format, streams);
}

int AskForDirection(const Given& given, Streams streams) {
    return ReportWrongUse("value needs a command: encode TYPE VALUE or decode TYPE BYTES", given.format,
                          streams);
}

std::string OptionOf(const ProgramIdField& field) {
    return "--" + std::string(field.name);
}

// All fields but the first one, which --certified tells.
std::vector<OptionRow> ProgramIdRows() {
    std::vector<OptionRow> rows;
    for (std::size_t i = 1; i < kProgramIdFields.size(); ++i)
        rows.push_back({OptionOf(kProgramIdFields[i]), "DIGITS", kProgramIdFields[i].meaning});
    return Join(std::move(rows), {{"--certified", "", "format 8 instead of 9"}});
}

int SplitOrMake(const Given& given, Streams streams) {
    ProgramIdWords words{.whole = given.Text("ID"), .fields = {}, .certified = given.Has("--certified")};
    for (std::size_t i = 1; i < kProgramIdFields.size(); ++i)
        words.fields[i] = given.Text(OptionOf(kProgramIdFields[i]));
    return RunProgramId(words, given.format, streams);
}

}  // namespace

std::vector<Verb> ValueVerbs() {
    return {
        {"value", "", "", "", "", {}, AskForDirection},
        {"value encode", "TYPE VALUE...", "a value as the bytes that devices send", kValueNote,
         "tovarek value encode SCPTmaxSendTime 60", ValueRows(), Encode},
        {"value decode", "TYPE BYTES...", "such bytes, in hexadecimal, as a value", kValueNote,
         "tovarek value decode SNVT_switch C801", ValueRows(), Decode},
        {"program-id", "[ID]", "split a program ID, or make one of its fields",
         "Without ID all of these, in hexadecimal:",
         "tovarek program-id --maker FFFFF --class 5014 --usage 03 --channel 04 --model 01", ProgramIdRows(),
         SplitOrMake},
    };
}

}  // namespace tovarek
