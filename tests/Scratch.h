// Helpers of all tests: scratch folders, what an expression raises, what rules find.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform.h"
#include "base/Error.h"
#include "support/Findings.h"
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

// One of eErrors as 1000 + n, so that it cannot be taken for a runtime error.
inline int TestNumber(std::int32_t error) {
    return error < 0 ? 1000 + static_cast<int>(error - ErrorValue(0)) : error;
}

// The number of the error that `action` raises, 0 for none.
template <class Action>
int RaisedNumber(Action&& action) {
    const auto error = Raised(action);
    return error ? TestNumber(error->Number()) : 0;
}

// Keeps all that rules find.
struct CollectingSink : FindingSink {
    std::vector<Finding> findings;

    void Take(Finding finding) override { findings.push_back(std::move(finding)); }
    std::vector<int> Errors() const {
        std::vector<int> errors;
        for (const Finding& finding : findings)
            errors.push_back(TestNumber(finding.error));
        return errors;
    }
};

// What a test sees against the text in a file beside it. With TOVAREK_REWRITE in the environment the file is
// written anew, for who changes messages and reads the difference.
inline void ExpectText(const std::string& seen, const std::string& path) {
    if (std::getenv("TOVAREK_REWRITE") != nullptr)
        WriteFile(path, seen);
    EXPECT_EQ(seen, ReadFile(path)) << "with TOVAREK_REWRITE=1 this test writes the text anew";
}

}  // namespace tovarek::test
