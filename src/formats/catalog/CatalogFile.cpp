#include "formats/catalog/CatalogFile.h"

#include <algorithm>

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
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        const std::string name(TrimBlanks(std::string_view(text).substr(start, end - start)));
        start = end + 1;
        if (name.empty() || name.starts_with('#'))
            continue;
        std::string folder = (IsAbsolute(name) ? std::string() : FolderOf(path)) + name;
        if (folder.back() != '/' && folder.back() != '\\')
            folder += '\\';
        folders.push_back({name, std::move(folder)});
    }
    return folders;
}

std::string FolderOf(const std::string& path) {
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

}  // namespace tovarek
