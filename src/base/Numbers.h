// Numbers: text to number by the rules of the input formats, number to text by those of the output formats,
// and 32-bit arithmetic that never wraps. None of it depends on a locale.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovarek {

// The longest leading number of `text`: blanks, tabs, CR and LF before it are skipped, then an optional sign,
// decimal digits with an optional point fraction, an optional exponent (e or E). No number gives 0. A number
// beyond the range of a double is infinite, one below it 0.
double LeadingNumber(std::string_view text);

// As LeadingNumber; &H (hexadecimal) and &O (octal) literals count as well, without a sign, in either case of
// the letter. One without digits is 0. Only device profiles are read so.
double LeadingProfileNumber(std::string_view text);

// Whether `text` is a number by the rules of LeadingNumber or LeadingProfileNumber, with nothing but white
// space around it.
bool IsNumber(std::string_view text);
bool IsProfileNumber(std::string_view text);

// The nearest 32-bit integer, halves to even. Outside the range, and for what is no number: runtime error 6.
std::int32_t RoundToInt32(double value);

// RoundToInt32(LeadingNumber(text)).
std::int32_t LeadingInt32(std::string_view text);
// The same; nothing where that is outside the range.
std::optional<std::int32_t> FittingInt32(std::string_view text);

// The number that all of `text` is, digits of `base` behind at most a minus sign; nothing for any other text
// and for what a Number cannot hold.
template <class Number>
std::optional<Number> ExactNumber(std::string_view text, int base = 10) {
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// Why a number is refused that does not fit.
inline constexpr const char* kOf32Bits = "numbers here are whole and lie between -2147483648 and 2147483647";

// Sum and product; runtime error 6 when they do not fit 32 bits.
std::int32_t AddChecked(std::int32_t a, std::int32_t b);
std::int32_t MultiplyChecked(std::int32_t a, std::int32_t b);

// Appends `value` in decimal, a minus sign when negative, no fill.
void AppendInteger(std::string& text, std::int64_t value);

// The platform's default text of a 64-bit float with a point: up to 15 significant digits, exponent form
// below 1E-04 and from 1E+15 (upper-case E, sign, at least two digits), 0.5 with its zero, negative zero as
// 0.
std::string DoubleToText(double value);

// The number that the shortest decimal digits of a 4-byte float name: 0.1, not 0.10000000149011612.
double ShortestOf(float number);

// DoubleToText of that number: the form in which people read the reals of types and values.
std::string RealText(float number);

}  // namespace tovarek
