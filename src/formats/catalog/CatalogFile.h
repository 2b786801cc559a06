// The catalog file of ours: a text that names the folders of resource sets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

// The first line of every catalog of ours. Lines that begin with "#" are comments.
inline constexpr std::string_view kCatalogMark = "# Tovarek resource catalog 1";

struct CatalogFolder {
    std::string name;  // as the catalog writes it
    std::string path;  // where it is: one that is not absolute lies below the catalog; ends with a separator
};

// True when a file of these bytes is a catalog of ours, with or without a UTF-8 mark.
bool IsCatalogFile(std::string_view bytes);

// The folders that the catalog at `path` names, in order. The text is UTF-8 when all of its bytes are valid
// UTF-8, else in the code page. None for a file that is no catalog of ours.
std::vector<CatalogFolder> ReadCatalogFile(std::string_view bytes, const std::string& path);

}  // namespace tovarek
