// One field of a file in a byte listing.
#pragma once

#include <cstddef>
#include <string>

namespace tovarek {

struct ByteRow {
    std::size_t offset;
    std::size_t length;  // at least 1
    int depth;           // how deep the field is nested inside its record
    std::string record;  // "NV type 3"; empty outside records
    std::string field;
    std::string value;
};

}  // namespace tovarek
