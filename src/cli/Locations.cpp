#include "cli/Locations.h"

#include <filesystem>
#include <initializer_list>
#include <system_error>

#include "support/Files.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {
namespace {

namespace fs = std::filesystem;

// The first of `places`, relative to the program's folder, that holds `file`; empty when none does.
std::string FirstFolderWith(std::initializer_list<const char*> places, const char* file) {
    std::error_code none;
    const fs::path program = fs::read_symlink("/proc/self/exe", none);
    if (none)
        return {};
    for (const char* place : places) {
        const fs::path folder = (program.parent_path() / place).lexically_normal();
        if (FileExists((folder / file).string()))
            return folder.string();
    }
    return {};
}

}  // namespace

std::string ShippedCatalogFolder() {
    return FirstFolderWith({"catalog", "../share/tovarek/catalog"}, kUsualCatalogFile);
}

std::string ExampleFolder() {
    return FirstFolderWith({"../../examples/fan-coil", "../share/tovarek/examples/fan-coil"}, "template.ini");
}

}  // namespace tovarek
