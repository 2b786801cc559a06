// Program IDs: sixteen hexadecimal digits that name a kind of device to every network tool. Line 5 of an XIF
// file holds one, written as eight pairs joined by ":"; templates hold the digits alone.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tovarek {

inline constexpr std::size_t kProgramIdDigits = 16;

// A field of a standard program ID, in the order of the digits.
struct ProgramIdField {
    std::string_view name;
    std::size_t first;  // digit, from 0
    std::size_t digits;
    std::string_view meaning;
};

inline constexpr auto kProgramIdFields = std::to_array<ProgramIdField>({
    {"format", 0, 1, "9, or 8 for certified devices"},
    {"maker", 1, 5, "manufacturer, a number that LonMark International gives"},
    {"class", 6, 4, "device class"},
    {"usage", 10, 2, "usage"},
    {"channel", 12, 2, "channel type, such as 04: twisted pair, free topology, 78 kbit/s"},
    {"model", 14, 2, "model, the maker's own to count"},
});

// The sixteen digits in capitals of `text`: the digits, or eight pairs of them joined by ":". Nothing for any
// other text.
std::optional<std::string> ProgramIdDigits(std::string_view text);

// True when the digits are divided into the fields above: other formats than 8 and 9 have fields of their
// own.
bool IsStandardProgramId(std::string_view digits);

// `text` as the digits of a field, in capitals and filled up with zeros in front; nothing when it holds
// anything but hexadecimal digits, none at all, or more than the field has.
std::optional<std::string> ProgramIdFieldDigits(const ProgramIdField& field, std::string_view text);

}  // namespace tovarek
