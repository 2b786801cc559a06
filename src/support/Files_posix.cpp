#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "support/Files.h"

namespace tovarek {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

// A descriptor that is closed on every way out.
class Descriptor {
  public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (value_ >= 0)
            close(value_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Value() const { return value_; }

  private:
    int value_;
};

[[noreturn]] void RaiseFileError(std::string_view path, int error) {
    RuntimeError number = RuntimeErrorOf(error);
    if (error == ENOENT) {
        // A missing folder is another error than a missing file.
        const std::string system = SystemPath(path);
        const std::size_t slash = system.rfind('/');
        struct stat folder {};
        if (slash != std::string::npos && slash > 0 && stat(system.substr(0, slash).c_str(), &folder) != 0)
            number = RuntimeError::pathNotFound;
    }
    RaiseRuntimeError(number, {.file = std::string(path), .reason = std::strerror(error)});
}

std::int64_t Nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

std::string SystemPath(std::string_view path) {
    std::string system(path);
    std::replace(system.begin(), system.end(), '\\', '/');
    return system;
}

RuntimeError RuntimeErrorOf(int error) {
    switch (error) {
        case ENOENT:
            return RuntimeError::fileNotFound;
        case ENOTDIR:
            return RuntimeError::pathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
            return RuntimeError::permissionDenied;
        case EISDIR:
        case ENAMETOOLONG:
        case ELOOP:
        case EINVAL:
        case EMFILE:
        case ENFILE:
            return RuntimeError::pathFileAccessError;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return RuntimeError::diskFull;
        case ENOMEM:
            return RuntimeError::outOfMemory;
        default:
            return RuntimeError::deviceIoError;
    }
}

std::string ReadFile(std::string_view path, std::uint64_t limit) {
    if (path.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound, {.reason = "the file name is empty"});
    const Descriptor file(open(SystemPath(path).c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (file.Value() < 0 || fstat(file.Value(), &status) != 0)
        RaiseFileError(path, errno);
    if (S_ISDIR(status.st_mode))
        RaiseFileError(path, EISDIR);

    // One byte more than the size shows the end without growing the buffer; devices and pipes have no size.
    std::string bytes;
    const auto expected = static_cast<std::uint64_t>(std::max<off_t>(status.st_size, 0)) + 1;
    std::size_t filled = 0;
    while (filled < limit) {
        if (filled == bytes.size())
            bytes.resize(static_cast<std::size_t>(
                std::min(limit, filled == 0 ? std::max<std::uint64_t>(expected, 4096) : filled * 2)));
        const ssize_t count = read(file.Value(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            RaiseFileError(path, errno);
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    if (filled > kLargestFile)
        RaiseRuntimeError(RuntimeError::outOfMemory,
                          {.file = std::string(path), .reason = "files of more than 1 GiB are not read"});
    bytes.resize(filled);
    return bytes;
}

bool FileExists(std::string_view path) {
    struct stat status {};
    return stat(SystemPath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool FolderExists(std::string_view path) {
    struct stat status {};
    return stat(SystemPath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

FileStamp StampOf(std::string_view path) {
    struct stat status {};
    if (stat(SystemPath(path).c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)};
}

std::vector<std::string> DirectoryEntries(std::string_view path) {
    std::vector<std::string> names;
    const std::string system = path.empty() ? "/" : SystemPath(path);
    DIR* directory = opendir(system.c_str());
    if (directory == nullptr)
        return names;
    while (const dirent* entry = readdir(directory)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            names.emplace_back(name);
    }
    closedir(directory);
    return names;
}

bool MakeDirectory(std::string_view path) {
    return mkdir(SystemPath(path).c_str(), 0777) == 0;
}

OutputFile::OutputFile(std::string_view path) : path_(path) {
    if (path.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound, {.reason = "the name of the output file is empty"});
    descriptor_ = open(SystemPath(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor_ < 0)
        Fail(errno);
    buffer_.reserve(kPiece);
}

OutputFile::~OutputFile() {
    if (descriptor_ < 0)
        return;
    try {
        // A half-written file is left as far as it got.
        if (!failed_)
            WriteOut(buffer_);
    } catch (const Error&) {
        // The error that ended the writer is already on its way.
        failed_ = true;
    }
    close(descriptor_);
}

void OutputFile::Append(std::string_view bytes) {
    if (buffer_.size() + bytes.size() > kPiece) {
        WriteOut(buffer_);
        buffer_.clear();
    }
    if (bytes.size() > kPiece)
        WriteOut(bytes);
    else
        buffer_ += bytes;
}

void OutputFile::Close() {
    WriteOut(buffer_);
    buffer_.clear();
    const int descriptor = descriptor_;
    descriptor_ = -1;
    if (close(descriptor) != 0)
        Fail(errno);
}

void OutputFile::WriteOut(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0) {
            failed_ = true;
            Fail(errno);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void OutputFile::Fail(int error) const {
    RaiseFileError(path_, error);
}

void WriteFile(std::string_view path, std::string_view bytes) {
    OutputFile file(path);
    file.Append(bytes);
    file.Close();
}

}  // namespace tovarek
