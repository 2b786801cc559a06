// Finds the files of a resource set that belong together: they lie in one folder and share their name up to
// the extension, whatever its letter case.
#pragma once

#include <string>

namespace tovarek {

// Paths of a set's files; empty where there is none.
struct ResourceSetFiles {
    // American English where there is a choice, else the first by extension; one with an extension that no
    // language has only where there is no other.
    std::string language;
    std::string types;
    std::string profiles;
    std::string formats;
};

// The set that the file `path` (of any kind, it need not exist) belongs to.
ResourceSetFiles FindResourceSet(const std::string& path);

}  // namespace tovarek
