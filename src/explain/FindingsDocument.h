// docs/findings.md: all explanations as one document.
#pragma once

#include <string>

#include "explain/Explanations.h"

namespace tovarek {

// All that is known of one finding in Markdown, without a heading; it ends with an empty line.
std::string MarkdownOf(const Explanation& one);

// The document in Markdown, with line ends of LF.
std::string FindingsDocument();

}  // namespace tovarek
