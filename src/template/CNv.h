// One network variable of the application template.
#pragma once

#include <cstdint>
#include <string>

namespace tovarek {

// Type numbers above it are the user's own.
inline constexpr std::int32_t kLargestStandardType = 255;

struct CNv {
    std::string name;
    std::int32_t avgRate = 0;               // encoded rate, 0 = not given
    std::int32_t maxRate = 0;               // encoded rate, 0 = not given
    std::int32_t arraySize = 0;             // 0 or 1 counts as a single entry of the variable table
    std::int32_t offline = 0;               // flag
    std::int32_t direction = 0;             // 0 input, 1 output
    std::int32_t defaultService = 0;        // 0 acknowledged, 1 repeated, 2 unacknowledged
    std::int32_t serviceCanBeChanged = 1;   // flag
    std::int32_t defaultAuth = 0;           // flag
    std::int32_t authCanBeChanged = 1;      // flag
    std::int32_t defaultPriority = 0;       // flag
    std::int32_t priorityCanBeChanged = 1;  // flag
    std::int32_t polled = 0;                // flag
    std::int32_t synchronized = 0;          // flag
    std::int32_t configuration = 0;         // flag
    std::string selfdoc;
    std::int32_t index = 0;      // of its first entry in the variable table, from 0; by the loaders
    std::int32_t typeIndex = 0;  // standard type, 1 to 255; 0 = none
    std::int32_t length = 0;     // bytes of one element
    std::int32_t unvtType = 0;   // user type; validation moves type numbers above 255 here
    int line = 0;                // of the XML element, for error messages; 0 = unknown
};

}  // namespace tovarek
