// What the resource files take from the component's properties.
#pragma once

#include <cstdint>
#include <string>

namespace tovarek {

struct TypeFilesSettings {
    std::string typeFilesDirectory;
    std::string typeFilesBaseName;
    std::string creator = "Tovarek";
    std::string creatorDescription = "Tovarek utility";
    std::string webPage;
    std::string email;
    std::string phone;
    std::int32_t localeID = 1033;  // English (United States)
    std::string langExtension = "ENU";
    std::string typeFileDescription = "Type file";
    std::string langFileDescription = "Lang file";
    std::string fptFileDescription = "Functional profile file";
    std::int32_t majorVersion = 1;
    std::int32_t minorVersion = 0;
};

}  // namespace tovarek
