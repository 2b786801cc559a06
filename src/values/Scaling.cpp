#include "values/Scaling.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/Text.h"

namespace tovarek {
namespace {

// Powers of ten up to here keep products with raw numbers within a double.
constexpr int kLargestExponent = 290;
// So many zeros are written out.
constexpr int kMostZeros = 12;
// Larger ones are the raw numbers of no kind.
constexpr double kLargestRaw = 1e12;
// Of a step; a product of a raw number and its scaling is off by less, half a step by more.
constexpr double kSameValue = 1e-4;

bool IsScaled(const TypeDescription& type) {
    return type.a != 0 && std::abs(int{type.b}) <= kLargestExponent;
}

// `digits` x 10^-places.
std::string WithPoint(std::string digits, std::size_t places) {
    if (digits.size() <= places)
        digits.insert(0, places + 1 - digits.size(), '0');
    digits.insert(digits.size() - places, 1, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.')
        digits.pop_back();
    return digits;
}

}  // namespace

std::optional<std::string> ScaledText(std::int64_t raw, const TypeDescription& type) {
    if (!IsScaled(type))
        return std::nullopt;
    // Both factors have 16 and 33 bits at most.
    const std::int64_t product = type.a * (raw + type.c);
    if (product == 0)
        return "0";
    const int b = type.b;
    const std::string sign = product < 0 ? "-" : "";
    const std::string digits = std::to_string(std::abs(product));
    if (b < -kMostZeros - static_cast<int>(digits.size()) || b > kMostZeros)
        return sign + digits + 'E' + std::to_string(b);
    if (b >= 0)
        return sign + digits + std::string(static_cast<std::size_t>(b), '0');
    return sign + WithPoint(digits, static_cast<std::size_t>(-b));
}

std::optional<NearestRaw> RawOfScaled(double value, const TypeDescription& type) {
    if (!IsScaled(type))
        return std::nullopt;
    // Positive powers of ten are exact where it matters.
    const double power = std::pow(10.0, std::abs(int{type.b}));
    const double raw = (type.b < 0 ? value * power : value / power) / type.a - type.c;
    if (!(std::abs(raw) <= kLargestRaw))
        return std::nullopt;
    const double nearest = std::nearbyint(raw);
    return NearestRaw{static_cast<std::int64_t>(nearest), std::abs(raw - nearest) < kSameValue};
}

std::string LimitsText(const TypeDescription& type, const std::string& unit) {
    std::string raw = "raw " + std::to_string(type.minimum) + " to " + std::to_string(type.maximum);
    const std::optional<std::string> low = ScaledText(type.minimum, type);
    const std::optional<std::string> high = ScaledText(type.maximum, type);
    if (!low || !high)
        return raw;
    const bool isFalling = type.a < 0;
    return (isFalling ? *high : *low) + " to " + (isFalling ? *low : *high) +
           (unit.empty() ? "" : " " + unit) + " (" + raw + ")";
}

std::optional<double> DecimalNumber(std::string_view text) {
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
    // Words such as "inf" are no numbers here.
    if (digits.empty() || (!IsDigit(digits.front()) && digits.front() != '.'))
        return std::nullopt;
    double value = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}

}  // namespace tovarek
