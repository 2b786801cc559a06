// What people call the kinds of type descriptions.
#pragma once

#include <array>
#include <string_view>

namespace tovarek {

// By code in the file; the sizes are short 1, long 2 and quad 4 bytes. 0 is no kind.
inline constexpr auto kKindNames = std::to_array<std::string_view>({
    "unknown kind",
    "signed character",
    "unsigned character",
    "signed short",
    "unsigned short",
    "signed long",
    "unsigned long",
    "enumeration",
    "array",
    "structure",
    "union",
    "bit field",
    "float",
    "signed quad",
    "reference",
    "unsigned quad",
});

}  // namespace tovarek
