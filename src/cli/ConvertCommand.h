// tovarek convert: one form of a device's description into others.
#pragma once

#include "cli/Conversion.h"
#include "cli/Report.h"

namespace tovarek {

// Text: what was written on standard output, replacements and losses line by line on standard error. JSON: an
// object of all three. Answers kFailed where `isStrict` and a loss counts.
int ReportConversion(const ConversionResult& result, bool isStrict, OutputFormat format, Streams streams);

int RunConvert(const ConvertOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
