#include "contradictions/RangeRules.h"

#include <algorithm>
#include <bit>
#include <optional>

#include "base/Text.h"

namespace tovarek {
namespace {

constexpr std::string RawValues::*kValue = &RawValues::value;
constexpr std::string RawValues::*kInitial = &RawValues::initial;
constexpr std::string RawValues::*kMinimum = &RawValues::minimum;
constexpr std::string RawValues::*kMaximum = &RawValues::maximum;

// The first member that is beyond its limits. Which member of a union is meant is not known.
const std::string* FirstFault(const DecodedValue& value) {
    if (!value.fault.empty())
        return &value.fault;
    if (!value.isUnion)
        for (const DecodedValue& child : value.children)
            if (const std::string* const fault = FirstFault(child))
                return fault;
    return nullptr;
}

// The elements of a value, an array or not; none where it has no whole number of them.
class ValueElements {
  public:
    ValueElements(const std::string& hexadecimal, const JudgedType& judged)
        : bytes_(FromHex(hexadecimal).value_or("")), step_(SizeOf(judged.type.type)) {
        if (step_ == 0 || bytes_.size() % step_ != 0)
            bytes_.clear();
    }
    std::size_t Count() const { return bytes_.empty() ? 0 : bytes_.size() / step_; }
    std::string_view At(std::size_t index) const {
        return std::string_view(bytes_).substr(index * step_, step_);
    }

  private:
    std::string bytes_;
    std::size_t step_;
};

// Why no element may have its value; empty when all may. Limits may be the invalid value.
std::string FaultOf(const std::string& hexadecimal, const JudgedType& judged, bool isLimit) {
    const ValueElements elements(hexadecimal, judged);
    for (std::size_t i = 0; i < elements.Count(); ++i) {
        // An array may be millions of zeros.
        if (i > 0 && elements.At(i) == elements.At(i - 1))
            continue;
        const std::string where = elements.Count() == 1 ? "" : "element " + std::to_string(i + 1) + ": ";
        DecodedValue value;
        std::vector<std::string> notes;
        if (!DecodeValue(judged.type, elements.At(i), judged.names, value, notes).Ok())
            return {};
        if (const std::string* const fault = FirstFault(value))
            return where + *fault;
        if (value.isInvalid && !isLimit)
            return where + "this is the value by which " + judged.type.name + " says that there is none";
    }
    return {};
}

// A number as it is compared; nothing for what has no order.
std::optional<double> Number(std::string_view bytes, const JudgedType& judged) {
    const ShownType shown = ShownTypeOf(judged.type.type, {}, judged.names);
    if (shown.type == nullptr || shown.size != bytes.size())
        return std::nullopt;
    if (shown.shape == ValueShape::integer || shown.shape == ValueShape::enumeration)
        return static_cast<double>(ReadRaw(bytes, 0, *shown.type));
    if (shown.shape != ValueShape::real)
        return std::nullopt;
    const std::int64_t bits = ReadRaw(bytes, 0, NumberOfKind(TypeKind::unsignedQuad));
    return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
}

// Whether an element of `low` exceeds that of `high`. An array may have limits of one element.
bool Exceeds(const std::string& low, const std::string& high, const JudgedType& judged) {
    const ValueElements lows(low, judged);
    const ValueElements highs(high, judged);
    if (lows.Count() == 0 || highs.Count() == 0)
        return false;
    for (std::size_t i = 0; i < std::max(lows.Count(), highs.Count()); ++i) {
        const std::optional<double> a = Number(lows.At(std::min(i, lows.Count() - 1)), judged);
        const std::optional<double> b = Number(highs.At(std::min(i, highs.Count() - 1)), judged);
        if (a && b && *a > *b)
            return true;
    }
    return false;
}

}  // namespace

void JudgeValues(RawValues values, const JudgedType& judged, const TakeFault& take) {
    // A copy repeats the fault.
    if (values.initial == values.value)
        values.initial.clear();
    for (std::string RawValues::*const member : {kMinimum, kMaximum, kValue, kInitial}) {
        const bool isLimit = member == kMinimum || member == kMaximum;
        const std::string fault = FaultOf(values.*member, judged, isLimit);
        if (fault.empty())
            continue;
        take(member, fault, nullptr);
        (values.*member).clear();
    }
    if (Exceeds(values.minimum, values.maximum, judged))
        return take(kMinimum, "the minimum exceeds the maximum, so that no value is allowed", kMaximum);
    for (std::string RawValues::*const member : {kValue, kInitial}) {
        if (Exceeds(values.minimum, values.*member, judged))
            take(member, "it is below the minimum", kMinimum);
        else if (Exceeds(values.*member, values.maximum, judged))
            take(member, "it exceeds the maximum", kMaximum);
    }
}

}  // namespace tovarek
