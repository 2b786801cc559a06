#include "cli/Locations.h"

#include <filesystem>
#include <initializer_list>

#include "cli/ProgramFile.h"
#include "system/Files.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {
namespace {

namespace fs = std::filesystem;

// Paths of the file system's library from and to UTF-8, whatever the platform makes of bytes.
fs::path PathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}
std::string TextOf(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

// Each of `places`, relative to the program's folder.
std::vector<std::string> Folders(std::initializer_list<const char*> places) {
    const std::string program = ProgramFile();
    std::vector<std::string> folders;
    if (!program.empty())
        for (const char* place : places)
            folders.push_back(TextOf((PathOf(program).parent_path() / place).lexically_normal()));
    return folders;
}

// The first of `folders` that holds `file`; empty when none does.
std::string FirstFolderWith(const std::vector<std::string>& folders, const char* file) {
    for (const std::string& folder : folders)
        if (FileExists(TextOf(PathOf(folder) / file)))
            return folder;
    return {};
}

}  // namespace

std::string ShippedCatalogFolder() {
    return FirstFolderWith(Folders({"catalog", "../share/tovarek/catalog"}), kUsualCatalogFile);
}

std::string ExampleFolder() {
    return FirstFolderWith(Folders({"../../examples/fan-coil", "../share/tovarek/examples/fan-coil"}),
                           "template.ini");
}

std::string BesideFile(const std::string& file, const std::string& path) {
    const fs::path named = PathOf(SystemPath(path));
    const fs::path folder = PathOf(SystemPath(file)).parent_path();
    return path.empty() || folder.empty() || named.has_root_path() ? path : TextOf(folder / named);
}

std::string FromFolderOf(const std::string& file, const std::string& path) {
    std::error_code ignored;
    const fs::path target = fs::absolute(PathOf(SystemPath(path)), ignored);
    const fs::path folder = fs::absolute(PathOf(SystemPath(file)), ignored).parent_path();
    const fs::path relative = target.lexically_proximate(folder);
    return TextOf(relative.empty() ? target : relative);
}

}  // namespace tovarek
