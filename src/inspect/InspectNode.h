// What a file says, as a tree of named values: the one form that people's text, JSON and comparisons are made
// from.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tovarek {

struct InspectNode {
    enum class Shape : std::uint8_t {
        value,     // one value, no children
        object,    // children with a name each
        list,      // children whose names, where they have any, are keys; their order tells nothing
        sequence,  // a list whose order counts
    };
    using Value = std::variant<std::monostate, std::int64_t, double, bool, std::string>;

    std::string name;
    Shape shape = Shape::value;
    // Follows from other values, from other files or from the moment of saving: shown, but never compared.
    bool derived = false;
    Value value;
    // The whole text that a reference to a string stands for, where the language file of its set tells.
    // Where both sides have it, comparisons take it in place of the value.
    std::shared_ptr<const std::string> meaning;
    std::vector<InspectNode> children;

    static InspectNode Object(std::string_view name) { return {std::string(name), Shape::object}; }
    static InspectNode List(std::string_view name) { return {std::string(name), Shape::list}; }
    static InspectNode Sequence(std::string_view name) { return {std::string(name), Shape::sequence}; }

    bool IsList() const { return shape == Shape::list || shape == Shape::sequence; }

    // Append a child. The answer is valid until the next child is appended.
    InspectNode& Add(InspectNode child);
    InspectNode& Put(std::string_view child, Value content);
    InspectNode& Text(std::string_view child, std::string text);
    InspectNode& Number(std::string_view child, std::int64_t number);
    // A number that JSON cannot hold (infinite, or none at all) becomes a text.
    InspectNode& Real(std::string_view child, double number);
    // A 4-byte float by its shortest decimal digits.
    InspectNode& Single(std::string_view child, float number);
    InspectNode& Flag(std::string_view child, bool flag);

    // The child of this name, or null.
    const InspectNode* Find(std::string_view child) const;
};

}  // namespace tovarek
