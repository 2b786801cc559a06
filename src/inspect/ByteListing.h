// Every byte of a file once, in the order of the file, with the field that it belongs to and what it says.
// It is read by rules of its own, apart from the control's readers and writers, so that it can settle who is
// wrong when two tools disagree; damaged files are listed as far as they can be understood.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "formats/kind/FileKind.h"
#include "listing/ByteRow.h"

namespace tovarek {

struct ByteListing {
    bool isText = false;  // rows are lines
    std::vector<ByteRow> rows;
};

ByteListing ListBytes(std::string_view bytes, FileKind kind);

// The rows with their bytes (hexadecimal, or the line itself in text files).
std::string ListingText(const ByteListing& listing, std::string_view bytes);

}  // namespace tovarek
