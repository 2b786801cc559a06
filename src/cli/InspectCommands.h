// tovarek dump and tovarek diff: what is in a file, and where two files differ.
#pragma once

#include <string>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct DumpOptions {
    OutputFormat format = OutputFormat::text;
    bool bytes = false;  // every byte in file order instead of the content
    CatalogPlace place;  // the shipped catalog when empty; that one may be missing
};

// Shows a language, type, profile, format or XIF file, or a catalog. A damaged file is kFailed.
int RunDump(const std::string& path, const DumpOptions& options, Streams streams);

// Compares two files of one kind by content: dates, the files' own names and unreferenced bytes do not count,
// and references to strings count by their texts where the language files beside both files tell them. One
// line per difference. kDone when there is none, kDifferent when there are some, kWrongUse for files of two
// kinds or that cannot be read.
int RunDiff(const std::string& before, const std::string& after, OutputFormat format, Streams streams);

}  // namespace tovarek
