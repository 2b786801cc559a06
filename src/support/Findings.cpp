#include "support/Findings.h"

#include <map>

namespace tovarek {
namespace {

bool IsRenaming(const Finding& finding) {
    return !finding.edits.empty() && finding.edits.front().part == EditPart::name;
}

}  // namespace

void TellSiblings(std::vector<Finding> findings, FindingSink& sink) {
    std::map<std::string, int> meant;
    for (const Finding& finding : findings)
        if (IsRenaming(finding))
            ++meant[finding.edits.front().text];
    for (Finding& finding : findings) {
        if (IsRenaming(finding) && meant[finding.edits.front().text] > 1)
            finding.edits.clear();
        sink.Take(std::move(finding));
    }
}

}  // namespace tovarek
