#include "check/SourceLines.h"

#include <algorithm>
#include <cstddef>

#include "base/Text.h"
#include "mend/InputText.h"
#include "support/CTools.h"
#include "support/IniText.h"
#include "support/InputPlace.h"
#include "system/Files.h"
#include "xml/XmlText.h"

namespace tovarek {
namespace {

bool LooksLikeJson(const std::string& bytes) {
    const std::size_t first = bytes.find_first_not_of(kWhiteSpace);
    return first != std::string::npos && bytes[first] == '{';
}

LinePlace Piece(std::string_view line, std::size_t start, std::size_t size) {
    return {static_cast<int>(CharacterCount(line.substr(0, start))) + 1,
            std::max(1, static_cast<int>(CharacterCount(line.substr(start, size))))};
}

LinePlace Whole(std::string_view line) {
    const std::string_view text = Trim(line);
    return Piece(line, text.empty() ? 0 : static_cast<std::size_t>(text.data() - line.data()), text.size());
}

LinePlace IniPlace(std::string_view line, const Finding& finding) {
    std::string_view key;
    std::string_view value;
    const std::string_view trimmed = TrimIniLine(line);
    if (finding.part == LinePart::all || IniSectionName(trimmed).data() != nullptr ||
        !SplitIniKey(trimmed, key, value))
        return Whole(line);
    const auto place = [&](std::string_view part) {
        return Piece(line, static_cast<std::size_t>(part.data() - line.data()), part.size());
    };
    // What is missing has no place of its own; the line then holds what stands in its stead.
    const bool isOther = !finding.context.field.empty() && !CaselessEqual()(key, finding.context.field);
    if (finding.part == LinePart::name || isOther)
        return place(key);
    value = IniValue(value);
    // One place in a long value, such as a character.
    const std::string& typed = finding.context.value;
    if (const std::size_t at = value.find(typed); !typed.empty() && at != std::string_view::npos)
        return place(value.substr(at, typed.size()));
    return place(value);
}

// The start tag that the finding is about, among those of its line: the one at its column, or the one that is
// called like its field, with its value where several are.
LinePlace PlaceInXml(std::string_view line, const std::vector<XmlNode>& elements, const Finding& finding) {
    const ErrorContext& context = finding.context;
    const std::string name = UpperCase(context.field);
    const XmlNode* best = nullptr;
    int bestRank = -1;
    for (const XmlNode& element : elements) {
        const bool isNamed = UpperCase(element.Name()) == name;
        const bool isValue = isNamed && Excerpt(CTools().nodeTextValue(element)) == context.value;
        const int rank = context.column > 0 && element.Place().column == context.column ? 3
                         : isValue                                                      ? 2
                         : isNamed                                                      ? 1
                                                                                        : 0;
        if (rank > bestRank) {
            best = &element;
            bestRank = rank;
        }
    }
    return best == nullptr ? Whole(line) : LinePlace{best->Place().column, best->Place().width};
}

LinePlace JsonPlace(std::string_view line, const Finding& finding) {
    const std::string key = '"' + finding.context.field + '"';
    const std::size_t start = line.find(key);
    return start == std::string_view::npos ? Whole(line) : Piece(line, start, key.size());
}

}  // namespace

const SourceLines::File& SourceLines::Read(const std::string& file) {
    const auto [place, isNew] = files_.try_emplace(file);
    if (!isNew)
        return place->second;
    try {
        const std::string bytes = ReadFile(file);
        Kind& kind = place->second.kind;
        kind = LooksLikeXml(bytes) ? Kind::xml : LooksLikeJson(bytes) ? Kind::json : Kind::ini;
        // As the loaders of its kind see it.
        const std::string text = kind == Kind::xml    ? XmlText(bytes)
                                 : kind == Kind::json ? bytes
                                                      : DecodeIni(bytes);
        for (std::string_view rest = text; !rest.empty();)
            place->second.lines.emplace_back(TakeLine(rest));
    } catch (const Error&) {
        // A finding without its line is a finding still.
    } catch (const XmlFault&) {
    }
    return place->second;
}

const std::vector<XmlNode>& SourceLines::ElementsIn(const std::string& file, int line) {
    const auto [place, isNew] = elements_.try_emplace(file);
    if (isNew)
        for (XmlNode node = XmlDocument(file).FirstNode(); node; node = node.NextSibling()) {
            if (!node.IsElement())
                continue;
            place->second[node.Line()].push_back(node);
            for (const XmlNode& element : ElementsBelow(node))
                if (element.Place().column > 0)
                    place->second[element.Line()].push_back(element);
        }
    return place->second[line];
}

const std::string& SourceLines::Line(const std::string& file, int number) {
    static const std::string none;
    if (file.empty() || number < 1)
        return none;
    const std::vector<std::string>& lines = Read(file).lines;
    return static_cast<std::size_t>(number) <= lines.size() ? lines[static_cast<std::size_t>(number) - 1]
                                                            : none;
}

LinePlace SourceLines::PlaceOf(const Finding& finding) {
    const std::string& line = Line(finding.context.file, finding.context.line);
    if (finding.column > 0)
        return {finding.column, std::max(finding.width, 1)};
    if (line.empty())
        return {};
    switch (Read(finding.context.file).kind) {
        case Kind::xml:
            return PlaceInXml(line, ElementsIn(finding.context.file, finding.context.line), finding);
        case Kind::json:
            return JsonPlace(line, finding);
        case Kind::ini:
            break;
    }
    return IniPlace(line, finding);
}

}  // namespace tovarek
