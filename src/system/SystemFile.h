// One open file of the operating system, the seam under ReadFile and OutputFile. Every failure is a runtime
// error whose context names the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovarek {

class SystemFile {
  public:
    // Opens an existing file. Raises 53 or 76 for what is not there, 70 for what is not permitted, 75 for a
    // directory and for names that no file can have, 57 for the rest.
    static SystemFile OpenToRead(std::string_view path);
    // Creates the file, or truncates it. Raises as OpenToRead, and 61 for a full disk.
    static SystemFile Create(std::string_view path);
    // Raises as Create where that shows without creating or truncating anything.
    static void TryCreate(std::string_view path);

    // Puts `bytes` in place of the file at `path`, which exists and is no link: they are written beside it,
    // stored and moved there. Its permissions stay. Raises as Create; 70 for a file that nobody may write.
    static void Replace(std::string_view path, std::string_view bytes);

    // Closes the file when it is still open and says nothing about failures.
    ~SystemFile();
    SystemFile(SystemFile&& other) noexcept;
    SystemFile& operator=(SystemFile&&) = delete;

    bool IsOpen() const { return handle_ != kClosed; }
    // The size in bytes, 0 for what has none (devices, pipes).
    std::uint64_t Size() const;
    // Reads at most `most` bytes and answers how many; 0 at the end of the file.
    std::size_t Read(char* to, std::size_t most);
    // Writes all of `bytes`.
    void Write(std::string_view bytes);
    // Raises when anything that was written could not be stored.
    void Close();

  private:
    // Writes all of `bytes` down to the disk and closes the file.
    void Store(std::string_view bytes);

    // No system hands out -1 for an open file.
    static constexpr std::intptr_t kClosed = -1;

    SystemFile(std::string_view path, std::intptr_t handle) : path_(path), handle_(handle) {}

    std::string path_;
    std::intptr_t handle_;
};

}  // namespace tovarek
