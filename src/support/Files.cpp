#include "support/Files.h"

#include <algorithm>
#include <utility>

namespace tovarek {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

[[noreturn]] void RefuseSize(std::string_view path) {
    RaiseRuntimeError(RuntimeError::outOfMemory,
                      {.file = std::string(path), .reason = "files of more than 1 GiB are not read"});
}

}  // namespace

SystemFile::SystemFile(SystemFile&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, kClosed)) {}

std::string ReadFile(std::string_view path, std::uint64_t limit) {
    if (path.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound, {.reason = "the file name is empty"});
    SystemFile file = SystemFile::OpenToRead(path);
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

SystemFile CreateOutput(std::string_view path) {
    if (path.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound, {.reason = "the name of the output file is empty"});
    return SystemFile::Create(path);
}

}  // namespace

OutputFile::OutputFile(std::string_view path) : file_(CreateOutput(path)) {
    buffer_.reserve(kPiece);
}

OutputFile::~OutputFile() {
    if (!file_.IsOpen())
        return;
    try {
        // A half-written file is left as far as it got.
        if (!failed_)
            WriteOut(buffer_);
    } catch (const Error&) {
        // The error that ended the writer is already on its way.
        failed_ = true;
    }
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
    file_.Close();
}

void OutputFile::WriteOut(std::string_view bytes) {
    failed_ = true;
    file_.Write(bytes);
    failed_ = false;
}

void WriteFile(std::string_view path, std::string_view bytes) {
    OutputFile file(path);
    file.Append(bytes);
    file.Close();
}

}  // namespace tovarek
