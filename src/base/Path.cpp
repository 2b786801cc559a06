#include "base/Path.h"

#include "base/Text.h"

namespace tovarek {

std::string FolderOf(std::string_view path) {
    return std::string(path.substr(0, path.find_last_of(kPathSeparators) + 1));
}

std::string_view NameOf(std::string_view path) {
    return path.substr(path.find_last_of(kPathSeparators) + 1);
}

std::string_view StemOf(std::string_view path) {
    const std::string_view name = NameOf(path);
    return name.substr(0, name.rfind('.'));
}

std::string ExtensionOf(std::string_view path) {
    const std::string_view name = NameOf(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string() : AsciiLowerCase(name.substr(dot + 1));
}

std::string WithSeparator(std::string_view folder) {
    return std::string(folder) + (folder.empty() || EndsWithSeparator(folder) ? "" : "\\");
}

std::string WithFinalBackslash(std::string_view folder) {
    return std::string(folder) + (folder.ends_with('\\') ? "" : "\\");
}

}  // namespace tovarek
