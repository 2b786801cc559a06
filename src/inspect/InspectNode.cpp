#include "inspect/InspectNode.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tovarek {
namespace {

InspectNode ValueNode(std::string_view name, InspectNode::Value value) {
    InspectNode node;
    node.name = name;
    node.value = std::move(value);
    return node;
}

}  // namespace

InspectNode& InspectNode::Add(InspectNode child) {
    return children.emplace_back(std::move(child));
}

InspectNode& InspectNode::Text(std::string_view child, std::string text) {
    return Add(ValueNode(child, std::move(text)));
}

InspectNode& InspectNode::Number(std::string_view child, std::int64_t number) {
    return Add(ValueNode(child, number));
}

InspectNode& InspectNode::Real(std::string_view child, double number) {
    if (std::isnan(number))
        return Text(child, "not a number");
    if (std::isinf(number))
        return Text(child, number < 0 ? "-infinite" : "infinite");
    return Add(ValueNode(child, number));
}

InspectNode& InspectNode::Single(std::string_view child, float number) {
    return Real(child, ShortestOf(number));
}

InspectNode& InspectNode::Flag(std::string_view child, bool flag) {
    return Add(ValueNode(child, flag));
}

const InspectNode* InspectNode::Find(std::string_view child) const {
    for (const InspectNode& node : children)
        if (node.name == child)
            return &node;
    return nullptr;
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

std::string HexText(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(3 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty())
            text += ' ';
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
    }
    return text;
}

}  // namespace tovarek
