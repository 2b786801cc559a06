// What the caller of the creating operations says of one part of a type.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tovarek {

// What every part of a type description carries: the member's name (ignored for the type itself), the numbers
// of its three texts in the set's language file (0 = none), and the array size (0 = not an array).
struct TypeElement {
    std::string name;
    std::int32_t nameText = 0;
    std::int32_t descriptionText = 0;
    std::int32_t unitText = 0;
    std::int32_t arraySize = 0;
};

// Raw limits of a number (none: the limit of its kind) and its scaling, scaled = a x 10^b x (raw + c).
struct NumberRange {
    std::optional<std::int32_t> minimum;
    std::optional<std::int32_t> maximum;
    std::int32_t a = 1;
    std::int32_t b = 0;
    std::int32_t c = 0;
};

}  // namespace tovarek
