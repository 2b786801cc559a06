#include "formats/format/FormatExpression.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tovarek {
namespace {

// Takes a number with an optional sign from the front of `text`.
std::optional<double> TakeNumber(std::string_view& text) {
    std::string_view digits = Trim(text);
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+'))
        digits = Trim(digits.substr(1));
    if (digits.empty() || !(IsDigit(digits[0]) || digits[0] == '.'))
        return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc())
        return std::nullopt;
    text = digits.substr(static_cast<std::size_t>(end - digits.data()));
    return negative ? -value : value;
}

// Takes "(scope:number)" from the end of `text`.
void TakeUnit(std::string_view& text, StringRef& unit) {
    if (!text.ends_with(')'))
        return;
    const std::size_t open = text.rfind('(');
    if (open == std::string_view::npos)
        return;
    const std::string_view inside = text.substr(open + 1, text.size() - open - 2);
    const std::size_t colon = inside.find(':');
    if (colon == std::string_view::npos)
        return;
    const auto scope = ExactNumber<std::uint8_t>(Trim(inside.substr(0, colon)));
    const auto number = ExactNumber<std::uint32_t>(Trim(inside.substr(colon + 1)));
    if (!scope || *scope > 6 || !number || *number > kLastString)
        return;
    unit = {*scope, *number};
    text = Trim(text.substr(0, open));
}

}  // namespace

FormatParameter ParseFormatExpression(std::string_view text) {
    FormatParameter parameter;
    text = Trim(text);
    TakeUnit(text, parameter.unitText);
    parameter.expression = text;
    // The last asterisk: what stands before it is the path, whatever it holds.
    const std::size_t star = text.rfind('*');
    if (star == std::string_view::npos)
        return parameter;
    std::string_view rest = text.substr(star + 1);
    const std::optional<double> factor = TakeNumber(rest);
    if (!factor)
        return parameter;
    std::optional<double> offset = 0.0;
    if (!Trim(rest).empty())
        offset = TakeNumber(rest);
    if (!offset || !Trim(rest).empty())
        return parameter;
    parameter.expression = Trim(text.substr(0, star));
    parameter.factor = *factor;
    parameter.offset = *offset;
    return parameter;
}

void AppendFactorAndOffset(std::string& text, double factor, double offset) {
    const std::string offsetText = DoubleToText(offset);
    text += '*' + DoubleToText(factor);
    if (!offsetText.starts_with('-'))
        text += '+';
    text += offsetText;
}

std::string FormatExpressionText(const FormatParameter& parameter) {
    std::string text = parameter.expression;
    const bool hasUnit = !parameter.unit.empty() || parameter.unitText.number != 0;
    // A path that ends like a factor or a unit would be taken for one, unless those of its own stand behind.
    const bool isPlain = ParseFormatExpression(text).expression == text;
    const bool isScaled = DoubleToText(parameter.factor) != "1" || DoubleToText(parameter.offset) != "0";
    if (isScaled || hasUnit || !isPlain)
        AppendFactorAndOffset(text, parameter.factor, parameter.offset);
    if (parameter.unitText.number != 0) {
        text += '(';
        AppendInteger(text, parameter.unitText.scope);
        text += ':';
        AppendInteger(text, parameter.unitText.number);
        text += ')';
    }
    return text;
}

void AppendUnitComment(std::string& text, std::string_view unit) {
    text += "\t! ";
    while (!unit.empty()) {
        const std::size_t start = std::min(unit.find_first_of(kWhiteSpace), unit.size());
        const std::size_t end = std::min(unit.find_first_not_of(kWhiteSpace, start), unit.size());
        const std::string_view run = unit.substr(start, end - start);
        text += unit.substr(0, start);
        text += run.find_first_of("\r\n") == std::string_view::npos ? run : " ";
        unit.remove_prefix(end);
    }
}

std::vector<std::string> ConversionsOf(std::string_view text) {
    std::vector<std::string> conversions;
    for (std::size_t i = text.find('%'); i != std::string_view::npos; i = text.find('%', i)) {
        const std::size_t end = text.find_first_not_of("-+ #.0123456789", i + 1);
        if (end == std::string_view::npos)
            break;
        if (text[end] != '%')
            conversions.emplace_back(text.substr(i, end - i + 1));
        i = end + 1;
    }
    return conversions;
}

}  // namespace tovarek
