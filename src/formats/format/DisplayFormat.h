// How values of one type are shown: the model of a statement of a format file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formats/records/ResourceModel.h"

namespace tovarek {

// One value that a format shows: displayed = factor x scaled value + offset.
struct FormatParameter {
    std::string conversion;  // "%d", "%f", "%m", "%s" or another, with its flags; empty in forms without text
    std::string expression;  // path inside the type, e.g. "time.hour" or "name[2]"; empty: the type itself
    double factor = 1.0;
    double offset = 0.0;
    std::string unit;    // text of the unit, from a comment; empty when there is none
    StringRef unitText;  // or its string; number 0 when there is none
    bool operator==(const FormatParameter&) const = default;
};

// How an integer is shown that is scaled by a x 10^b x (raw + c): whole numbers stay whole as long as a and b
// leave them so.
constexpr const char* ConversionOfInteger(std::int32_t a, std::int32_t b) {
    return a == 1 && b == 0 ? "%d" : "%f";
}

struct DisplayFormat {
    std::string type;  // whole name, e.g. "SNVT_temp"
    std::string name;  // after "#"; empty for the default format
    std::string form;  // "int", "real", "text", or another function such as "date"; empty when not understood
    std::string text;  // form "text": the quoted text with its conversions, quotes left out
    std::vector<FormatParameter> parameters;
    std::string body;  // all between ":" and ";", blanks at both ends and comments left out
    bool operator==(const DisplayFormat&) const = default;
};

}  // namespace tovarek
