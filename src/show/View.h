// A device as people look at it: one model, and every form of it is written from that. All texts are UTF-8
// without characters that a form could stumble over.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

struct ViewTable {
    std::string title;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;  // as many cells as columns
};

// A variable or property in the drawing.
struct ViewPort {
    std::string name;
    std::string type;  // of a property its value
    std::string unit{};

    std::string TypeAndUnit() const { return type + (unit.empty() ? "" : ", " + unit); }
};

// A box of the drawing: a functional block of the self-documentation, or what belongs to none.
struct ViewBlock {
    std::string title;
    std::vector<ViewPort> inputs;
    std::vector<ViewPort> outputs;
    std::vector<ViewPort> properties;
};

// A type as a tree, in the order of its lines; the first is the type itself, at depth 0.
struct ViewType {
    struct Line {
        std::size_t depth = 0;
        std::string text;
    };
    std::vector<Line> lines;
};

struct View {
    std::string title;
    std::string text;  // of the self-documentation, for people; may be empty
    std::vector<ViewTable> facts;
    std::vector<ViewBlock> blocks;
    std::vector<ViewTable> records;
    std::vector<ViewType> types;
};

// `text` without control characters, marks that turn the direction of writing, and bytes that are no UTF-8.
std::string ShownText(std::string_view text);

}  // namespace tovarek
