#include "check/MeantFindings.h"

#include <algorithm>
#include <tuple>

#include "base/Nearest.h"
#include "base/Text.h"
#include "check/WarningNames.h"
#include "mend/InputText.h"
#include "support/IniText.h"
#include "system/Files.h"

namespace tovarek {
namespace {

constexpr std::string_view kProgram = "tovarek:";
constexpr std::string_view kVerb = "ignore";

// The names in a comment; nothing when it is a comment for people.
std::vector<std::string_view> NamesIn(std::string_view comment) {
    comment = Trim(comment);
    if (!comment.starts_with(kProgram))
        return {};
    comment = Trim(comment.substr(kProgram.size()));
    if (!comment.starts_with(kVerb))
        return {};
    comment.remove_prefix(kVerb.size());
    constexpr std::string_view kBetween = " \t\r\n,";
    std::vector<std::string_view> names;
    while (!(comment = Trim(comment, kBetween)).empty()) {
        const std::size_t end = std::min(comment.find_first_of(kBetween), comment.size());
        names.push_back(comment.substr(0, end));
        comment.remove_prefix(end);
    }
    return names;
}

// Most files have no such comment; that is seen before anything is parsed.
bool MayHaveMarks(const std::string& bytes) {
    // Where a character has two bytes, a name is not seen like this.
    return LooksLikeUtf16(bytes) || bytes.find(kProgram) != std::string::npos;
}

std::string KeyOf(const std::string& file, std::string_view name) {
    return SystemPath(file).append(1, '\n').append(name);
}

std::string ReasonOf(std::string_view name, const std::string& what) {
    std::vector<std::string> names;
    for (const WarningRow& row : WarningRows())
        names.emplace_back(row.name);
    if (std::find(names.begin(), names.end(), name) != names.end())
        return what + " leaves nothing out: there is no such warning " +
               (what == "this" ? "here" : "in the job");
    return "there is no warning '" + Excerpt(name) + "' to ignore" + DidYouMean(name, names);
}

}  // namespace

MeantFindings::MeantFindings(const std::vector<std::string>& inputs, const std::vector<std::string>& names) {
    for (const std::string& name : names)
        names_.emplace_back(name, false);
    for (const std::string& file : inputs) {
        Marks marks;
        try {
            const std::string bytes = ReadFile(file);
            if (!MayHaveMarks(bytes))
                continue;
            if (LooksLikeXml(bytes)) {
                for (XmlNode node = XmlDocument(file).FirstNode(); node; node = node.NextSibling())
                    if (node.IsElement())
                        ReadXml(node, kEnd, marks);
            } else {
                ReadIni(DecodeIni(bytes), marks);
            }
        } catch (const Error&) {
            // Whoever needs the file tells that it cannot be read.
        }
        for (const Mark& mark : marks) {
            Marks& known = marks_[KeyOf(file, mark.name)];
            // One file may be two inputs.
            if (std::none_of(known.begin(), known.end(), [&](const Mark& other) {
                    return other.line == mark.line && other.first == mark.first;
                }))
                known.push_back(mark);
        }
    }
    for (auto& [key, marks] : marks_)
        Nest(marks);
}

// A comment counts for the key or section that follows; a section ends where the next one begins.
void MeantFindings::ReadIni(const std::string& text, Marks& marks) const {
    Marks waiting;
    std::size_t openFrom = 0;  // marks of the section at hand
    std::size_t openTo = 0;
    int number = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = TrimIniLine(TakeLine(rest));
        ++number;
        if (line.starts_with(';'))
            AddMarks(line.substr(1), {.line = number}, waiting);
        if (line.empty() || line.starts_with(';'))
            continue;
        const bool isSection = IniSectionName(line).data() != nullptr;
        for (std::size_t i = openFrom; isSection && i < openTo; ++i)
            marks[i].end = {number, 0};
        openFrom = isSection ? marks.size() : openFrom;
        for (Mark& mark : waiting) {
            mark.first = {number, 0};
            mark.end = isSection ? kEnd : Position{number + 1, 0};
            marks.push_back(mark);
        }
        openTo = isSection ? marks.size() : openTo;
        waiting.clear();
    }
    // Behind the last line they cover nothing.
    marks.insert(marks.end(), waiting.begin(), waiting.end());
}

// A comment counts for the element that follows it, up to the next one or the end of the parent. In front of
// all elements of the root it counts for the start tag of the root as well.
void MeantFindings::ReadXml(const XmlNode& parent, Position end, Marks& marks) const {
    std::vector<XmlNode> elements;
    for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling())
        if (child.IsElement())
            elements.push_back(child);
    const auto placeOf = [](const XmlNode& element) {
        return Position{element.Place().line, element.Place().column};
    };
    std::size_t next = 0;
    Marks waiting;
    for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling()) {
        if (child.Kind() == XmlNodeKind::comment)
            AddMarks(child.Comment(), {.line = child.Line()}, waiting);
        if (!child.IsElement())
            continue;
        ++next;
        const Position childEnd = next < elements.size() ? placeOf(elements[next]) : end;
        const bool isFirstOfRoot = next == 1 && end == kEnd;
        for (Mark& mark : waiting) {
            mark.first = isFirstOfRoot ? placeOf(parent) : placeOf(child);
            mark.end = childEnd;
            marks.push_back(mark);
        }
        waiting.clear();
        ReadXml(child, childEnd, marks);
    }
    marks.insert(marks.end(), waiting.begin(), waiting.end());
}

void MeantFindings::AddMarks(std::string_view comment, const Mark& place, Marks& marks) {
    for (const std::string_view name : NamesIn(comment)) {
        Mark& mark = marks.emplace_back(place);
        mark.name = name;
    }
}

// Sorts the marks, outer ones first, and links each with the one around it.
void MeantFindings::Nest(Marks& marks) {
    std::stable_sort(marks.begin(), marks.end(), [](const Mark& a, const Mark& b) {
        return std::tie(a.first, b.end) < std::tie(b.first, a.end);
    });
    std::vector<std::size_t> around;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        while (!around.empty() && marks[around.back() - 1].end <= marks[i].first)
            around.pop_back();
        marks[i].outer = around.empty() ? 0 : around.back();
        around.push_back(i + 1);
    }
}

bool MeantFindings::Covers(const Finding& finding) {
    if (finding.warning == Warning::none)
        return false;
    const std::string_view name = RowOf(finding.warning).name;
    for (auto& [ignored, isUsed] : names_)
        if (ignored == name)
            return isUsed = true;
    const auto found = marks_.find(KeyOf(finding.context.file, name));
    if (found == marks_.end() || finding.context.line == 0)
        return false;
    Marks& marks = found->second;
    // Of an unknown place in the line the last counts.
    const int column = finding.column > 0 ? finding.column : kEnd.first;
    const Position at = {finding.context.line, column};
    const auto behind =
        std::upper_bound(marks.begin(), marks.end(), at,
                         [](Position wanted, const Mark& mark) { return wanted < mark.first; });
    for (auto i = static_cast<std::size_t>(behind - marks.begin()); i > 0; i = marks[i - 1].outer)
        if (at < marks[i - 1].end)
            return marks[i - 1].isUsed = true;
    return false;
}

std::vector<Finding> MeantFindings::TakeUnused() const {
    std::vector<Finding> unused;
    for (const auto& [key, marks] : marks_)
        for (const Mark& mark : marks)
            if (!mark.isUsed)
                unused.push_back({.context = {.file = key.substr(0, key.find('\n')),
                                              .line = mark.line,
                                              .reason = ReasonOf(mark.name, "this")},
                                  .warning = Warning::unusedIgnore,
                                  .part = LinePart::all});
    for (const auto& [name, isUsed] : names_)
        if (!isUsed)
            unused.push_back({.context = {.reason = ReasonOf(name, "--ignore " + name)},
                              .warning = Warning::unusedIgnore});
    return unused;
}

}  // namespace tovarek
