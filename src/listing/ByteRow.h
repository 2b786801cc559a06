// One field of a file in a byte listing.
#pragma once

#include <cstddef>
#include <string>

namespace tovarek {

struct ByteRow {
    std::size_t offset = 0;
    std::size_t length = 0;  // at least 1
    int depth = 0;           // how deep the field is nested inside its record
    std::string record;      // "NV type 3"; empty outside records
    std::string field;
    std::string value;
};

}  // namespace tovarek
