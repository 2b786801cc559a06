#include "control/ResourceSet.h"

#include <algorithm>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "formats/language/LanguageFile.h"
#include "system/Files.h"

namespace tovarek {
namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), AsciiLower);
    return text;
}

// Told by its content: a set may be written with an extension of the user's own.
bool IsLanguageFile(const std::string& path) {
    constexpr std::string_view kMagic = "URES";
    try {
        return FileExists(path) && ReadFile(path, kMagic.size()) == kMagic;
    } catch (const Error&) {
        return false;
    }
}

// Where the extension's dot stands, or the end of the name.
std::size_t Dot(const std::string& name) {
    return std::min(name.rfind('.'), name.size());
}

}  // namespace

ResourceSetFiles FindResourceSet(const std::string& path) {
    const std::size_t separator = path.find_last_of("\\/");
    const std::string folder = separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
    const std::string own = path.substr(folder.size());
    const std::string stem = Lower(own.substr(0, Dot(own)));

    std::vector<std::string> names = DirectoryEntries(folder.empty() ? "." : folder);
    std::sort(names.begin(), names.end());  // folders are listed in no order
    ResourceSetFiles files;
    std::vector<std::string> others;
    for (const std::string& name : names) {
        const std::size_t dot = Dot(name);
        if (dot == name.size() || Lower(name.substr(0, dot)) != stem)
            continue;
        const std::string extension = Lower(name.substr(dot + 1));
        if (extension == "typ") {
            files.types = folder + name;
        } else if (extension == "fpt") {
            files.profiles = folder + name;
        } else if (extension == "fmt") {
            files.formats = folder + name;
        } else if (IsLanguageExtension(extension) && (files.language.empty() || extension == "enu")) {
            files.language = folder + name;
        } else {
            others.push_back(folder + name);
        }
    }
    const auto language = std::find_if(others.begin(), others.end(), IsLanguageFile);
    if (files.language.empty() && language != others.end())
        files.language = *language;
    return files;
}

}  // namespace tovarek
