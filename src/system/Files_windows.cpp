#include <windows.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "base/Path.h"
#include "system/Files.h"
#include "system/Wide.h"

namespace tovarek {
namespace {

RuntimeError RuntimeErrorOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return RuntimeError::fileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_DIRECTORY:
            return RuntimeError::pathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_NETWORK_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return RuntimeError::permissionDenied;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_INVALID_PARAMETER:
        case ERROR_TOO_MANY_OPEN_FILES:
            return RuntimeError::pathFileAccessError;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_FILE_TOO_LARGE:
            return RuntimeError::diskFull;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            return RuntimeError::outOfMemory;
        default:
            return RuntimeError::deviceIoError;
    }
}

// In the words of every platform where it has any, which are English; otherwise in the system's and the
// user's.
std::string SystemMessage(DWORD error) {
    const std::error_condition known =
        std::system_category().default_error_condition(static_cast<int>(error));
    if (known.category() == std::generic_category())
        return known.message();
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r' || text[length - 1] == L'.'))
        --length;
    if (length == 0)
        return "system error " + std::to_string(error);
    return FromWide(std::wstring_view(text, length));
}

[[noreturn]] void RaiseFileError(std::string_view path, DWORD error) {
    // The platform denies access to a directory that is opened as a file.
    if (error == ERROR_ACCESS_DENIED && FolderExists(path))
        RaiseRuntimeError(
            RuntimeError::pathFileAccessError,
            {.file = std::string(path), .reason = std::make_error_code(std::errc::is_a_directory).message()});
    RaiseRuntimeError(RuntimeErrorOf(error), {.file = std::string(path), .reason = SystemMessage(error)});
}

std::intptr_t OpenOrRaise(std::string_view path, DWORD access, DWORD share, DWORD disposition) {
    // The platform's names end at a NUL; another file than the one that was named must not be touched.
    if (path.find('\0') != std::string_view::npos)
        RaiseFileError(path, ERROR_INVALID_NAME);
    HANDLE file = CreateFileW(ToWide(path).c_str(), access, share, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        RaiseFileError(path, GetLastError());
    return reinterpret_cast<std::intptr_t>(file);
}

HANDLE Handle(std::intptr_t value) {
    // The system's handles are numbers that it calls pointers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<HANDLE>(value);
}

// The attributes of what stands at `path`, or INVALID_FILE_ATTRIBUTES.
DWORD AttributesOf(std::string_view path) {
    return GetFileAttributesW(ToWide(path).c_str());
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

// In steps of 100 nanoseconds; only equality counts.
std::int64_t Nanoseconds(std::uint64_t steps) {
    return static_cast<std::int64_t>(steps * 100);
}

}  // namespace

std::string SystemPath(std::string_view path) {
    return std::string(path);
}

SystemFile SystemFile::OpenToRead(std::string_view path) {
    // Nobody is kept out: an editor may have the file open.
    return {path, OpenOrRaise(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              OPEN_EXISTING)};
}

SystemFile SystemFile::Create(std::string_view path) {
    return {path, OpenOrRaise(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS)};
}

void SystemFile::TryCreate(std::string_view path) {
    if (FolderExists(path))
        RaiseFileError(path, ERROR_ACCESS_DENIED);
    const DWORD attributes = AttributesOf(path);
    const DWORD error = GetLastError();
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        CloseHandle(Handle(OpenOrRaise(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING)));
        return;
    }
    if (error != ERROR_FILE_NOT_FOUND)
        RaiseFileError(path, error);
    const std::string folder = FolderOf(path);
    HANDLE parent = CreateFileW(ToWide(folder.empty() ? "." : folder).c_str(), FILE_ADD_FILE,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (parent == INVALID_HANDLE_VALUE)
        RaiseFileError(path, GetLastError());
    CloseHandle(parent);
}

void SystemFile::Replace(std::string_view path, std::string_view bytes) {
    // What is not there, or protected, shows here.
    CloseHandle(Handle(OpenOrRaise(path, GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING)));
    const std::string beside = std::string(path) + "." + std::to_string(GetCurrentProcessId()) + ".tmp";
    SystemFile file(path, OpenOrRaise(beside, GENERIC_WRITE, 0, CREATE_NEW));
    const std::wstring from = ToWide(beside);
    try {
        file.Store(bytes);
        // It takes over the attributes and rights of the file that it replaces.
        if (ReplaceFileW(ToWide(path).c_str(), from.c_str(), nullptr, 0, nullptr, nullptr) == 0)
            RaiseFileError(path, GetLastError());
    } catch (const Error&) {
        if (file.IsOpen())
            CloseHandle(Handle(std::exchange(file.handle_, kClosed)));
        DeleteFileW(from.c_str());
        throw;
    }
}

void SystemFile::Store(std::string_view bytes) {
    Write(bytes);
    if (FlushFileBuffers(Handle(handle_)) == 0)
        RaiseFileError(path_, GetLastError());
    Close();
}

SystemFile::~SystemFile() {
    if (IsOpen())
        CloseHandle(Handle(handle_));
}

std::uint64_t SystemFile::Size() const {
    LARGE_INTEGER size{};
    if (GetFileSizeEx(Handle(handle_), &size) == 0 || size.QuadPart < 0)
        return 0;
    return static_cast<std::uint64_t>(size.QuadPart);
}

// One call moves at most this many bytes; its count has 32 bits.
constexpr std::size_t kMostBytesAtOnce = std::size_t{1} << 30U;

std::size_t SystemFile::Read(char* to, std::size_t most) {
    DWORD count = 0;
    if (::ReadFile(Handle(handle_), to, static_cast<DWORD>(std::min(most, kMostBytesAtOnce)), &count,
                   nullptr) == 0) {
        const DWORD error = GetLastError();
        // The other end of a pipe is gone: the end of the file.
        if (error != ERROR_BROKEN_PIPE)
            RaiseFileError(path_, error);
        return 0;
    }
    return count;
}

void SystemFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        if (::WriteFile(Handle(handle_), bytes.data(),
                        static_cast<DWORD>(std::min(bytes.size(), kMostBytesAtOnce)), &count, nullptr) == 0)
            RaiseFileError(path_, GetLastError());
        if (count == 0)
            RaiseFileError(path_, ERROR_WRITE_FAULT);
        bytes.remove_prefix(count);
    }
}

void SystemFile::Close() {
    if (CloseHandle(Handle(std::exchange(handle_, kClosed))) == 0)
        RaiseFileError(path_, GetLastError());
}

bool FileExists(std::string_view path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool FolderExists(std::string_view path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

FileStamp StampOf(std::string_view path) {
    // Opened for its attributes alone, which the system tells even of a file that this user may not read.
    HANDLE file = CreateFileW(ToWide(path).c_str(), FILE_READ_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    BY_HANDLE_FILE_INFORMATION facts{};
    FILE_BASIC_INFO times{};
    const bool known = GetFileInformationByHandle(file, &facts) != 0;
    // Without the time of the last change of the file's facts the time of writing must do.
    GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times);
    CloseHandle(file);
    if (!known)
        return {};
    return {facts.dwVolumeSerialNumber, Joined(facts.nFileIndexHigh, facts.nFileIndexLow),
            Joined(facts.nFileSizeHigh, facts.nFileSizeLow),
            Nanoseconds(Joined(facts.ftLastWriteTime.dwHighDateTime, facts.ftLastWriteTime.dwLowDateTime)),
            Nanoseconds(static_cast<std::uint64_t>(times.ChangeTime.QuadPart))};
}

std::vector<std::string> DirectoryEntries(std::string_view path) {
    WIN32_FIND_DATAW entry{};
    HANDLE search = FindFirstFileW((ToWide(path) + L"\\*.*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return {};
    std::vector<std::string> names;
    do {
        std::string name = FromWide(entry.cFileName);
        if (name != "." && name != "..")
            names.push_back(std::move(name));
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    return names;
}

bool MakeDirectory(std::string_view path) {
    return CreateDirectoryW(ToWide(path).c_str(), nullptr) != 0;
}

}  // namespace tovarek
