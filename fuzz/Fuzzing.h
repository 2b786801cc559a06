// What the fuzz targets share. A target is one file with LLVMFuzzerTestOneInput and Seeds. Refusing an input
// by an exception of class Error is right; any other exception, a crash, a hang or a broken promise (Require)
// is a fault.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "system/Files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tovarek::fuzz {

// Inputs to start from: sound ones, in small, of everything that the format knows. Every target has its own.
std::vector<std::string> Seeds();

inline std::string_view View(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// A file in memory that holds `bytes` as long as the object lives.
class InputFile {
  public:
    explicit InputFile(std::string_view bytes);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    const std::string& Path() const { return path_; }

  private:
    int descriptor_;
    std::string path_;
};

// Takes what is written and forgets it.
class NullSink : public FileSink {
  public:
    void Append(std::string_view /*bytes*/) override {}
    void Close() override {}
};

// Ends the program when a promise is broken.
void Require(bool kept, const char* promise);

// Runs `action`; answers whether it was done. What it refuses must be refused with a number and a message.
template <class Action>
bool Accepts(const Action& action) {
    try {
        action();
        return true;
    } catch (const Error& error) {
        Require(error.Number() != 0 && !error.Description().empty(), "an error has a number and a message");
        return false;
    }
}

// The bytes of a language, type or profile file with all checksums made right, so that damage behind them is
// reached. What is too short or has impossible sizes comes back as it is.
std::string WithRightChecksums(std::string bytes);

}  // namespace tovarek::fuzz
