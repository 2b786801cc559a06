#include "cli/Report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

#include "base/ErrorTable.h"
#include "base/Text.h"
#include "cli/Json.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// One line whatever the input held.
std::string OneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return line;
}

Json ContextJson(const ErrorContext& context) {
    Json json = Json::object();
    const auto put = [&json](const char* key, const std::string& value) {
        if (!value.empty())
            json[key] = value;
    };
    put("record", context.record);
    put("field", context.field);
    if (!context.field.empty() || !context.value.empty())
        json["value"] = context.value;
    put("file", SystemPath(context.file));
    if (context.line > 0)
        json["line"] = context.line;
    put("reason", context.reason);
    return json;
}

void WriteContext(const ErrorContext& context, std::ostream& out) {
    if (!context.record.empty())
        out << "  in:    " << OneLine(context.record) << '\n';
    if (!context.field.empty())
        out << "  field: " << OneLine(context.field) << '\n';
    if (!context.field.empty() || !context.value.empty())
        out << "  value: \"" << OneLine(context.value) << "\"\n";
    if (!context.file.empty()) {
        out << "  at:    " << OneLine(SystemPath(context.file));
        if (context.line > 0)
            out << ':' << context.line;
        out << '\n';
    }
    if (!context.reason.empty())
        out << "  why:   " << OneLine(context.reason) << '\n';
}

Json WrittenJson(const std::vector<std::string>& files) {
    Json written = Json::array();
    for (const std::string& file : files)
        written.push_back({{"file", SystemPath(file)}, {"bytes", StampOf(file).size}});
    return written;
}

void WriteWritten(const std::vector<std::string>& files, std::ostream& out) {
    for (const std::string& file : files)
        out << "wrote " << SystemPath(file) << " (" << StampOf(file).size << " bytes)\n";
}

// A fault that is no error of the generator: it has a name but no number. `advice`: of the text alone.
void WriteFault(const char* name, const std::string& message, const char* advice, OutputFormat format,
                Streams streams) {
    if (format == OutputFormat::text) {
        streams.error << "tovarek: " << message << '\n' << advice;
        return;
    }
    streams.out << JsonText({{"error", nullptr},
                             {"code", nullptr},
                             {"name", name},
                             {"description", message},
                             {"source", "tovarek"},
                             {"context", Json::object()}})
                << '\n';
}

}  // namespace

std::string_view ErrorName(std::int32_t number) {
    if (const ErrorRow* row = FindErrorRow(number))
        return row->name;
    const std::string_view runtime = RuntimeErrorName(number);
    return runtime.empty() ? "unknown" : runtime;
}

std::string ErrorNumberText(std::int32_t number) {
    if (number >= 0)
        return std::to_string(number);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(number));
    return text.data();
}

int ReportError(const Error& error, OutputFormat format, Streams streams,
                const std::vector<std::string>* written) {
    if (format == OutputFormat::json) {
        Json json = {{"error", error.Number()},           {"code", ErrorNumberText(error.Number())},
                     {"name", ErrorName(error.Number())}, {"description", error.Description()},
                     {"source", error.Source()},          {"context", ContextJson(error.Context())}};
        if (written != nullptr)
            json["written"] = WrittenJson(*written);
        streams.out << JsonText(json) << '\n';
        return kFailed;
    }
    if (written != nullptr)
        WriteWritten(*written, streams.out);
    streams.error << "tovarek: error " << ErrorNumberText(error.Number()) << ' ' << ErrorName(error.Number())
                  << ": " << error.Description() << '\n';
    WriteContext(error.Context(), streams.error);
    return kFailed;
}

int ReportWrongUse(const std::string& message, OutputFormat format, Streams streams) {
    WriteFault("wrongUse", message, "Try 'tovarek --help'.\n", format, streams);
    return kWrongUse;
}

int ReportUnknownType(const std::string& message, OutputFormat format, Streams streams) {
    WriteFault("unknownType", message, "", format, streams);
    return kFailed;
}

int ReportWritten(const std::vector<std::string>& files, OutputFormat format, Streams streams) {
    if (format == OutputFormat::json) {
        streams.out << JsonText({{"written", WrittenJson(files)}}) << '\n';
        return kDone;
    }
    WriteWritten(files, streams.out);
    if (files.empty())
        streams.out << "nothing to write: the template is in order\n";
    return kDone;
}

}  // namespace tovarek
