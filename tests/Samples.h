// Files of other tools; they do not come with the project, so tests go without them where they are not.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "Platform.h"

namespace tovarek::test {

// All files below a folder of the samples.
inline std::vector<std::string> SampleFiles(const std::string& folder) {
    std::vector<std::string> paths;
    const std::filesystem::path root = StandardPath(TOVAREK_SAMPLES) / folder;
    if (std::filesystem::exists(root))
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (entry.is_regular_file())
                paths.push_back(SystemSpelling(entry.path()));
    std::sort(paths.begin(), paths.end());
    return paths;
}

}  // namespace tovarek::test
