// One message tag of the application template.
#pragma once

#include <cstdint>
#include <string>

namespace tovarek {

struct CTag {
    std::string name;
    std::int32_t avgRate = 0;   // encoded rate, 0 = not given
    std::int32_t maxRate = 0;   // encoded rate, 0 = not given
    std::int32_t bindable = 1;  // flag
    std::int32_t index = 0;     // position in the file, from 0
    int line = 0;               // of the XML element, for error messages; 0 = unknown
};

}  // namespace tovarek
