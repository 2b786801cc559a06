// How errors and results are shown, as text or as JSON.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "check/Check.h"
#include "cli/Streams.h"
#include "explain/ErrorNames.h"

namespace tovarek {

enum class OutputFormat { text, json, markdown, sarif, junit };

// What a run of `generate` comes to.
struct RunReport {
    OutputFormat format = OutputFormat::text;
    Streams streams;
    std::vector<std::string> written{};  // the files that were finished
    std::vector<std::string> kept{};     // those of them that were right as they were
    std::vector<CheckedFinding> warnings{};
};

// Text: one line on standard error with number, name and message, then the context. JSON: one object on
// standard output. Answers kFailed.
int ReportError(const Error& error, OutputFormat format, Streams streams);

// The same for a run that failed, with what it had written and the warnings up to there.
int ReportFailedRun(const Error& error, const RunReport& report);

// What was written, with sizes, on standard output, and the warnings on standard error. Answers kDone.
int ReportRun(const RunReport& report);

// What was written, with sizes, one line a file.
void WriteWritten(const std::vector<std::string>& files, std::ostream& out);

// A fault of the command line itself. Text: on standard error; JSON: an object like that of an error, without
// a number, on standard output. Answers kWrongUse.
int ReportWrongUse(const std::string& message, OutputFormat format, Streams streams);

// Answers what `run` does; a WrongUse or an Error that it raises is reported as above.
int ReportingFaults(OutputFormat format, Streams streams, const std::function<int()>& run);

// As ReportWrongUse, for a name that the catalog does not know. Answers kFailed.
int ReportUnknownType(const std::string& message, OutputFormat format, Streams streams);

// As ReportUnknownType, for a value that does not fit its type.
int ReportBadValue(const std::string& message, OutputFormat format, Streams streams);

}  // namespace tovarek
