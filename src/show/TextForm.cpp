#include <algorithm>
#include <numeric>
#include <string_view>

#include "base/Text.h"
#include "show/ViewForms.h"

namespace tovarek {
namespace {

std::string Repeated(std::string_view text, std::size_t count) {
    std::string repeated;
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

// `text` with blanks behind it up to `width`; cut with an ellipsis where it is longer.
std::string Fitted(std::string_view text, std::size_t width) {
    const std::size_t count = CharacterCount(text);
    if (count > width)
        return std::string(FirstCharacters(text, width - 1)) + "…";
    return std::string(text) + std::string(width - count, ' ');
}

// Takes a line of at most `width` characters off the front, up to a blank where there is one.
std::string TakeWrapped(std::string_view& rest, std::size_t width) {
    std::string_view line = FirstCharacters(rest, width);
    if (line.size() < rest.size()) {
        const std::size_t blank = rest.substr(0, line.size() + 1).rfind(' ');
        if (blank != std::string_view::npos && blank > 0)
            line = rest.substr(0, blank);
    }
    rest.remove_prefix(line.size());
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    return std::string(line);
}

std::size_t LongestWord(std::string_view text) {
    std::size_t longest = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        longest = std::max(longest, CharacterCount(word));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return longest;
}

void TrimEnd(std::string& line) {
    line.erase(line.find_last_not_of(' ') + 1);
}

class TextWriter {
  public:
    explicit TextWriter(std::size_t width) : width_(std::max(width, kNarrowest)) {}

    std::string Write(const View& view) {
        Wrapped(view.title, 0);
        Line(Repeated("=", std::min(CharacterCount(view.title), width_)));
        if (!view.text.empty())
            Wrapped(view.text, 0);
        for (const ViewTable& table : view.facts)
            Table(table);
        if (!view.blocks.empty())
            Heading("Objects");
        for (const ViewBlock& block : view.blocks)
            Block(block);
        for (const ViewTable& table : view.records)
            Table(table);
        if (!view.types.empty())
            Heading("Own types");
        for (const ViewType& type : view.types)
            for (const ViewType::Line& line : type.lines)
                Wrapped(line.text, std::min(line.depth * 2, width_ / 2));
        return std::move(out_);
    }

  private:
    void Line(std::string line) {
        TrimEnd(line);
        out_ += line + '\n';
    }

    // What goes on in further lines stands two places further in.
    void Wrapped(std::string_view text, std::size_t indent) {
        do {
            Line(std::string(indent, ' ') + TakeWrapped(text, width_ - indent));
            indent = std::min(indent + 2, width_ / 2);
        } while (!text.empty());
    }

    void Heading(const std::string& title) {
        out_ += '\n';
        Line(title);
        Line(Repeated("-", std::min(CharacterCount(title), width_)));
    }

    // ---- tables ----

    void Table(const ViewTable& table) {
        Heading(table.title);
        const std::vector<std::size_t> widths = Widths(table);
        Row(table.columns, widths);
        std::vector<std::string> rules;
        rules.reserve(widths.size());
        for (const std::size_t width : widths)
            rules.push_back(Repeated("─", width));
        Row(rules, widths);
        for (const auto& row : table.rows)
            Row(row, widths);
    }

    // As wide as the widest cell. Where that is too much for the line, the widest columns give way: as far as
    // no word is cut, and then further.
    std::vector<std::size_t> Widths(const ViewTable& table) const {
        std::vector<std::size_t> widths(table.columns.size());
        std::vector<std::size_t> words(table.columns.size());
        const auto widen = [&](const std::vector<std::string>& row) {
            for (std::size_t i = 0; i < widths.size(); ++i) {
                widths[i] = std::min(std::max(widths[i], CharacterCount(row[i])), width_);
                words[i] = std::min(std::max(words[i], LongestWord(row[i])), width_);
            }
        };
        widen(table.columns);
        for (const auto& row : table.rows)
            widen(row);
        const std::size_t room = width_ - kGap * (widths.size() - 1);
        Narrow(widths, words, room);
        Narrow(widths, std::vector<std::size_t>(widths.size(), 1), room);
        return widths;
    }

    // Takes from the column that has most above its least width, until all fit.
    static void Narrow(std::vector<std::size_t>& widths, const std::vector<std::size_t>& least,
                       std::size_t room) {
        while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > room) {
            std::size_t widest = 0;
            for (std::size_t i = 0; i < widths.size(); ++i)
                if (widths[i] - least[i] > widths[widest] - least[widest])
                    widest = i;
            if (widths[widest] == least[widest])
                return;
            --widths[widest];
        }
    }

    void Row(const std::vector<std::string>& cells, const std::vector<std::size_t>& widths) {
        std::vector<std::string_view> rests(cells.begin(), cells.end());
        const auto isLeft = [](std::string_view rest) { return !rest.empty(); };
        do {
            std::string line;
            for (std::size_t i = 0; i < rests.size(); ++i)
                line += (i == 0 ? "" : std::string(kGap, ' ')) +
                        Fitted(TakeWrapped(rests[i], widths[i]), widths[i]);
            Line(line);
        } while (std::any_of(rests.begin(), rests.end(), isLeft));
    }

    // ---- the drawing ----

    void Block(const ViewBlock& block) {
        const std::size_t inside = width_ - 4;
        out_ += '\n';
        const std::string title = ' ' + Cut(block.title, inside - 2) + ' ';
        Line("┌─" + title + Repeated("─", inside + 1 - CharacterCount(title)) + "┐");
        for (std::size_t i = 0; i < std::max(block.inputs.size(), block.outputs.size()); ++i)
            Ports(i < block.inputs.size() ? "→ " + PortText(block.inputs[i]) : "",
                  i < block.outputs.size() ? PortText(block.outputs[i]) + " →" : "", inside);
        for (const ViewPort& property : block.properties)
            Line("│ " +
                 Fitted("• " + property.name + (property.type.empty() ? "" : " = " + property.type), inside) +
                 " │");
        Line("└" + Repeated("─", inside + 2) + "┘");
    }

    static std::string Cut(const std::string& text, std::size_t width) {
        return CharacterCount(text) > width ? Fitted(text, width) : text;
    }

    static std::string PortText(const ViewPort& port) { return port.name + ": " + port.TypeAndUnit(); }

    // Both in one line where they fit, else one below the other.
    void Ports(const std::string& input, const std::string& output, std::size_t inside) {
        if (CharacterCount(input) + CharacterCount(output) + kGap <= inside) {
            const std::size_t gap = inside - CharacterCount(input) - CharacterCount(output);
            return Line("│ " + input + std::string(gap, ' ') + output + " │");
        }
        if (!input.empty())
            Line("│ " + Fitted(input, inside) + " │");
        const std::string cut = Cut(output, inside);
        if (!output.empty())
            Line("│ " + std::string(inside - CharacterCount(cut), ' ') + cut + " │");
    }

    static constexpr std::size_t kGap = 2;

    std::size_t width_;
    std::string out_;
};

}  // namespace

std::string TextForm(const View& view, std::size_t width) {
    return TextWriter(width).Write(view);
}

}  // namespace tovarek
