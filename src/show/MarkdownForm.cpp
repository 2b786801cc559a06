#include <algorithm>
#include <string_view>

#include "show/ViewForms.h"

namespace tovarek {
namespace {

// A text of ours or of a file in a line or a cell: nothing of it means anything.
std::string Plain(std::string_view text) {
    constexpr std::string_view kMarks = "\\`*_|<>[]&~#$";
    std::string plain;
    for (const char c : text) {
        if (kMarks.find(c) != std::string_view::npos)
            plain += '\\';
        plain += c;
    }
    return plain;
}

// A text that begins a line, where lists and rules begin as well.
std::string PlainLine(std::string_view text) {
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const bool isMark =
        digits < text.size() &&
        std::string_view(digits > 0 ? ".)" : "-+=").find(text[digits]) != std::string_view::npos;
    return isMark ? std::string(text.substr(0, digits)) + '\\' + Plain(text.substr(digits)) : Plain(text);
}

class MarkdownWriter {
  public:
    std::string Write(const View& view) {
        out_ = "# " + Plain(view.title) + '\n';
        if (!view.text.empty())
            out_ += '\n' + PlainLine(view.text) + '\n';
        for (const ViewTable& table : view.facts)
            Table(table);
        if (!view.blocks.empty())
            out_ += "\n## Objects\n";
        for (const ViewBlock& block : view.blocks)
            Block(block);
        for (const ViewTable& table : view.records)
            Table(table);
        if (!view.types.empty())
            out_ += "\n## Own types\n\n";
        for (const ViewType& type : view.types)
            for (const ViewType::Line& line : type.lines)
                out_ +=
                    std::string(2 * std::min(line.depth, kDeepest), ' ') + "- " + PlainLine(line.text) + '\n';
        return std::move(out_);
    }

  private:
    void Row(const std::vector<std::string>& cells) {
        for (const std::string& cell : cells)
            out_ += (cell.empty() ? "| " : "| " + Plain(cell) + ' ');
        out_ += "|\n";
    }

    void Head(const std::vector<std::string>& columns) {
        out_ += '\n';
        Row(columns);
        for (std::size_t i = 0; i < columns.size(); ++i)
            out_ += "|---";
        out_ += "|\n";
    }

    void Table(const ViewTable& table) {
        out_ += "\n## " + Plain(table.title) + '\n';
        Head(table.columns);
        for (const auto& row : table.rows)
            Row(row);
    }

    static std::string PortText(const std::vector<ViewPort>& ports, std::size_t place) {
        return place >= ports.size() ? std::string() : ports[place].name + ": " + ports[place].TypeAndUnit();
    }

    // Inputs on the left, outputs on the right, properties below.
    void Block(const ViewBlock& block) {
        out_ += "\n### " + Plain(block.title) + '\n';
        if (const std::size_t ports = std::max(block.inputs.size(), block.outputs.size()); ports > 0) {
            Head({"Inputs", "Outputs"});
            for (std::size_t i = 0; i < ports; ++i)
                Row({PortText(block.inputs, i), PortText(block.outputs, i)});
        }
        if (!block.properties.empty())
            out_ += '\n';
        for (const ViewPort& property : block.properties)
            out_ += "- " + PlainLine(property.name) +
                    (property.type.empty() ? "" : " = " + Plain(property.type)) + '\n';
    }

    // Deeper lists are shown as code.
    static constexpr std::size_t kDeepest = 20;

    std::string out_;
};

}  // namespace

std::string MarkdownForm(const View& view) {
    return MarkdownWriter().Write(view);
}

}  // namespace tovarek
