// Trees as text for people and as JSON for programs.
#pragma once

#include <string>
#include <string_view>

#include "inspect/InspectNode.h"

namespace tovarek {

// An indented tree, one value a line, LF line ends.
std::string TreeText(const InspectNode& node);

// The tree as one JSON value: objects and lists as what they are, names of list items left out.
std::string JsonText(const InspectNode& node);

// The version of the names and kinds of values in the JSON of dump, diff and catalog show. It rises with
// every change that a program which reads them would notice.
inline constexpr int kJsonSchema = 2;

// An object as a JSON document that begins with its version.
std::string JsonDocument(InspectNode tree);

// A value as people read it, and everything below a node in one line. `comparedOnly` leaves out what is
// derived.
std::string ValueText(const InspectNode::Value& value);
std::string OneLineText(const InspectNode& node, bool comparedOnly);

// `text` as a JSON string with its quotes; what is no UTF-8 is replaced.
std::string JsonString(std::string_view text);

}  // namespace tovarek
