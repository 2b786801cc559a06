#include "values/ProgramId.h"

#include <algorithm>
#include <iterator>

#include "base/Text.h"

namespace tovarek {

std::optional<std::string> ProgramIdDigits(std::string_view text) {
    constexpr std::size_t kPairStep = 3;
    constexpr std::size_t kInPairs = kProgramIdDigits / 2 * kPairStep - 1;  // no ":" behind the last
    if (text.size() != kProgramIdDigits && text.size() != kInPairs)
        return std::nullopt;
    std::string digits;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isBetweenPairs = text.size() == kInPairs && i % kPairStep == 2;
        if (isBetweenPairs != (text[i] == ':'))
            return std::nullopt;
        if (!isBetweenPairs)
            digits += AsciiUpper(text[i]);
    }
    if (!std::all_of(digits.begin(), digits.end(), IsHexDigit))
        return std::nullopt;
    return digits;
}

bool IsStandardProgramId(std::string_view digits) {
    return digits.starts_with('8') || digits.starts_with('9');
}

std::optional<std::string> ProgramIdFieldDigits(const ProgramIdField& field, std::string_view text) {
    if (text.empty() || text.size() > field.digits || !std::all_of(text.begin(), text.end(), IsHexDigit))
        return std::nullopt;
    std::string digits(field.digits - text.size(), '0');
    std::transform(text.begin(), text.end(), std::back_inserter(digits), AsciiUpper);
    return digits;
}

}  // namespace tovarek
