// docs/findings.md: all explanations as one document.
#pragma once

#include <string>

namespace tovarek {

// The document in Markdown, with line ends of LF.
std::string FindingsDocument();

}  // namespace tovarek
