// The mends of findings, made in the inputs or shown as a diff.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "check/Check.h"
#include "cli/Json.h"
#include "system/Files.h"

namespace tovarek {

// The files that may be written, each with its stamp from before it was read.
using FileStamps = std::map<std::string, FileStamp>;

// Adds the files that are not known yet.
void AddStamps(const std::vector<std::string>& files, FileStamps& stamps);

struct MendedFinding {
    CheckedFinding finding;
    std::string before;  // the line, as far as it changes
    std::string after;
    std::string refusal;  // why it is not mended
};

struct MendRun {
    std::vector<MendedFinding> made;
    std::vector<MendedFinding> left;
    std::string diff;
    bool hasFailed = false;  // a file could not be read or written
};

// Mends what has a mend; one round. With `isTrial` nothing is written and the diff says what would be. A file
// that is not among `stamps`, or has another stamp by now, is left alone.
MendRun MendFindings(const std::vector<CheckedFinding>& findings, const FileStamps& stamps, bool isTrial);

// One line a mend: "FILE:LINE:COLUMN: mended: TEXT [NAME]", or "not mended: REASON".
void WriteMends(const std::vector<MendedFinding>& mends, std::ostream& out);
Json MendsJson(const std::vector<MendedFinding>& mends);

}  // namespace tovarek
