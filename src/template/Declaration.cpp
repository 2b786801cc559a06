#include "template/Declaration.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tovarek {
namespace {

constexpr std::size_t kFieldsRead = 6;

bool AreDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

std::vector<std::string_view> FieldsOf(std::string_view text) {
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t end = text.find(',');
        fields.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return fields;
        text.remove_prefix(end + 1);
    }
}

// Nothing, an index, a list of them ("1.2.4") or a range ("1~4").
bool IsSelection(std::string_view text) {
    if (text.empty())
        return true;
    const auto isPart = [](char c) { return IsDigit(c) || c == '.' || c == '~'; };
    return std::all_of(text.begin(), text.end(), isPart) && IsDigit(text.front()) && IsDigit(text.back());
}

// What may follow the digit of the scope: one byte, as an escape or as itself.
bool IsFlagsByte(std::string_view text) {
    const bool isEscape = text.size() == 4 && text[0] == '\\' && AsciiLower(text[1]) == 'x' &&
                          IsHexDigit(text[2]) && IsHexDigit(text[3]);
    return text.empty() || isEscape || (!IsAscii(text) && CharacterCount(text) == 1);
}

std::string OddityOfScope(std::string_view scope) {
    if (scope.empty() || !IsDigit(scope.front()))
        return "its third field " + QuotedExcerpt(scope) + " is no scope and is read as 0";
    if (IsFlagsByte(scope.substr(1)))
        return {};
    return "its third field " + QuotedExcerpt(scope) + " is read as scope " +
           std::string(scope.substr(0, 1)) +
           ": a scope is one digit, with nothing behind it but one flags byte such as \\x80";
}

std::string OddityOfField(std::string_view field, std::size_t position) {
    switch (position) {
        case 0:
            return field == "0" || field == "1" || field == "2"
                       ? ""
                       : "its first field " + QuotedExcerpt(field) +
                             " is none of 0 for the device, 1 for objects, 2 for network variables";
        case 1:
            return IsSelection(field) ? ""
                                      : "its second field " + QuotedExcerpt(field) +
                                            " is no number of an object or network variable";
        case 2:
            return OddityOfScope(field);
        default: {
            constexpr std::string_view kNames[] = {"type number", "length", "array size"};
            const bool isNegative = field.starts_with('-') && AreDigits(field.substr(1));
            if (AreDigits(field) || isNegative)
                return {};
            return "its " + std::string(kNames[position - 3]) + " " + QuotedExcerpt(field) +
                   " is not a number";
        }
    }
}

}  // namespace

std::string OddityOfDeclaration(std::string_view declaration) {
    const std::size_t end = declaration.find(';');
    const std::vector<std::string_view> fields = FieldsOf(declaration.substr(0, end));
    // A range of values may stand behind the array size, also when that is left out.
    const bool hasRange = fields.size() == kFieldsRead + 1 && fields.back().find(':') != std::string::npos;
    for (std::size_t i = 0; i < std::min(fields.size(), kFieldsRead); ++i) {
        const bool isLeftOut = hasRange && i + 1 == kFieldsRead && fields[i].empty();
        if (std::string oddity = OddityOfField(fields[i], i); !oddity.empty() && !isLeftOut)
            return oddity;
    }
    if (fields.size() > kFieldsRead && !hasRange)
        return "its fields from " + QuotedExcerpt(fields[kFieldsRead]) + " on are not read";
    if (end == std::string_view::npos)
        return "it has no ';' at its end; one is added";
    if (end + 1 < declaration.size())
        return "the text " + QuotedExcerpt(declaration.substr(end + 1)) +
               " behind its first ';' is written as it is; other programs take it for the next declaration";
    return {};
}

bool LacksEnd(std::string_view declaration) {
    return !OddityOfDeclaration(declaration).empty() &&
           OddityOfDeclaration(std::string(declaration) + ';').empty();
}

std::optional<PropertyOwner> OwnerOfProperty(std::string_view declaration) {
    declaration = declaration.substr(0, declaration.find(';'));
    if (!OddityOfDeclaration(std::string(declaration) + ';').empty())
        return std::nullopt;
    const std::vector<std::string_view> fields = FieldsOf(declaration);
    if (fields.size() < 2)
        return std::nullopt;
    PropertyOwner owner{.kind = static_cast<PropertyOwner::Kind>(HexValue(fields[0][0])),
                        .selection = std::string(fields[1])};
    for (std::string_view rest = fields[1]; !rest.empty();) {
        const std::size_t end = std::min(rest.find_first_of(".~"), rest.size());
        owner.positions.push_back(ExactNumber<std::int64_t>(rest.substr(0, end)).value_or(INT32_MAX));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return owner;
}

}  // namespace tovarek
