// Scaled numbers: value = a x 10^b x (raw + c).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/type/TypeFile.h"

namespace tovarek {

// The value of a raw number in decimal, every digit of it: "-12.5", "7E20" where it would have many zeros.
// Nothing where scaling makes all raw numbers one, or numbers that no arithmetic here holds.
std::optional<std::string> ScaledText(std::int64_t raw, const TypeDescription& type);

// The raw number that is nearest to a value, whatever the limits, and whether it is the value itself but for
// the last digits of the arithmetic. Nothing where ScaledText has none and for values beyond all raw numbers.
struct NearestRaw {
    std::int64_t raw;
    bool isExact;
};
std::optional<NearestRaw> RawOfScaled(double value, const TypeDescription& type);

// "0 to 100 % (raw 0 to 200)".
std::string LimitsText(const TypeDescription& type, const std::string& unit);

// A whole text as a decimal number: "60", "+1.5", "-2e3". Nothing when it is none.
std::optional<double> DecimalNumber(std::string_view text);

}  // namespace tovarek
