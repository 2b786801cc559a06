// One configuration property of the application template.
#pragma once

#include <cstdint>
#include <string>

namespace tovarek {

// Characters of absent values that are completed with zeros, in all the properties of one template and, apart
// from these, in all the types of one device. A length of a few digits may ask for gigabytes; what no device
// can hold ends as "out of memory" before memory does.
inline constexpr std::int64_t kMostZeros = std::int64_t{64} * 1024 * 1024;

struct CCp {
    // Takes scope, type number in the scope, length and array size from the declaration. Stops in silence at
    // the first separator that is missing. A number beyond 32 bits is runtime error 6.
    void AnalyseCP();

    // Puts the name behind the declaration, unless a text follows its first ";" already.
    void AddNameInString();

    // "header,select,scope,type,length[,array size];", fields 3 to 6 are understood here
    std::string declaration;
    std::string defaultValue;  // hexadecimal, two digits a byte, like the next three
    std::string initValue;
    std::string minValue;
    std::string maxValue;
    std::string name;                   // XML templates only
    std::int32_t length = 0;            // bytes of one element
    std::int32_t arraySize = 0;         // 0 = not an array
    std::int32_t scope = 0;             // 0 to 9 as the declaration says
    std::int32_t typeIndex = 0;         // format number of the property's type
    std::int32_t typeIndexInScope = 0;  // number of the type in its scope
    int line = 0;                       // of the XML element, for error messages; 0 = unknown
};

}  // namespace tovarek
