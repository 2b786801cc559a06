#include "cli/Formats.h"

#include <algorithm>

#include "base/Text.h"

namespace tovarek {
namespace {

struct FormatRow {
    std::string_view name;
    OutputFormat format;
};
constexpr FormatRow kFormats[] = {
    {"text", OutputFormat::text},   {"json", OutputFormat::json},   {"markdown", OutputFormat::markdown},
    {"sarif", OutputFormat::sarif}, {"junit", OutputFormat::junit},
};

}  // namespace

std::optional<OutputFormat> FormatOf(std::string_view name) {
    for (const FormatRow& row : kFormats)
        if (row.name == name)
            return row.format;
    return std::nullopt;
}

std::string FaultOfFormat(std::string_view name, const Verb* verb) {
    std::vector<std::string_view> names = {"text", "json"};
    if (verb != nullptr)
        for (const OptionRow& row : verb->options)
            if (row.name == "--format")
                names.push_back(row.argument);
    if (std::find(names.begin(), names.end(), name) != names.end())
        return {};
    std::string choice;
    for (const std::string_view each : names)
        choice += (choice.empty() ? "" : " or ") + ("--format " + std::string(each));
    return "there is no output format '" + Excerpt(name) + "'" +
           (FormatOf(name) && verb != nullptr ? " for 'tovarek " + std::string(verb->name) + "'" : "") +
           "; give " + choice;
}

}  // namespace tovarek
