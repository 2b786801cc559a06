// Where the platforms differ for the tests.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace tovarek::test {

#ifdef _WIN32
inline constexpr bool kIsWindows = true;

inline void SetVariable(const char* name, const std::string& value) {
    _putenv_s(name, value.c_str());
}
inline void UnsetVariable(const char* name) {
    _putenv_s(name, "");
}
#else
inline constexpr bool kIsWindows = false;

inline void SetVariable(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
}
inline void UnsetVariable(const char* name) {
    unsetenv(name);
}
#endif

// A path of ours, which is UTF-8, for the standard library, and the other way round in the system's spelling.
inline std::filesystem::path StandardPath(const std::string& path) {
    return {std::u8string(path.begin(), path.end())};
}
inline std::string SystemSpelling(std::filesystem::path path) {
    const std::u8string text = path.make_preferred().u8string();
    return {text.begin(), text.end()};
}

// A file that can be opened and takes no byte; not every system has one.
inline constexpr const char* kFullDisk = "/dev/full";
inline bool HasFullDisk() {
    return std::ofstream(kFullDisk, std::ios::binary | std::ios::app).is_open();
}

// A file that can be opened, and reading it fails, whoever reads.
inline constexpr const char* kUnreadable = "/proc/self/mem";

}  // namespace tovarek::test
