// tovarek convert: one form of a device's description into others.
#pragma once

#include <string>
#include <vector>

#include "cli/OpenCatalog.h"
#include "cli/Report.h"

namespace tovarek {

struct ConvertOptions {
    std::vector<std::string>
        inputs;  // files; of an XML file FILE#ELEMENT where it is not the document element
    // Outputs; empty ones are not written.
    std::string profile;         // .ini or .xml
    std::string deviceTemplate;  // likewise
    std::string formatFile;      // .xml, of resource files
    std::string userTypes;       // likewise
    std::string job;
    std::string fit;                // "4.0": the profile is made into one that passes
    std::vector<std::string> sets;  // FIELD=VALUE for it
    bool isStrict = false;          // a loss is a failure
    CatalogPlace place;
};

// Text: what was written on standard output, losses line by line on standard error. JSON: an object of
// `written` and `losses`.
int RunConvert(const ConvertOptions& options, OutputFormat format, Streams streams);

}  // namespace tovarek
