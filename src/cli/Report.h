// How errors and results are shown, as text or as JSON.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/CommandLine.h"
#include "support/Error.h"

namespace tovarek {

enum class OutputFormat { text, json };

// The public name of an error number: one of eErrors, or a runtime error's; "unknown" for any other.
std::string_view ErrorName(std::int32_t number);

// "0x80040037" for the component's own errors, "53" for runtime errors.
std::string ErrorNumberText(std::int32_t number);

// Text: one line on standard error with number, name and message, then the context. JSON: one object on
// standard output. Answers kFailed.
int ReportError(const Error& error, OutputFormat format, Streams streams);

// A fault of the command line itself, on standard error. Answers kWrongUse.
int ReportWrongUse(const std::string& message, Streams streams);

// What was written, with sizes, on standard output. Answers kDone.
int ReportWritten(const std::vector<std::string>& files, OutputFormat format, Streams streams);

// The candidate that is most like `word` (edit distance, letter case apart), or empty when none is near.
std::string Nearest(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace tovarek
