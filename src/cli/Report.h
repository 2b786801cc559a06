// How errors and results are shown, as text or as JSON.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "cli/Streams.h"

namespace tovarek {

enum class OutputFormat { text, json };

// The public name of an error number: one of eErrors, or a runtime error's; "unknown" for any other.
std::string_view ErrorName(std::int32_t number);

// "0x80040037" for the component's own errors, "53" for runtime errors.
std::string ErrorNumberText(std::int32_t number);

// Text: one line on standard error with number, name and message, then the context. JSON: one object on
// standard output. Answers kFailed. `written`: the files that a run had written before it failed; they are
// listed as ReportWritten does. Null for commands that write none.
int ReportError(const Error& error, OutputFormat format, Streams streams,
                const std::vector<std::string>* written = nullptr);

// A fault of the command line itself. Text: on standard error; JSON: an object like that of an error, without
// a number, on standard output. Answers kWrongUse.
int ReportWrongUse(const std::string& message, OutputFormat format, Streams streams);

// As ReportWrongUse, for a name that the catalog does not know. Answers kFailed.
int ReportUnknownType(const std::string& message, OutputFormat format, Streams streams);

// What was written, with sizes, on standard output. Answers kDone.
int ReportWritten(const std::vector<std::string>& files, OutputFormat format, Streams streams);

}  // namespace tovarek
