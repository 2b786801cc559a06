#include "system/TrialOutput.h"

#include <algorithm>

#include "base/Path.h"
#include "system/FileWatch.h"

namespace tovarek {
namespace {

class NoFile : public FileSink {
  public:
    void Append(std::string_view /*bytes*/) override {}
    void Close() override {}
};

class KeptFile : public FileSink {
  public:
    explicit KeptFile(std::string& bytes) : bytes_(bytes) { bytes_.clear(); }
    void Append(std::string_view bytes) override { bytes_ += bytes; }
    void Close() override {}

  private:
    std::string& bytes_;
};

std::string_view WithoutSeparators(std::string_view folder) {
    while (folder.size() > 1 && EndsWithSeparator(folder))
        folder.remove_suffix(1);
    return folder;
}

bool CanBeOpened(std::string_view path) {
    try {
        ProbeOutput(path);
        return true;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace

TrialOutput::TrialOutput(std::string_view folder) {
    folder = WithoutSeparators(folder);
    // What stands there already is used, or is in the way.
    if (!folder.empty() && !FolderExists(folder) && !FileExists(folder) && CanBeOpened(folder))
        created_ = IdentityOf(folder);
}

bool TrialOutput::IsCreated(std::string_view folder) const {
    return created_ && IdentityOf(WithoutSeparators(folder)) == created_;
}

bool TrialOutput::IsFirstRefusal(std::string_view folder) {
    const std::string_view name = WithoutSeparators(folder);
    if (std::find(refused_.begin(), refused_.end(), name) != refused_.end())
        return false;
    refused_.emplace_back(name);
    return true;
}

bool TrialOutput::HasFolder(const std::string& folder) {
    return FolderExists(folder) || IsCreated(folder) || !IsFirstRefusal(folder);
}

std::unique_ptr<FileSink> TrialOutput::Open(const std::string& path) {
    const std::string folder = FolderOf(path);
    if (!IsCreated(folder)) {
        try {
            ProbeOutput(path);
        } catch (const Error&) {
            const bool isOfFolder = !path.empty() && !FileExists(path) && !FolderExists(path);
            if (!isOfFolder || IsFirstRefusal(folder))
                throw;
        }
    }
    return std::make_unique<NoFile>();
}

std::unique_ptr<FileSink> KeptOutput::Open(const std::string& path) {
    return std::make_unique<KeptFile>(files_[path]);
}

std::unique_ptr<FileSink> OpenOutput(const std::string& path, TrialOutput* trial) {
    if (trial != nullptr)
        return trial->Open(path);
    if (FileWatch* const watch = FileWatch::Current())
        return watch->Open(path);
    return std::make_unique<OutputFile>(path);
}

}  // namespace tovarek
