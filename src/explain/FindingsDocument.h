// docs/findings.md: all explanations and rules as one document.
#pragma once

#include <string>

#include "compare/InterfaceRules.h"
#include "explain/Explanations.h"

namespace tovarek {

// All that is known of one finding in Markdown, without a heading; it ends with an empty line.
std::string MarkdownOf(const Explanation& one);
// The same of a rule for changed interfaces.
std::string MarkdownOf(const InterfaceRuleRow& rule);

// The document in Markdown, with line ends of LF.
std::string FindingsDocument();

}  // namespace tovarek
