// Trees as text for people.
#pragma once

#include <string>

#include "inspect/InspectNode.h"

namespace tovarek {

// An indented tree, one value a line, LF line ends.
std::string TreeText(const InspectNode& node);

// A value as people read it, and everything below a node in one line. `comparedOnly` leaves out what is
// derived.
std::string ValueText(const InspectNode::Value& value);
std::string OneLineText(const InspectNode& node, bool comparedOnly);

}  // namespace tovarek
