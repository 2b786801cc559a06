// What a property's declaration says, and what of it is read as something else.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

// A sentence about `declaration`, "header,select,scope,type,length[,array size[,range]];" as a template has
// it; empty when all of it says what is read.
std::string OddityOfDeclaration(std::string_view declaration);

// Whether nothing but the ';' at its end is odd.
bool LacksEnd(std::string_view declaration);

// What a property belongs to, as the first two fields of its declaration tell.
struct PropertyOwner {
    enum class Kind : std::uint8_t { device, object, variable };
    Kind kind = Kind::device;
    std::string selection;  // as it is written
    std::vector<std::int64_t>
        positions;  // from 0, the ends of ranges; a number beyond 32 bits is the largest
};

// Nothing where a field of the declaration is not what it should be.
std::optional<PropertyOwner> OwnerOfProperty(std::string_view declaration);

}  // namespace tovarek
