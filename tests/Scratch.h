// Helpers of all tests: scratch folders, and what an expression raises.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "Platform.h"
#include "base/Error.h"
#include "system/Files.h"

namespace tovarek::test {

// A folder of its own for one test, gone with it.
class Scratch {
  public:
    Scratch() {
        // Tests run side by side: a name that is taken is another test's.
        do
            folder_ = std::filesystem::temp_directory_path() /
                      ("tovarek-test-" + std::to_string(std::random_device()()));
        while (!std::filesystem::create_directory(folder_));
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    // The path of `name`, UTF-8 with "/" between folders, as the system spells it.
    std::string Path(const std::string& name) const { return SystemSpelling(folder_ / StandardPath(name)); }
    std::string Folder() const { return SystemSpelling(folder_); }
    // Writes a file and answers its path.
    std::string File(const std::string& name, std::string_view content) const {
        WriteFile(Path(name), content);
        return Path(name);
    }

  private:
    std::filesystem::path folder_;
};

// The error that `action` raises, or nothing.
template <class Action>
std::optional<Error> Raised(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

// The number of the error that `action` raises, 0 for none. One of eErrors is answered as 1000 + n, so that
// it cannot be taken for a runtime error.
template <class Action>
int RaisedNumber(Action&& action) {
    const auto error = Raised(action);
    if (!error)
        return 0;
    return error->Number() < 0 ? 1000 + static_cast<int>(error->Number() - ErrorValue(0)) : error->Number();
}

}  // namespace tovarek::test
