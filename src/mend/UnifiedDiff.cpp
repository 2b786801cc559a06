#include <algorithm>
#include <cstddef>

#include "mend/MendedBytes.h"

namespace tovarek {
namespace {

constexpr std::size_t kAround = 3;

// Lines of the old file, from 0, and the bytes that take their place.
struct ChangedLines {
    std::size_t first;
    std::size_t end;
    std::string bytes;
};

// Takes a line with its LF off the front.
std::string_view TakeWithEnd(std::string_view& rest) {
    const std::string_view line =
        rest.substr(0, rest.find('\n') == rest.npos ? rest.size() : rest.find('\n') + 1);
    rest.remove_prefix(line.size());
    return line;
}

std::vector<std::string_view> LinesOf(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty())
        lines.push_back(TakeWithEnd(bytes));
    return lines;
}

std::vector<ChangedLines> Changed(std::string_view bytes, const std::vector<std::string_view>& lines,
                                  const std::vector<ByteChange>& changes) {
    const auto lineAt = [&](std::size_t offset) {
        const auto next =
            std::upper_bound(lines.begin(), lines.end(), bytes.data() + offset,
                             [](const char* at, std::string_view line) { return at < line.data(); });
        return static_cast<std::size_t>(next - lines.begin()) - 1;
    };
    const auto startOf = [&](std::size_t line) {
        return line < lines.size() ? static_cast<std::size_t>(lines[line].data() - bytes.data())
                                   : bytes.size();
    };
    std::vector<ChangedLines> changed;
    std::size_t at = 0;
    for (const ByteChange& change : changes) {
        const std::size_t first = lineAt(change.start);
        const std::size_t end = lineAt(std::max(change.start, change.End() - (change.size > 0 ? 1 : 0))) + 1;
        if (changed.empty() || first >= changed.back().end) {
            if (!changed.empty())
                changed.back().bytes.append(bytes.substr(at, startOf(changed.back().end) - at));
            changed.push_back({first, end, {}});
            at = startOf(first);
        }
        ChangedLines& lineChange = changed.back();
        lineChange.end = std::max(lineChange.end, end);
        lineChange.bytes.append(bytes.substr(at, change.start - at)).append(change.bytes);
        at = change.End();
    }
    if (!changed.empty())
        changed.back().bytes.append(bytes.substr(at, startOf(changed.back().end) - at));
    return changed;
}

void AddLines(char sign, std::string_view bytes, std::string& text, std::size_t& count) {
    for (const std::string_view line : LinesOf(bytes)) {
        ++count;
        text.append(1, sign).append(line);
        if (!line.ends_with('\n'))
            text += "\n\\ No newline at end of file\n";
    }
}

// One hunk: the changes from `first` to in front of `end`, which lie close together.
std::string Hunk(const std::vector<std::string_view>& lines, std::vector<ChangedLines>::const_iterator first,
                 std::vector<ChangedLines>::const_iterator end, std::ptrdiff_t& shift) {
    std::string text;
    std::size_t oldCount = 0;
    std::size_t newCount = 0;
    const std::size_t start = first->first - std::min(first->first, kAround);
    const auto keep = [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < std::min(to, lines.size()); ++i, ++oldCount)
            AddLines(' ', lines[i], text, newCount);
    };
    std::size_t at = start;
    for (; first != end; ++first) {
        keep(at, first->first);
        for (std::size_t i = first->first; i < first->end; ++i)
            AddLines('-', lines[i], text, oldCount);
        AddLines('+', first->bytes, text, newCount);
        at = first->end;
    }
    keep(at, at + kAround);
    const auto newStart = static_cast<std::ptrdiff_t>(start) + 1 + shift;
    shift += static_cast<std::ptrdiff_t>(newCount) - static_cast<std::ptrdiff_t>(oldCount);
    return "@@ -" + std::to_string(start + 1) + "," + std::to_string(oldCount) + " +" +
           std::to_string(newStart) + "," + std::to_string(newCount) + " @@\n" + text;
}

}  // namespace

std::string UnifiedDiff(const std::string& name, std::string_view bytes,
                        const std::vector<ByteChange>& changes) {
    const std::vector<std::string_view> lines = LinesOf(bytes);
    if (changes.empty() || lines.empty())
        return {};
    const std::vector<ChangedLines> changed = Changed(bytes, lines, changes);
    // A name with a blank ends at a tab.
    const std::string end = name.find(' ') == std::string::npos ? "\n" : "\t\n";
    std::string text = "--- " + name + end + "+++ " + name + end;
    std::ptrdiff_t shift = 0;
    for (auto first = changed.begin(); first != changed.end();) {
        auto next = first + 1;
        while (next != changed.end() && next->first <= std::prev(next)->end + 2 * kAround)
            ++next;
        text += Hunk(lines, first, next, shift);
        first = next;
    }
    return text;
}

}  // namespace tovarek
