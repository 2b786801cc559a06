// Where the file of a document type definition lies.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovarek {

// The path of the file that the system identifier `name`, as it stands in the document at `document`, stands
// for: a path, or a URL of the scheme "file", with "/" or "\" between folders and %xx for any byte. A
// relative one begins at the document's folder, a rooted one at the document's drive. Nothing for an empty
// name, for another scheme and for another machine, which a document must not make us ask.
std::optional<std::string> DtdPath(std::string_view document, std::string_view name);

}  // namespace tovarek
