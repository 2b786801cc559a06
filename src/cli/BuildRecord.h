// What a build system wants of a run: what was read, a stamp, and outputs that change only when they must.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "component/JobFiles.h"
#include "system/FileWatch.h"
#include "system/Files.h"

namespace tovarek {

struct BuildWishes {
    std::string depfile;     // empty: none
    std::string stamp;       // likewise; the target of the depfile
    bool ifChanged = false;  // an output that would be the same but for its date is left as it is
};

// Follows one run in its thread.
class BuildRecord : public FileWatch {
  public:
    explicit BuildRecord(const BuildWishes& wishes) : wishes_(wishes) {}

    void Reads(std::string_view path) override;
    std::unique_ptr<FileSink> Open(const std::string& path) override;

    // `files` with the two files of this record among the outputs.
    JobFiles With(JobFiles files) const;

    // Outputs that were left as they are.
    const std::vector<std::string>& Kept() const { return kept_; }

    // Writes depfile and stamp: the run has come to its end. What was read and written in one run is no
    // input. Raises what OutputFile raises; throws WrongUse for a name that no depfile can hold.
    void Finish(const std::vector<std::string>& written);

  private:
    const BuildWishes& wishes_;
    std::vector<std::string> read_;
    std::vector<std::string> kept_;
};

}  // namespace tovarek
