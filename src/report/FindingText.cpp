#include "report/FindingText.h"

#include <ostream>

#include "base/Text.h"
#include "explain/ErrorNames.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// A line of a file may be as long as the file.
constexpr std::size_t kLongestSource = 160;

struct Colors {
    const char* bold;
    const char* error;
    const char* warning;
    const char* mark;
    const char* none;
};
constexpr Colors kNoColors = {"", "", "", "", ""};
constexpr Colors kTerminalColors = {"\x1B[1m", "\x1B[1;31m", "\x1B[1;35m", "\x1B[1;32m", "\x1B[0m"};

void WriteSource(const CheckedFinding& finding, const Colors& colors, std::ostream& out) {
    const std::size_t start = finding.column > 0 ? static_cast<std::size_t>(finding.column) - 1 : 0;
    if (finding.source.empty() || finding.column == 0 || start + 1 > kLongestSource)
        return;
    const std::string_view shown = FirstCharacters(finding.source, kLongestSource);
    out << "    " << OneLine(shown) << "\n    ";
    // The line is shown with a blank for each tab, so the mark needs a blank for each character.
    out << std::string(start, ' ');
    const std::size_t width =
        std::min(static_cast<std::size_t>(std::max(finding.width, 1)), kLongestSource - start);
    out << colors.mark << '^' << std::string(width - 1, '~') << colors.none << '\n';
}

void WriteFinding(const CheckedFinding& finding, const Colors& colors, std::ostream& out) {
    const std::string place = PlaceText(finding.context.file, finding.context.line, finding.column);
    out << colors.bold << (place.empty() ? "tovarek" : place) << ": " << colors.none
        << (finding.isError ? colors.error : colors.warning) << (finding.isError ? "error: " : "warning: ")
        << colors.none << OneLine(finding.message) << " [";
    if (finding.isError)
        out << ShortNumber(finding.error) << ' ';
    out << finding.name << "]\n";
    WriteSource(finding, colors, out);
    for (const FindingNote& note : finding.notes) {
        out << "    note: ";
        if (note.line > 0)
            out << (note.file == finding.context.file ? "line " + std::to_string(note.line)
                                                      : PlaceText(note.file, note.line, 0))
                << ": ";
        out << OneLine(note.text) << '\n';
    }
}

}  // namespace

std::string PlaceText(const std::string& file, int line, int column) {
    std::string text = OneLine(SystemPath(file));
    if (line > 0)
        text += ":" + std::to_string(line);
    if (line > 0 && column > 0)
        text += ":" + std::to_string(column);
    return text;
}

void WriteFindings(const std::vector<CheckedFinding>& findings, bool inColor, std::ostream& out) {
    for (const CheckedFinding& finding : findings)
        WriteFinding(finding, inColor ? kTerminalColors : kNoColors, out);
}

}  // namespace tovarek
