#include "mend/EditPieces.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "base/Text.h"
#include "support/IniText.h"
#include "system/Files.h"
#include "xml/XmlTags.h"

namespace tovarek {
namespace {

// `piece` is a part of `line`.
Piece PieceOf(int number, std::string_view line, std::string_view piece, std::string text) {
    const auto start = static_cast<std::size_t>(piece.data() - line.data());
    return {number, static_cast<int>(CharacterCount(line.substr(0, start))) + 1,
            static_cast<int>(CharacterCount(piece)), std::move(text)};
}

// What stands behind the first word of a line without '=' and in front of the rest.
std::string_view SeparatorOf(std::string_view line) {
    constexpr std::string_view kSeparators = " \t:";
    const std::size_t start = std::min(line.find_first_of(kSeparators), line.size());
    const std::size_t end = std::min(line.find_first_not_of(kSeparators, start), line.size());
    return line.substr(start, end - start);
}

// The part of an INI line that the edit changes; a view of null when it has no such part.
std::string_view IniPart(std::string_view line, const Edit& edit) {
    const std::string_view trimmed = TrimIniLine(line);
    std::string_view key;
    std::string_view value;
    const std::string_view section = IniSectionName(trimmed);
    const bool isKey = section.data() == nullptr && SplitIniKey(trimmed, key, value);
    value = IniValue(value);
    switch (edit.part) {
        case EditPart::value:
            return isKey ? TrimBlanks(value) : std::string_view();
        case EditPart::valueEnd:
            return isKey ? value.substr(value.size()) : std::string_view();
        case EditPart::name:
            return isKey ? key : section;
        case EditPart::separator:
            return SeparatorOf(trimmed);
        case EditPart::line:
            return trimmed;
        case EditPart::lineStart:
            return trimmed.substr(0, 0);
        case EditPart::lineEnd:
            return edit.text.starts_with('\n') ? line.substr(line.size()) : trimmed.substr(trimmed.size());
        case EditPart::fileStart:
            return line.substr(0, 0);
        default:
            return {};
    }
}

// Pieces of an element; all or none of them.
class ElementPieces {
  public:
    ElementPieces(const InputText& text, const Edit& edit) : text_(text), edit_(edit) {}

    std::vector<Piece> Make() {
        const std::string_view line = text_.Line(edit_.line);
        if (line.data() == nullptr)
            return {};
        const std::size_t start = static_cast<std::size_t>(line.data() - text_.Text().data()) +
                                  FirstCharacters(line, static_cast<std::size_t>(edit_.column) - 1).size();
        const auto spans = ElementAt(text_.Text(), start);
        if (!spans || !AddAll(*spans))
            return {};
        return std::move(pieces_);
    }

  private:
    bool AddAll(const ElementSpans& spans) {
        const std::string_view content = text_.Text().substr(spans.content.start, spans.content.size);
        if (edit_.part == EditPart::name)
            return Add(spans.name, edit_.text) && (spans.endName.size == 0 || Add(spans.endName, edit_.text));
        if (edit_.part == EditPart::comment)
            return text_.Text().substr(spans.whole.start, spans.whole.size).find("--") ==
                       std::string_view::npos &&
                   Add({spans.whole.start, 0}, "<!-- ") && Add({spans.whole.End(), 0}, " -->");
        // Text alone; a comment or CDATA in it would stay.
        const std::string_view trimmed = Trim(content);
        if (trimmed.empty() || content.find('<') != std::string_view::npos)
            return false;
        if (edit_.part == EditPart::valueEnd)
            return Add({spans.content.End(), 0}, edit_.text);
        if (edit_.part == EditPart::content)
            return Add(spans.content, edit_.text);
        const auto before = static_cast<std::size_t>(trimmed.data() - content.data());
        return Add({spans.content.start + before, trimmed.size()}, edit_.text);
    }

    bool Add(const TextSpan& span, const std::string& text) {
        const std::vector<std::string_view>& lines = text_.Lines();
        const char* const start = text_.Text().data() + span.start;
        const auto next =
            std::upper_bound(lines.begin(), lines.end(), start,
                             [](const char* at, std::string_view line) { return at < line.data(); });
        const std::string_view line = *std::prev(next);
        const auto before = static_cast<std::size_t>(start - line.data());
        if (before + span.size > line.size())
            return false;
        pieces_.push_back(
            PieceOf(static_cast<int>(next - lines.begin()), line, line.substr(before, span.size), text));
        return true;
    }

    const InputText& text_;
    const Edit& edit_;
    std::vector<Piece> pieces_;
};

}  // namespace

const InputText& EditPieces::Read(const std::string& file) {
    std::unique_ptr<InputText>& text = files_[file];
    if (!text) {
        std::string bytes;
        try {
            bytes = ReadFile(file);
        } catch (const Error&) {
            // What cannot be read has no pieces.
            bytes.clear();
        }
        text = std::make_unique<InputText>(std::move(bytes));
    }
    return *text;
}

std::vector<Piece> EditPieces::Of(const std::string& file, const std::vector<Edit>& edits) {
    std::vector<Piece> all;
    for (const Edit& edit : edits) {
        const bool isXml = edit.column > 0;
        const InputText& text = Read(file);
        std::vector<Piece> pieces;
        if (isXml) {
            pieces = ElementPieces(text, edit).Make();
        } else if (const std::string_view line = text.Line(edit.line); line.data() != nullptr) {
            if (const std::string_view part = IniPart(line, edit); part.data() != nullptr)
                pieces.push_back(PieceOf(edit.line, line, part, edit.text));
        }
        if (pieces.empty())
            return {};
        all.insert(all.end(), pieces.begin(), pieces.end());
    }
    std::stable_sort(all.begin(), all.end(), [](const Piece& a, const Piece& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
    return all;
}

}  // namespace tovarek
