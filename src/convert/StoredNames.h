// What the names that resource files store tell of the names in the generator's inputs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/DeviceInterface.h"

namespace tovarek {

// An enumeration is called after its definition: ENUM_303_fanMode.
struct EnumName {
    std::int32_t number;  // 0: the name tells none
    std::string name;     // empty: the definition had none in front
};
EnumName EnumNameOf(std::string_view set);

// Gives a type whose number, scope and kind are known the name, and the number in front of it, that the
// generator makes the stored name of.
void NameType(std::string_view stored, UserType& type);

}  // namespace tovarek
