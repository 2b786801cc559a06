// The files of a generation, for hosts that look at them before anything is written.
#pragma once

#include <string>
#include <vector>

namespace tovarek {

struct JobFile {
    std::string role;  // what the file is to the user: the property that names it, or a few words
    std::string path;
};

struct JobFiles {
    std::vector<JobFile> inputs;   // the catalog and document type definitions included
    std::vector<JobFile> outputs;  // resource files of all scopes: whether a scope has types shows later
};

}  // namespace tovarek
