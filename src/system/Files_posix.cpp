#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "system/Files.h"

namespace tovarek {
namespace {

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

int OpenOrRaise(std::string_view path, int flags) {
    // The mode counts for files that are created; the user's mask is taken off it.
    const int descriptor = open(SystemPath(path).c_str(), flags | O_CLOEXEC, 0666);
    if (descriptor < 0)
        RaiseFileError(path, errno);
    return descriptor;
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

SystemFile SystemFile::OpenToRead(std::string_view path) {
    SystemFile file(path, OpenOrRaise(path, O_RDONLY));
    struct stat status {};
    if (fstat(static_cast<int>(file.handle_), &status) != 0)
        RaiseFileError(path, errno);
    // A directory can be opened, but not read.
    if (S_ISDIR(status.st_mode))
        RaiseFileError(path, EISDIR);
    return file;
}

SystemFile SystemFile::Create(std::string_view path) {
    return {path, OpenOrRaise(path, O_WRONLY | O_CREAT | O_TRUNC)};
}

void SystemFile::TryCreate(std::string_view path) {
    const std::string system = SystemPath(path);
    const auto refuse = [&](const std::string& name, int rights) {
        if (faccessat(AT_FDCWD, name.c_str(), rights, AT_EACCESS) != 0)
            RaiseFileError(path, errno);
    };
    struct stat status {};
    if (stat(system.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode))
            RaiseFileError(path, EISDIR);
        return refuse(system, W_OK);
    }
    if (errno != ENOENT)
        RaiseFileError(path, errno);
    const std::size_t slash = system.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : system.substr(0, slash + 1);
    refuse(folder, W_OK | X_OK);
    if (slash + 1 == system.size())
        RaiseFileError(path, EISDIR);
}

void SystemFile::Replace(std::string_view path, std::string_view bytes) {
    const std::string target = SystemPath(path);
    struct stat status {};
    if (stat(target.c_str(), &status) != 0)
        RaiseFileError(path, errno);
    // The system lets root, and whoever may write the folder, replace what is protected; its owner has meant
    // it.
    constexpr mode_t kAnyWriter = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((status.st_mode & kAnyWriter) == 0)
        RaiseFileError(path, EACCES);
    TryCreate(path);
    std::string beside = target + ".XXXXXX";
    SystemFile file(path, mkstemp(beside.data()));
    if (!file.IsOpen())
        RaiseFileError(path, errno);
    const int descriptor = static_cast<int>(file.handle_);
    try {
        // Who may not give a file away keeps what he can. A new owner takes rights away, so they are set
        // behind it.
        if ((fchown(descriptor, status.st_uid, status.st_gid) != 0 && errno != EPERM) ||
            fchmod(descriptor, status.st_mode & 07777U) != 0)
            RaiseFileError(path, errno);
        file.Store(bytes);
        if (rename(beside.c_str(), target.c_str()) != 0)
            RaiseFileError(path, errno);
    } catch (const Error&) {
        unlink(beside.c_str());
        throw;
    }
}

void SystemFile::Store(std::string_view bytes) {
    Write(bytes);
    if (fsync(static_cast<int>(handle_)) != 0)
        RaiseFileError(path_, errno);
    Close();
}

SystemFile::~SystemFile() {
    if (IsOpen())
        close(static_cast<int>(handle_));
}

std::uint64_t SystemFile::Size() const {
    struct stat status {};
    if (fstat(static_cast<int>(handle_), &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    return static_cast<std::uint64_t>(status.st_size);
}

std::size_t SystemFile::Read(char* to, std::size_t most) {
    ssize_t count = 0;
    do
        count = read(static_cast<int>(handle_), to, most);
    while (count < 0 && errno == EINTR);
    if (count < 0)
        RaiseFileError(path_, errno);
    return static_cast<std::size_t>(count);
}

void SystemFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(static_cast<int>(handle_), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            RaiseFileError(path_, errno);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void SystemFile::Close() {
    const int descriptor = static_cast<int>(std::exchange(handle_, kClosed));
    if (close(descriptor) != 0)
        RaiseFileError(path_, errno);
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
    const std::string system = path.empty() ? "/" : SystemPath(path);
    DIR* directory = opendir(system.c_str());
    if (directory == nullptr)
        return {};
    std::vector<std::string> names;
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

}  // namespace tovarek
