#include "cli/ProgramIdCommand.h"

#include <algorithm>
#include <ostream>

#include "base/Text.h"
#include "cli/Json.h"

namespace tovarek {
namespace {

Json IdJson(const std::string& id) {
    Json json = {{"programID", id}, {"pairs", HexPairs(id)}, {"isStandard", IsStandardProgramId(id)}};
    if (IsStandardProgramId(id))
        for (const ProgramIdField& field : kProgramIdFields)
            json[std::string(field.name)] = id.substr(field.first, field.digits);
    return json;
}

void WriteFields(const std::string& id, std::ostream& out) {
    out << "in XIF files: " << HexPairs(id) << '\n';
    if (!IsStandardProgramId(id)) {
        out << "format: " << id.front()
            << ", not that of a standard program ID (8 or 9): the other digits are not split\n";
        return;
    }
    for (const ProgramIdField& field : kProgramIdFields)
        out << field.name << ": " << id.substr(field.first, field.digits) << "  (" << field.meaning << ")\n";
}

int Split(const std::string& text, OutputFormat format, Streams streams) {
    const std::optional<std::string> id = ProgramIdDigits(Trim(text));
    if (!id)
        return ReportWrongUse(
            "'" + Excerpt(text) +
                "' is not a program ID: give 16 hexadecimal digits, such as 9FFFFF5014030401, or "
                "eight pairs of them joined by ':'",
            format, streams);
    if (format == OutputFormat::json)
        streams.out << JsonText(IdJson(*id)) << '\n';
    else
        WriteFields(*id, streams.out);
    return kDone;
}

// What is wrong with a field that was typed as `text`.
std::string FieldFault(const ProgramIdField& field, const std::string& text) {
    return "--" + std::string(field.name) + " '" + Excerpt(text) + "' does not fit: give up to " +
           std::to_string(field.digits) + " hexadecimal digits";
}

}  // namespace

int RunProgramId(const ProgramIdWords& words, OutputFormat format, Streams streams) {
    const bool hasFields = words.certified || std::any_of(words.fields.begin(), words.fields.end(),
                                                          [](const auto& text) { return !text.empty(); });
    if (!words.whole.empty() && hasFields)
        return ReportWrongUse("program-id takes an ID to split, or the fields to make one of, not both",
                              format, streams);
    if (!words.whole.empty())
        return Split(words.whole, format, streams);
    std::string id = words.certified ? "8" : "9";
    std::string missing;
    for (std::size_t i = 1; i < kProgramIdFields.size(); ++i) {
        const ProgramIdField& field = kProgramIdFields[i];
        const std::optional<std::string> digits = ProgramIdFieldDigits(field, words.fields[i]);
        if (words.fields[i].empty())
            missing += " --" + std::string(field.name);
        else if (!digits)
            return ReportWrongUse(FieldFault(field, words.fields[i]), format, streams);
        id += digits.value_or("");
    }
    if (!missing.empty())
        return ReportWrongUse(
            "program-id needs an ID to split, or all fields to make one of; missing:" + missing, format,
            streams);
    if (format == OutputFormat::json)
        streams.out << JsonText(IdJson(id)) << '\n';
    else
        streams.out << id << '\n';
    return kDone;
}

}  // namespace tovarek
