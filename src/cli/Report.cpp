#include "cli/Report.h"

#include <ostream>

#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/Json.h"
#include "report/FindingText.h"
#include "system/Files.h"

namespace tovarek {
namespace {

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

Json ErrorJson(const Error& error) {
    return {{"error", error.Number()},           {"code", ErrorNumberText(error.Number())},
            {"name", ErrorName(error.Number())}, {"description", error.Description()},
            {"source", error.Source()},          {"context", ContextJson(error.Context())}};
}

void WriteError(const Error& error, std::ostream& out) {
    out << "tovarek: error " << ErrorNumberText(error.Number()) << ' ' << ErrorName(error.Number()) << ": "
        << error.Description() << '\n';
    WriteContext(error.Context(), out);
}

void AddRun(const RunReport& report, Json& json) {
    json["written"] = WrittenJson(report.written);
    if (!report.kept.empty())
        json["kept"] = report.kept;
    if (!report.warnings.empty())
        json["warnings"] = FindingsJson(report.warnings);
}

// A fault that is no error of the generator: it has a name but no number. `advice`: of the text alone.
void WriteFault(const char* name, const std::string& message, const std::string& advice, OutputFormat format,
                Streams streams) {
    if (format != OutputFormat::json) {
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

void WriteWritten(const std::vector<std::string>& files, std::ostream& out) {
    for (const std::string& file : files)
        out << "wrote " << SystemPath(file) << " (" << StampOf(file).size << " bytes)\n";
}

namespace {

void WriteFiles(const RunReport& report) {
    WriteWritten(report.written, report.streams.out);
    for (const std::string& file : report.kept)
        report.streams.out << "kept " << SystemPath(file) << ": nothing but its date would change\n";
}

}  // namespace

int ReportError(const Error& error, OutputFormat format, Streams streams) {
    if (format == OutputFormat::json)
        streams.out << JsonText(ErrorJson(error)) << '\n';
    else
        WriteError(error, streams.error);
    return kFailed;
}

int ReportFailedRun(const Error& error, const RunReport& report) {
    if (report.format == OutputFormat::json) {
        Json json = ErrorJson(error);
        AddRun(report, json);
        report.streams.out << JsonText(json) << '\n';
        return kFailed;
    }
    WriteFiles(report);
    WriteFindings(report.warnings, false, report.streams.error);
    WriteError(error, report.streams.error);
    return kFailed;
}

int ReportRun(const RunReport& report) {
    if (report.format == OutputFormat::json) {
        Json json = Json::object();
        AddRun(report, json);
        report.streams.out << JsonText(json) << '\n';
        return kDone;
    }
    WriteFiles(report);
    if (report.written.empty() && report.kept.empty())
        report.streams.out << "nothing to write: the template is in order\n";
    WriteFindings(report.warnings, false, report.streams.error);
    return kDone;
}

int ReportWrongUse(const std::string& message, OutputFormat format, Streams streams) {
    const std::string command = streams.command.empty() ? "" : ' ' + std::string(streams.command);
    WriteFault("wrongUse", message, "Try 'tovarek" + command + " --help'.\n", format, streams);
    return kWrongUse;
}

int ReportingFaults(OutputFormat format, Streams streams, const std::function<int()>& run) {
    try {
        return run();
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

int ReportUnknownType(const std::string& message, OutputFormat format, Streams streams) {
    WriteFault("unknownType", message, "", format, streams);
    return kFailed;
}

int ReportBadValue(const std::string& message, OutputFormat format, Streams streams) {
    WriteFault("badValue", message, "", format, streams);
    return kFailed;
}

}  // namespace tovarek
