// What the code below a host does with files, for a host that tells a build system of it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tovarek {

class FileSink;  // system/Files.h

// Sees the files of its thread from its making to its end; the newest one of a thread is asked.
class FileWatch {
  public:
    FileWatch();
    virtual ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    // A file was opened to be read, whole or in part. May raise nothing but runtime error 7.
    virtual void Reads(std::string_view path) = 0;

    // What a writer of the file `path` writes through. Raises what OutputFile raises.
    virtual std::unique_ptr<FileSink> Open(const std::string& path) = 0;

    // The one of this thread; null for none.
    static FileWatch* Current();

  private:
    FileWatch* const outer_;
};

}  // namespace tovarek
