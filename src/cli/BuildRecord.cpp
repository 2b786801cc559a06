#include "cli/BuildRecord.h"

#include <algorithm>
#include <utility>

#include "cli/Depfile.h"
#include "formats/records/ResourceFile.h"
#include "formats/xif/XifFile.h"

namespace tovarek {
namespace {

std::string WithoutDate(std::string bytes) {
    BlankResourceDate(bytes);
    BlankXifDate(bytes);
    return bytes;
}

bool IsSame(const std::string& path, const std::string& bytes) {
    return FileExists(path) && WithoutDate(ReadFile(path)) == WithoutDate(bytes);
}

// Gathers a file and replaces the one that stands there only by another content.
class ChangedFile : public FileSink {
  public:
    ChangedFile(std::string path, std::vector<std::string>& kept) : path_(std::move(path)), kept_(kept) {
        ProbeOutput(path_);
    }
    void Append(std::string_view bytes) override { bytes_ += bytes; }
    void Close() override {
        if (IsSame(path_, bytes_))
            kept_.push_back(path_);
        else
            WriteFile(path_, bytes_);
    }

  private:
    std::string path_;
    std::string bytes_;
    std::vector<std::string>& kept_;
};

}  // namespace

void BuildRecord::Reads(std::string_view path) {
    if (std::find(read_.begin(), read_.end(), path) == read_.end())
        read_.emplace_back(path);
}

std::unique_ptr<FileSink> BuildRecord::Open(const std::string& path) {
    if (wishes_.ifChanged)
        return std::make_unique<ChangedFile>(path, kept_);
    return std::make_unique<OutputFile>(path);
}

JobFiles BuildRecord::With(JobFiles files) const {
    if (!wishes_.depfile.empty())
        files.outputs.push_back({"--depfile", wishes_.depfile});
    if (!wishes_.stamp.empty())
        files.outputs.push_back({"--stamp", wishes_.stamp});
    return files;
}

void BuildRecord::Finish(const std::vector<std::string>& written) {
    std::vector<FileIdentity> outputs;
    for (const std::string& file : written)
        if (auto identity = IdentityOf(file))
            outputs.push_back(std::move(*identity));
    std::erase_if(read_, [&](const std::string& file) {
        const auto identity = IdentityOf(file);
        return identity && std::find(outputs.begin(), outputs.end(), *identity) != outputs.end();
    });
    if (!wishes_.depfile.empty())
        WriteFile(wishes_.depfile, DepfileText(wishes_.stamp, read_));
    // Not empty: not every system takes notice of nothing that is written.
    if (!wishes_.stamp.empty())
        WriteFile(wishes_.stamp, "tovarek generate has come to its end\n");
}

}  // namespace tovarek
