#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/Error.h"
#include "base/Text.h"

namespace tovarek {
namespace {

std::string_view SkipSpace(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kWhiteSpace);
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::size_t CountDigits(std::string_view text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end - from;
}

// Length of the unsigned decimal number at the start of `text`, 0 when there is none.
std::size_t DecimalLength(std::string_view text) {
    std::size_t digits = CountDigits(text, 0);
    std::size_t length = digits;
    if (length < text.size() && text[length] == '.') {
        const std::size_t fraction = CountDigits(text, length + 1);
        digits += fraction;
        length += 1 + fraction;
    }
    if (digits == 0)
        return 0;
    if (length < text.size() && (text[length] == 'e' || text[length] == 'E')) {
        std::size_t exponent = length + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-'))
            ++exponent;
        if (const std::size_t count = CountDigits(text, exponent); count > 0)
            length = exponent + count;
    }
    return length;
}

// What an out-of-range decimal number stands for: 0 when it is too small, infinity when it is too large. The
// decimal exponent of its first significant digit decides.
double OutOfRangeValue(std::string_view number) {
    const std::size_t e = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, e);
    double exponent = 0;
    if (e != std::string_view::npos) {
        std::string_view digits = number.substr(e + 1);
        const bool negative = digits.starts_with('-');
        if (negative || digits.starts_with('+'))
            digits.remove_prefix(1);
        for (const char digit : digits)
            exponent = std::min(exponent * 10 + (digit - '0'), 1e15);
        exponent = negative ? -exponent : exponent;
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
    const double position = static_cast<double>(point) - static_cast<double>(first);
    return position + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

double UnsignedDecimal(std::string_view text) {
    const std::string_view number = text.substr(0, DecimalLength(text));
    if (number.empty())
        return 0;
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    return result.ec == std::errc::result_out_of_range ? OutOfRangeValue(number) : value;
}

// The digits of an &H or &O literal; too many of them end in infinity, which no 32-bit field takes.
double Literal(std::string_view digits, int base) {
    double value = 0;
    for (const char c : digits) {
        const int digit = HexValue(c);
        if (digit < 0 || digit >= base)
            break;
        value = value * base + digit;
    }
    return value;
}

// The nearest integer, halves to even, where it has 32 bits.
std::optional<std::int32_t> Rounded(double value) {
    // The default rounding mode of the processor is "to nearest, halves to even".
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}

}  // namespace

double LeadingNumber(std::string_view text) {
    text = SkipSpace(text);
    if (text.empty())
        return 0;
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);
    const double value = UnsignedDecimal(text);
    return negative ? -value : value;
}

double LeadingProfileNumber(std::string_view text) {
    const std::string_view start = SkipSpace(text);
    if (start.size() >= 2 && start[0] == '&') {
        if (AsciiUpper(start[1]) == 'H')
            return Literal(start.substr(2), 16);
        if (AsciiUpper(start[1]) == 'O')
            return Literal(start.substr(2), 8);
    }
    return LeadingNumber(text);
}

bool IsNumber(std::string_view text) {
    text = Trim(text);
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    return !text.empty() && DecimalLength(text) == text.size();
}

bool IsProfileNumber(std::string_view text) {
    const std::string_view literal = Trim(text);
    if (literal.size() < 3 || literal[0] != '&')
        return IsNumber(text);
    const char letter = AsciiUpper(literal[1]);
    const int base = letter == 'H' ? 16 : 8;
    return (letter == 'H' || letter == 'O') && std::all_of(literal.begin() + 2, literal.end(), [&](char c) {
               return HexValue(c) >= 0 && HexValue(c) < base;
           });
}

std::int32_t RoundToInt32(double value) {
    if (const auto rounded = Rounded(value))
        return *rounded;
    RaiseRuntimeError(RuntimeError::overflow, {.reason = kOf32Bits});
}

std::int32_t LeadingInt32(std::string_view text) {
    if (const auto number = FittingInt32(text))
        return *number;
    RaiseRuntimeError(RuntimeError::overflow, {.reason = kOf32Bits});
}

std::optional<std::int32_t> FittingInt32(std::string_view text) {
    // Nearly all numbers are a few plain digits.
    constexpr std::size_t kFewDigits = 9;
    if (!text.empty() && text.size() <= kFewDigits && std::all_of(text.begin(), text.end(), IsDigit)) {
        std::int32_t value = 0;
        for (const char digit : text)
            value = value * 10 + (digit - '0');
        return value;
    }
    return Rounded(LeadingNumber(text));
}

std::int32_t AddChecked(std::int32_t a, std::int32_t b) {
    std::int32_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        RaiseRuntimeError(RuntimeError::overflow);
    return sum;
}

std::int32_t MultiplyChecked(std::int32_t a, std::int32_t b) {
    std::int32_t product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        RaiseRuntimeError(RuntimeError::overflow);
    return product;
}

void AppendInteger(std::string& text, std::int64_t value) {
    // Most numbers of the output files are flags.
    if (value >= 0 && value <= 9) {
        text += static_cast<char>('0' + value);
        return;
    }
    std::array<char, 24> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    text.append(digits.data(), result.ptr);
}

std::string DoubleToText(double value) {
    if (value == 0)
        return "0";
    std::array<char, 40> digits;
    const auto result =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 15);
    std::string text(digits.data(), result.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

double ShortestOf(float number) {
    if (!std::isfinite(number))
        return number;
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    double value = 0;
    std::from_chars(digits.data(), end.ptr, value);
    return value;
}

std::string RealText(float number) {
    return DoubleToText(ShortestOf(number));
}

}  // namespace tovarek
