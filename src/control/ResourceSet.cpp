#include "control/ResourceSet.h"

#include <algorithm>
#include <vector>

#include "base/Error.h"
#include "base/Path.h"
#include "base/Text.h"
#include "formats/format/FormatFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/records/ResourceKinds.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// Told by its content: a set may be written with an extension of the user's own.
bool IsLanguageFile(const std::string& path) {
    constexpr std::string_view kMagic = RowOf(ResourceKind::language).magic;
    try {
        return FileExists(path) && ReadFile(path, kMagic.size()) == kMagic;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace

ResourceSetFiles FindResourceSet(const std::string& path) {
    const std::string folder = FolderOf(path);
    const std::string stem = AsciiLowerCase(StemOf(path));

    std::vector<std::string> names = DirectoryEntries(folder.empty() ? "." : folder);
    std::sort(names.begin(), names.end());  // folders are listed in no order
    ResourceSetFiles files;
    std::vector<std::string> others;
    for (const std::string& name : names) {
        // A name without a point counts: Windows drops the point of one that ends with it.
        if (AsciiLowerCase(StemOf(name)) != stem)
            continue;
        const std::string extension = ExtensionOf(name);
        if (extension == RowOf(ResourceKind::type).extension) {
            files.types = folder + name;
        } else if (extension == RowOf(ResourceKind::profile).extension) {
            files.profiles = folder + name;
        } else if (extension == kFormatExtension) {
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
