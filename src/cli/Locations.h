// Where the files that come with the program are: beside it in a build folder, below ../share when installed.
#pragma once

#include <string>

namespace tovarek {

// Folder of the shipped standard catalog; empty when there is none.
std::string ShippedCatalogFolder();

// Folder of the example device; empty when there is none.
std::string ExampleFolder();

}  // namespace tovarek
