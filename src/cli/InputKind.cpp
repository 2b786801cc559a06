#include "cli/InputKind.h"

#include "base/Text.h"

namespace tovarek {
namespace {

// What only inputs of a kind hold, in capitals. The first row that fits counts: a template may hold what a
// type does.
struct InputRow {
    char first;  // character that is not blank
    std::string_view mark;
    std::string_view name;
    std::string_view option;
};
constexpr InputRow kInputMarks[] = {
    {'<', "<XIF_LINE", "an XML profile", "--xmlProfileFile"},
    {'<', "<NVS", "an XML template", "--xmlTemplateFile"},
    {'<', "<CPS", "an XML template", "--xmlTemplateFile"},
    {'<', "<PROGRAMID", "an XML template", "--xmlTemplateFile"},
    {'<', "<UCPTS", "a user type file", "--userTypeFilePath FOLDER"},
    {'<', "<UNVTS", "a user type file", "--userTypeFilePath FOLDER"},
    {'<', "<TYPE>", "an XML format file", "--typeFilesXMLFormat"},
    {'{', "FILE\"", "a job file", "--job"},
    {'\0', "[LINE6]", "an INI profile", "--iniProfileFile"},
    {'\0', "[NVS]", "an INI template", "--iniTemplateFile"},
    {'\0', "[GENERAL]", "an INI template", "--iniTemplateFile"},
};

constexpr std::string_view kMark = "\xEF\xBB\xBF";

}  // namespace

std::string InputHint(std::string_view bytes) {
    if (bytes.starts_with(kMark))
        bytes.remove_prefix(kMark.size());
    const std::size_t begin = bytes.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return {};
    const std::string upper = UpperCase(bytes);
    for (const InputRow& row : kInputMarks)
        if ((row.first == '\0' || row.first == bytes[begin]) && upper.find(row.mark) != std::string::npos)
            return "this looks like " + std::string(row.name) + ", which 'tovarek generate " +
                   std::string(row.option) + "' takes; dump and diff take what generate writes";
    return {};
}

}  // namespace tovarek
