#include "inspect/InspectText.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tovarek {
namespace {

constexpr std::size_t kMostInOneLine = 4;

// A few values that belong together read better side by side.
bool FitsOneLine(const InspectNode& node) {
    if (node.IsList())
        return std::all_of(node.children.begin(), node.children.end(), [](const InspectNode& child) {
            return child.name.empty() && std::holds_alternative<std::int64_t>(child.value);
        });
    return node.shape == InspectNode::Shape::object && node.children.size() <= kMostInOneLine &&
           std::all_of(node.children.begin(), node.children.end(),
                       [](const InspectNode& child) { return child.shape == InspectNode::Shape::value; });
}

void AppendTree(const InspectNode& node, std::size_t depth, std::string& text) {
    std::size_t position = 0;
    for (const InspectNode& child : node.children) {
        ++position;
        text.append(2 * depth, ' ');
        if (!node.IsList())
            text += child.name + ':';
        else
            text += '[' + (child.name.empty() ? std::to_string(position) : Printable(child.name)) + "]:";
        if (child.shape == InspectNode::Shape::value) {
            const std::string value = ValueText(child.value);
            text += value.empty() ? "\n" : ' ' + value + '\n';
        } else if (child.children.empty()) {
            text += " none\n";
        } else if (FitsOneLine(child)) {
            text += ' ' + OneLineText(child, false) + '\n';
        } else {
            text += '\n';
            AppendTree(child, depth + 1, text);
        }
    }
}

void AppendOneLine(const InspectNode& node, bool comparedOnly, std::string& text) {
    if (node.shape == InspectNode::Shape::value) {
        text += ValueText(node.value);
        return;
    }
    bool first = true;
    for (const InspectNode& child : node.children) {
        if (comparedOnly && child.derived)
            continue;
        if (!first)
            text += ", ";
        first = false;
        const bool nested = child.shape != InspectNode::Shape::value;
        if (!node.IsList())
            text += child.name + ' ';
        text += nested ? "(" : "";
        AppendOneLine(child, comparedOnly, text);
        text += nested ? ")" : "";
    }
}

}  // namespace

std::string TreeText(const InspectNode& node) {
    std::string text;
    AppendTree(node, 0, text);
    return text;
}

std::string ValueText(const InspectNode::Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return Printable(*text);
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return std::to_string(*number);
    if (const auto* real = std::get_if<double>(&value))
        return DoubleToText(*real);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "yes" : "no";
    return "none";
}

std::string OneLineText(const InspectNode& node, bool comparedOnly) {
    std::string text;
    AppendOneLine(node, comparedOnly, text);
    return text;
}

}  // namespace tovarek
