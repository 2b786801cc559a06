// How far a command is with many files: one line on a terminal, written over and gone in the end.
#pragma once

#include <chrono>
#include <cstddef>

#include "cli/Report.h"
#include "cli/Streams.h"

namespace tovarek {

// How long a terminal shows nothing.
inline constexpr std::chrono::milliseconds kPatience{500};

class Progress {
  public:
    // Of `total` files. Says nothing where standard error is no terminal, results are for programs, or the
    // work is done within `patience`.
    Progress(const Streams& streams, OutputFormat format, std::size_t total,
             std::chrono::milliseconds patience = kPatience);
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // So many are done. Called from one thread at a time.
    void Show(std::size_t done);
    // Takes the line away, for other output on the terminal; that is to be flushed before the next Show.
    void Clear();

  private:
    Streams streams_;
    std::size_t total_;
    std::chrono::milliseconds patience_;
    std::chrono::steady_clock::time_point shown_;  // the last time; in the beginning when the work began
    bool isSilent_;
    bool isThere_ = false;
    bool wasShown_ = false;
};

}  // namespace tovarek
