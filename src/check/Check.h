// What is wrong with a job, for people and for programs: the findings of all rules and loaders, each with its
// place, its cause and its weight.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "component/Tovarek.h"
#include "mend/Piece.h"
#include "support/Findings.h"

namespace tovarek {

struct CheckedFinding {
    bool isError;
    std::int32_t error;    // of an error: one of eErrors or a runtime error
    std::string name;      // "not-a-number"; of an error "nvlength"
    ErrorContext context;  // of an error as Generate raises it
    std::string message;
    int column;          // 1-based, in characters; 0 when unknown
    int width;           // of the marked piece
    std::string source;  // the line itself
    std::vector<FindingNote> notes;
    std::size_t order;          // in the sequence of Generate, from 1
    std::vector<Piece> mend{};  // all together mend it, and the notes with a mend of their own
};

struct CheckOptions {
    std::vector<std::string> ignored;  // names of warnings that are left out
    bool isPedantic = false;           // weak ones too
    // Files in which comments may say that a warning is meant.
    std::vector<std::string> inputs{};
    // Whether the whole job was looked at: what ignores nothing then is told.
    bool isWhole = true;
};

// Keeps what it is told, in order.
class FindingList : public FindingSink {
  public:
    explicit FindingList(bool wantsWeak = false) : wantsWeak_(wantsWeak) {}
    void Take(Finding finding) override { findings_.push_back(std::move(finding)); }
    bool WantsWarnings() const override { return true; }
    bool WantsWeak() const override { return wantsWeak_; }
    // All that was told since the last call.
    std::vector<Finding> TakeAll() { return std::move(findings_); }

  private:
    bool wantsWeak_;
    std::vector<Finding> findings_;
};

// The findings sorted by file and line. A warning that only follows from another finding is a note of it; an
// error has a note that names its cause, where one was found.
std::vector<CheckedFinding> Judge(std::vector<Finding> findings, const CheckOptions& options);

// The number of a finding's error as people know it: 71, or that of a runtime error.
std::int32_t ShortNumber(std::int32_t error);

}  // namespace tovarek
