// Format files, catalogs and device-interface files, line by line.
#pragma once

#include <string_view>
#include <vector>

#include "formats/kind/FileKind.h"
#include "listing/ByteRow.h"

namespace tovarek {

// The value of a row whose bytes are no text.
inline constexpr std::string_view kNoText = "no text";

// Rows are whole lines with their line ends; the value is the line, control characters made visible.
std::vector<ByteRow> ListLines(std::string_view bytes, FileKind kind);

}  // namespace tovarek
