// Outputs of a run that only tries whether they could be written: nothing is written, no folder is created.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/Files.h"

namespace tovarek {

class TrialOutput {
  public:
    // `folder` is the one whose last level a real run creates; empty for none.
    explicit TrialOutput(std::string_view folder);
    virtual ~TrialOutput() = default;
    TrialOutput(const TrialOutput&) = delete;
    TrialOutput& operator=(const TrialOutput&) = delete;

    // Whether `folder` would be there for files. False once for each folder that is missing: what else goes
    // there says nothing new.
    virtual bool HasFolder(const std::string& folder);

    // A sink that keeps nothing. Raises what OutputFile raises where the file could not be opened, for a
    // folder that takes no files once.
    virtual std::unique_ptr<FileSink> Open(const std::string& path);

  private:
    bool IsCreated(std::string_view folder) const;
    bool IsFirstRefusal(std::string_view folder);

    std::optional<FileIdentity> created_;  // of the folder that would be created
    std::vector<std::string> refused_;
};

// Keeps what would be written, whatever folder it would go to.
class KeptOutput : public TrialOutput {
  public:
    KeptOutput() : TrialOutput("") {}
    bool HasFolder(const std::string& /*folder*/) override { return true; }
    std::unique_ptr<FileSink> Open(const std::string& path) override;

    // The bytes of the files by path; those of one that was not finished as far as they go.
    const std::map<std::string, std::string>& Files() const { return files_; }

  private:
    std::map<std::string, std::string> files_;
};

// Where the bytes of the file go: into it, or nowhere in a trial. Raises what OutputFile raises.
std::unique_ptr<FileSink> OpenOutput(const std::string& path, TrialOutput* trial);

}  // namespace tovarek
