// What the program shows, as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "check/Check.h"
#include "inspect/ByteListing.h"
#include "inspect/InspectNode.h"

namespace tovarek {

using Json = nlohmann::ordered_json;

// The version of the names and kinds of values in the JSON of dump, diff and catalog show. It rises with
// every change that a program which reads them would notice.
inline constexpr int kJsonSchema = 2;

// The text of a document, indented. Texts of inputs may hold any bytes; what is no UTF-8 is replaced rather
// than refused.
std::string JsonText(const Json& json);

// What is known of a context; unknown members are left out.
Json ContextJson(const ErrorContext& context);

// A whole real number has no fraction: 100, not 100.0.
Json ValueJson(const InspectNode::Value& value);

// A tree as one JSON value: objects and lists as what they are, names of list items left out.
Json NodeJson(const InspectNode& node);

// The findings as a list, sorted as they are; `order` is the place in the sequence of a generation.
Json FindingsJson(const std::vector<CheckedFinding>& findings);

// Files that were written, with their sizes, as a list.
Json WrittenJson(const std::vector<std::string>& files);

// An object as a JSON document that begins with its version, with a line end behind it.
std::string JsonDocument(const InspectNode& tree);

// The rows with their bytes (hexadecimal), as a list.
Json ListingJson(const ByteListing& listing, std::string_view bytes);

}  // namespace tovarek
