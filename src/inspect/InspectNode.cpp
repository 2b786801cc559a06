#include "inspect/InspectNode.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/Numbers.h"

namespace tovarek {

InspectNode& InspectNode::Add(InspectNode child) {
    return children.emplace_back(std::move(child));
}

InspectNode& InspectNode::Put(std::string_view child, Value content) {
    InspectNode& node = children.emplace_back();
    node.name = child;
    node.value = std::move(content);
    return node;
}

InspectNode& InspectNode::Text(std::string_view child, std::string text) {
    return Put(child, std::move(text));
}

InspectNode& InspectNode::Number(std::string_view child, std::int64_t number) {
    return Put(child, number);
}

InspectNode& InspectNode::Real(std::string_view child, double number) {
    if (std::isnan(number))
        return Text(child, "not a number");
    if (std::isinf(number))
        return Text(child, number < 0 ? "-infinite" : "infinite");
    return Put(child, number);
}

InspectNode& InspectNode::Single(std::string_view child, float number) {
    return Real(child, ShortestOf(number));
}

InspectNode& InspectNode::Flag(std::string_view child, bool flag) {
    return Put(child, flag);
}

const InspectNode* InspectNode::Find(std::string_view child) const {
    for (const InspectNode& node : children)
        if (node.name == child)
            return &node;
    return nullptr;
}

}  // namespace tovarek
