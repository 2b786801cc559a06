// Where files are: those that come with the program (beside it in a build folder, below ../share when
// installed), and those that a file names.
#pragma once

#include <string>
#include <vector>

namespace tovarek {

// Folder of the shipped standard catalog; empty when there is none.
std::string ShippedCatalogFolder();

// Folder of the example device; empty when there is none.
std::string ExampleFolder();

// `path` as it counts from the folder of `file`. An empty path and one that begins at a root or a drive stay
// as they are.
std::string BesideFile(const std::string& file, const std::string& path);

// The inverse: `path` as it is written in `file`. What has no way from one to the other stays absolute.
std::string FromFolderOf(const std::string& file, const std::string& path);

}  // namespace tovarek
