#include "system/Files.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <utility>

#include "base/Nearest.h"
#include "base/Path.h"
#include "system/FileWatch.h"

#ifdef _WIN32
#include "base/Text.h"
#include "system/Wide.h"
#endif

namespace tovarek {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

[[noreturn]] void RefuseSize(std::string_view path) {
    RaiseRuntimeError(RuntimeError::outOfMemory,
                      {.file = std::string(path), .reason = "files of more than 1 GiB are not read"});
}

std::string FolderOrCurrent(std::string_view path) {
    const std::string folder = FolderOf(path);
    return folder.empty() ? "." : folder;
}

// What helps with a name that leads nowhere: the folder that does not exist, or the entry of it that is near.
std::string HintForMissing(std::string_view path, bool isOutput) {
    const std::string folder = FolderOrCurrent(path);
    if (!FolderExists(folder))
        return "; there is no folder " + SystemPath(folder) +
               (isOutput ? ": create it or choose another one" : "");
    if (isOutput)
        return {};
    std::vector<std::string> names = DirectoryEntries(folder);
    std::sort(names.begin(), names.end());
    return DidYouMean(NameOf(path), names);
}

std::string HintForDenied(std::string_view path, bool isOutput) {
    if (!isOutput)
        return "; change the rights of the file or of its folder so that it may be read";
    if (FileExists(path))
        return "; change the rights of the file so that it may be written, close the program that holds it, "
               "or choose another name";
    return "; no file may be created in the folder " + SystemPath(FolderOrCurrent(path)) +
           ": change its rights or choose another one";
}

// What `open` answers. An error tells what helps, beside the system's reason.
template <class Open>
decltype(auto) OpenWithHint(std::string_view path, bool isOutput, const Open& open) {
    try {
        return open(path);
    } catch (Error& error) {
        ErrorContext context = error.Context();
        switch (static_cast<RuntimeError>(error.Number())) {
            case RuntimeError::fileNotFound:
            case RuntimeError::pathNotFound:
                context.reason += HintForMissing(path, isOutput);
                break;
            case RuntimeError::permissionDenied:
                context.reason += HintForDenied(path, isOutput);
                break;
            case RuntimeError::pathFileAccessError:
                if (FolderExists(path))
                    context.reason += "; name a file, not a folder";
                break;
            default:
                break;
        }
        throw Error(error.Number(), error.Description(), std::move(context));
    }
}

}  // namespace

SystemFile::SystemFile(SystemFile&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, kClosed)) {}

std::string ReadFile(std::string_view path, std::uint64_t limit) {
    if (path.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound, {.reason = "the file name is empty"});
    SystemFile file = OpenWithHint(path, false, SystemFile::OpenToRead);
    if (FileWatch* const watch = FileWatch::Current())
        watch->Reads(path);
    const std::uint64_t size = file.Size();
    if (std::min(size, limit) > kLargestFile)
        RefuseSize(path);

    // One byte more than the size shows the end without growing the buffer; devices and pipes have no size.
    std::string bytes;
    std::size_t filled = 0;
    while (filled < limit) {
        if (filled == bytes.size()) {
            const std::uint64_t wanted =
                filled == 0 ? std::max<std::uint64_t>(size + 1, 4096) : std::uint64_t{2} * filled;
            bytes.resize(static_cast<std::size_t>(std::min(limit, wanted)));
        }
        const std::size_t count = file.Read(bytes.data() + filled, bytes.size() - filled);
        if (count == 0)
            break;
        filled += count;
    }
    if (filled > kLargestFile)
        RefuseSize(path);
    bytes.resize(filled);
    return bytes;
}

namespace {

void RefuseNoName(std::string_view path) {
    if (path.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound, {.reason = "the name of the output file is empty"});
}

SystemFile CreateOutput(std::string_view path) {
    RefuseNoName(path);
    return OpenWithHint(path, true, SystemFile::Create);
}

}  // namespace

void ProbeOutput(std::string_view path) {
    RefuseNoName(path);
    OpenWithHint(path, true, SystemFile::TryCreate);
}

OutputFile::OutputFile(std::string_view path) : file_(CreateOutput(path)) {}

OutputFile::~OutputFile() {
    if (!file_.IsOpen())
        return;
    try {
        // A half-written file is left as far as it got.
        WriteBuffer();
    } catch (const Error&) {
        // The error that ended the writer is already on its way.
        return;
    }
}

void OutputFile::Append(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() > kPiece)
        WriteBuffer();
}

void OutputFile::Close() {
    WriteBuffer();
    file_.Close();
}

void OutputFile::WriteBuffer() {
    // Taken out first: what could not be written is not tried again when the file is left.
    const std::string piece = std::exchange(buffer_, {});
    file_.Write(piece);
}

namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
// The library refuses names that are no valid UTF-16, which the system has.
fs::path PathOf(const std::string& path) {
    return ToWide(path);
}
std::string TextOf(const fs::path& path) {
    return FromWide(path.native());
}
// Names of one folder that differ in letter case only are one name.
std::string NameKey(const std::string& name) {
    return UpperCase(name);
}
#else
fs::path PathOf(const std::string& path) {
    return path;
}
std::string TextOf(const fs::path& path) {
    return path.native();
}
std::string NameKey(std::string name) {
    return name;
}
#endif

// The path without "..", with the links of the part that exists followed, also one at its end that leads to a
// file which does not exist yet: that file is the one that would be written.
fs::path FollowLinks(fs::path path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        std::error_code failed;
        fs::path full = fs::weakly_canonical(path, failed);
        if (failed == std::errc::not_enough_memory)
            throw std::bad_alloc();
        if (!failed)
            path = std::move(full);
        const fs::path target = fs::read_symlink(path, failed);
        if (failed)
            break;
        path = path.parent_path() / target;
    }
    return path;
}

}  // namespace

std::string FromCurrentFolder(std::string_view path) {
    std::error_code failed;
    const fs::path current = fs::current_path(failed);
    const fs::path whole = (current / PathOf(SystemPath(path))).lexically_normal();
    const fs::path relative = whole.lexically_relative(current);
    const bool leadsIn = !failed && !relative.empty() && *relative.begin() != "..";
    std::string text = TextOf(leadsIn ? relative : whole);
#ifdef _WIN32
    std::replace(text.begin(), text.end(), '\\', '/');
#endif
    return text;
}

std::optional<FileIdentity> IdentityOf(std::string_view path) {
    const std::string typed = SystemPath(path);
    // What exists tells itself; to find the folders of what does not takes many times as long.
    if (const FileStamp stamp = StampOf(typed); stamp != FileStamp() && FileExists(typed))
        return FileIdentity{stamp.device, stamp.inode, {}};
    fs::path folder = FollowLinks(PathOf(typed));
    FileStamp stamp = StampOf(TextOf(folder));
    if (stamp != FileStamp() && !FileExists(TextOf(folder)))
        return std::nullopt;
    std::string name;
    while (stamp == FileStamp() && folder.has_filename()) {
        name.insert(0, '/' + NameKey(TextOf(folder.filename())));
        folder = folder.parent_path();
        stamp = StampOf(folder.empty() ? "." : TextOf(folder));
    }
    return FileIdentity{stamp.device, stamp.inode, std::move(name)};
}

void RewriteFile(std::string_view path, std::string_view bytes) {
    OpenWithHint(TextOf(FollowLinks(PathOf(SystemPath(path)))), true,
                 [&](std::string_view target) { SystemFile::Replace(target, bytes); });
}

bool RemoveEntry(std::string_view path) {
    std::error_code ignored;
    return fs::remove(PathOf(SystemPath(path)), ignored);
}

void WriteFile(std::string_view path, std::string_view bytes) {
    OutputFile file(path);
    file.Append(bytes);
    file.Close();
}

}  // namespace tovarek
