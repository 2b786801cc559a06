// The record of one generated resource file.
#pragma once

#include <cstdint>
#include <string>

namespace tovarek {

// Kinds of files as the list of generated files numbers them.
enum ResourceFileKind : std::int32_t {
    fileLanguage = 2,
    fileTypes = 3,
    fileProfiles = 4,
    fileFormats = 5,
};

struct CResFile {
    std::string name;  // without folder
    ResourceFileKind typeFile = fileLanguage;
    std::int32_t scope = 0;
    std::string programID;
    std::int32_t locale = 0;  // of a language file; 0 for every other kind
};

}  // namespace tovarek
