#include "formats/catalog/CatalogFile.h"

#include "base/Path.h"
#include "base/Text.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

std::string_view WithoutMark(std::string_view bytes) {
    constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
    return bytes.starts_with(kUtf8Mark) ? bytes.substr(kUtf8Mark.size()) : bytes;
}

bool IsAbsolute(std::string_view path) {
    return path.starts_with('/') || path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
}

}  // namespace

bool IsCatalogFile(std::string_view bytes) {
    bytes = WithoutMark(bytes);
    return TrimBlanks(bytes.substr(0, bytes.find_first_of("\r\n"))) == kCatalogMark;
}

std::vector<CatalogFolder> ReadCatalogFile(std::string_view bytes, const std::string& path) {
    std::vector<CatalogFolder> folders;
    if (!IsCatalogFile(bytes))
        return folders;
    const std::string text = IsUtf8(bytes) ? std::string(WithoutMark(bytes)) : FromCodePage(bytes);
    for (std::string_view rest = text; !rest.empty();) {
        const std::string name(TrimBlanks(TakeLine(rest)));
        if (name.empty() || name.starts_with('#'))
            continue;
        folders.push_back({name, WithSeparator((IsAbsolute(name) ? "" : FolderOf(path)) + name)});
    }
    return folders;
}

}  // namespace tovarek
