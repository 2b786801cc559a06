#include "profile/ProfileMends.h"

#include <cmath>
#include <optional>

#include "base/Numbers.h"
#include "base/Text.h"
#include "profile/ProfileRules.h"

namespace tovarek {
namespace {

// In capitals, each word with blanks around it.
struct Words {
    std::int32_t ProfileValues::*field;
    std::int32_t value;
    std::string_view words;
};
constexpr Words kWords[] = {
    {&ProfileValues::typeneuron, 0, " 3150 FT3150 TP3150 NEURON3150 "},
    {&ProfileValues::typeneuron, 14, " 3120E4 FT3120E4 NEURON3120E4 "},
    {&ProfileValues::wakeupPinDir, 0, " INPUT IN "},
    {&ProfileValues::wakeupPinDir, 1, " OUTPUT OUT "},
};
constexpr Words kFlags[] = {{nullptr, 0, " NO FALSE OFF "}, {nullptr, 1, " YES TRUE ON "}};

// Code 1 of a clock; each further one doubles it, up to code 7.
constexpr double kSlowestMegahertz = 0.625;
constexpr int kLastClockCode = 7;

std::string_view AcceptedBy(const ProfileField& field) {
    for (const ProfileRule& rule : ProfileRules())
        if (rule.field == field.value)
            return rule.accepted;
    return {};
}

std::optional<std::int32_t> ClockCode(std::string_view typed) {
    const double megahertz = LeadingNumber(typed);
    for (int code = 1; code <= kLastClockCode; ++code)
        if (megahertz == std::ldexp(kSlowestMegahertz, code - 1))
            return code;
    return std::nullopt;
}

// "&H1F" and "0x1F", which only some of the forms read.
std::optional<std::int32_t> HexNumber(std::string_view typed) {
    if (typed.size() < 3 || (typed.substr(0, 2) != "0x" && typed.substr(0, 2) != "0X" &&
                             typed.substr(0, 2) != "&H" && typed.substr(0, 2) != "&h"))
        return std::nullopt;
    const std::string literal = "&H" + std::string(typed.substr(2));
    const double value = LeadingProfileNumber(literal);
    if (!IsProfileNumber(literal) || value > INT32_MAX)
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> NumberMeant(const ProfileField& field, std::string_view typed,
                                        std::string_view accepted) {
    std::string word = UpperCase(typed);
    const bool isClock = field.value == &ProfileValues::protocolClockRate ||
                         field.value == &ProfileValues::minimumClockRate ||
                         field.value == &ProfileValues::rawDataClockRate;
    if (isClock && word.ends_with("MHZ"))
        return ClockCode(typed);
    if (const auto number = HexNumber(typed))
        return number;
    std::erase_if(word, [](char c) { return c == ' ' || c == '-' || c == '_'; });
    word = " " + word + " ";
    for (const Words& row : kWords)
        if (row.field == field.value && row.words.find(word) != std::string_view::npos)
            return row.value;
    for (const Words& row : kFlags)
        if (accepted == "0 or 1" && row.words.find(word) != std::string_view::npos)
            return row.value;
    return std::nullopt;
}

}  // namespace

Advice MendOfProfile(const ProfileField& field, std::string_view typed, bool isXml) {
    const std::string_view accepted = AcceptedBy(field);
    if (const auto number = NumberMeant(field, typed, accepted)) {
        const std::string value = std::to_string(*number);
        const std::string name = isXml ? UpperCase(field.name) : std::string(field.iniKey);
        return {isXml ? "write <" + name + ">" + value + "</" + name + ">" : "write " + name + "=" + value,
                value};
    }
    return {"it takes " + std::string(accepted.empty() ? "a whole number" : accepted)};
}

}  // namespace tovarek
