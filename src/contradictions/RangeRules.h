// Raw values and limits of a property against their type and against each other.
#pragma once

#include <functional>
#include <string>

#include "values/ValueTypes.h"

namespace tovarek {

// The type that values are judged by, and what its references and units mean.
struct JudgedType {
    ValueType type;
    const ResourceNames& names;
};

// A value, what a device begins with, and its limits, in hexadecimal; empty where nothing is given.
struct RawValues {
    std::string value;
    std::string initial;
    std::string minimum;
    std::string maximum;
};

// A fault of one of the values, and the other one that it contradicts; null: the type.
using TakeFault = std::function<void(std::string RawValues::*value, const std::string& reason,
                                     std::string RawValues::*other)>;

// Tells `take` at most one fault of each value. An initial value that is the value again is not judged.
void JudgeValues(RawValues values, const JudgedType& judged, const TakeFault& take);

}  // namespace tovarek
