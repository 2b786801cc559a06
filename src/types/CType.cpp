#include "types/CType.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/InputPlace.h"

namespace tovarek {
namespace {

struct KindWord {
    std::string_view word;
    ElementType type;
};
constexpr KindWord kKindWords[] = {
    {"SIGNEDNUMERIC", elementSigned},
    {"UNSIGNEDNUMERIC", elementUnsigned},
    {"BITS", elementBits},
    {"ENUM", elementEnum},
    {"TEXTUAL", elementTextual},
    {"STRUCT", elementStruct},
    {"UNION", elementUnion},
    {"FLOAT", elementFloat},
    {"BITFIELD", elementBitfield},
    {"USER", elementUnsigned},
};

}  // namespace

void CType::ConvertType(std::string_view t, const CErrorHandler& errorHandler) {
    const std::string word = UpperCase(t);
    for (const KindWord& row : kKindWords) {
        if (row.word == word) {
            elementType = row.type;
            return;
        }
    }
    std::string accepted = "accepted:";
    for (const KindWord& row : kKindWords)
        accepted.append(" ").append(row.word);
    errorHandler.RaiseError(eQVXIFerr_elementtypenotrecognized,
                            {.field = "TYPE", .value = Excerpt(t), .reason = std::move(accepted)});
}

int CType::LineOf(std::string_view child) const {
    return PlaceOf(child, {}).line;
}

const ElementLines::Child* CType::ChildOf(std::string_view child) const {
    if (!lines)
        return nullptr;
    const auto last = std::find_if(lines->children.rbegin(), lines->children.rend(),
                                   [&](const ElementLines::Child& other) { return other.name == child; });
    return last == lines->children.rend() ? nullptr : &*last;
}

ErrorContext CType::PlaceOf(std::string_view child, std::string read) const {
    ErrorContext found{
        .field = std::string(child), .value = std::move(read), .line = lines ? lines->element : 0};
    const ElementLines::Child* const last = ChildOf(child);
    if (last == nullptr)
        return found;
    found.line = last->line;
    if (!last->typed.empty()) {
        found.reason = ReadAs(last->typed, found.value);
        found.value = last->typed;
    }
    return found;
}

std::int32_t CType::RawValue(double value) const {
    // A factor of 0 scales nothing.
    if (a_coef == 0 || (a_coef == 1 && b_coef == 0))
        return RoundToInt32(value - c_coef);
    // What overflows on its way is no number or infinite in the end, which the rounding refuses.
    const double offset = static_cast<double>(a_coef) * c_coef * std::pow(10.0, b_coef);
    return RoundToInt32((value - offset) * std::pow(10.0, -static_cast<double>(b_coef)) / a_coef);
}

ErrorContext MemberContext(const CType& member) {
    return {.record = "member '" + member.name + "' (type " + std::to_string(member.typeIndex) + ")"};
}

}  // namespace tovarek
