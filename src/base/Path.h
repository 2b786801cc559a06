// Paths as text. Folders are separated by "\\" or "/" on every platform: paths come from files and jobs of
// other machines as well. Nothing here asks the disk.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

inline constexpr std::string_view kPathSeparators = "\\/";

constexpr bool EndsWithSeparator(std::string_view path) {
    return !path.empty() && kPathSeparators.find(path.back()) != std::string_view::npos;
}

// The part of a path up to its last separator, that included; empty when there is none.
std::string FolderOf(std::string_view path);

// What follows the last separator.
std::string_view NameOf(std::string_view path);

// The name of a path without its last "." and what follows it.
std::string_view StemOf(std::string_view path);

// What follows the last "." of the name, in lower case (ASCII); empty when it has none.
std::string ExtensionOf(std::string_view path);

// `folder` with a separator behind it, "\\" where it has none; an empty folder stays empty.
std::string WithSeparator(std::string_view folder);

// `folder` with a final "\\"; the way the generator joins all paths, an empty folder included.
std::string WithFinalBackslash(std::string_view folder);

}  // namespace tovarek
