// Files: whole-file reading, checked writing, and the runtime errors that both raise. Paths are UTF-8 and may
// be written with "\"; on POSIX it becomes "/" at the moment a file is opened, and nowhere else. On Windows
// they are taken as they are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "system/SystemFile.h"

namespace tovarek {

// The path as the operating system wants it.
std::string SystemPath(std::string_view path);

// The largest file that is read whole, 1 GiB; a larger one is runtime error 7.
inline constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 30U;

// The bytes of the file, at most `limit` of them from its start. Raises a runtime error (53, 57, 70, 75, 76,
// 7) whose context names the file, and what stands near the name of one that does not exist.
std::string ReadFile(std::string_view path, std::uint64_t limit = kLargestFile + 1);

// True when a regular file stands at `path`.
bool FileExists(std::string_view path);

// True when a directory stands at `path`, whether or not a separator ends it.
bool FolderExists(std::string_view path);

// What tells whether a file has changed since it was read; all zero when there is no such file.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::int64_t changedNanoseconds = 0;
    bool operator==(const FileStamp&) const = default;
};
FileStamp StampOf(std::string_view path);

// What two paths have in common exactly when they lead to the same file, however they are spelled and through
// whatever links. A file that does not exist yet is known by its folder and its name; folders that do not
// exist yet are part of the name.
struct FileIdentity {
    std::uint64_t device;
    std::uint64_t inode;
    std::string name;  // empty for a file that exists
    bool operator==(const FileIdentity&) const = default;
};
// Nothing for what holds no bytes that could be overwritten: folders, devices and pipes.
std::optional<FileIdentity> IdentityOf(std::string_view path);

// The path relative to the current folder, with '/' between its parts, where it leads into that folder; else
// the absolute one. Links are not followed.
std::string FromCurrentFolder(std::string_view path);

// Names of the entries of a directory ("." and ".." left out), in no order; empty when it cannot be listed.
std::vector<std::string> DirectoryEntries(std::string_view path);

// Creates one directory. False when it could not be created.
bool MakeDirectory(std::string_view path);

// Removes a file, or a directory that holds nothing. False when nothing was removed.
bool RemoveEntry(std::string_view path);

// Takes the bytes that a writer makes, in order: a file, or memory.
class FileSink {
  public:
    virtual ~FileSink() = default;
    // Writes all of `bytes` or raises a runtime error.
    virtual void Append(std::string_view bytes) = 0;
    // Ends the writing; raises a runtime error when anything could not be stored. No Append after it.
    virtual void Close() = 0;
};

// A file that is being written: created or truncated on construction, bytes gathered into large pieces.
// Destroyed without Close it closes the file and says nothing: that is the end of a writer that already
// failed.
class OutputFile : public FileSink {
  public:
    // Raises a runtime error (61, 70, 75, 76 ...) whose context names the file.
    explicit OutputFile(std::string_view path);
    ~OutputFile() override;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Append(std::string_view bytes) override;
    void Close() override;

  private:
    void WriteBuffer();

    SystemFile file_;
    std::string buffer_;
};

// Raises what OutputFile raises for `path`, as far as that shows beforehand: the folder, what stands there,
// and what is permitted. Creates and changes nothing.
void ProbeOutput(std::string_view path);

// Writes a file that consists of `bytes`. Raises as OutputFile does.
void WriteFile(std::string_view path, std::string_view bytes);

// Makes the file at `path`, or the one that a link there leads to, consist of `bytes`. At every moment either
// the old file or the new one is there whole; its permissions stay. Raises as OutputFile does, and 53 when
// there is no file.
void RewriteFile(std::string_view path, std::string_view bytes);

}  // namespace tovarek
