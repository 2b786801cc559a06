// tovarek explain: what a finding means, why it matters, an example and the mend.
#pragma once

#include <string>

#include "cli/Report.h"

namespace tovarek {

struct ExplainWishes {
    std::string word;     // the number, code or name of an error, or the name of a warning
    bool isList = false;  // all of them in short
};

// One finding (or two of one number), or the list of all. As Markdown the list is the document of all texts.
// Answers kWrongUse for a word that is no finding.
int RunExplain(const ExplainWishes& wishes, OutputFormat format, Streams streams);

}  // namespace tovarek
