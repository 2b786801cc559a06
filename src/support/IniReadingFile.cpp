// What holds for a whole INI file.
#include <algorithm>

#include "base/Nearest.h"
#include "base/Text.h"
#include "support/IniReading.h"
#include "system/CodePage.h"
#include "system/Files.h"

namespace tovarek {
namespace {

std::string ReadOrNothing(const std::string& path) {
    try {
        return ReadFile(path);
    } catch (const Error&) {
        // The loaders read such a file like an empty one; the checks of what it lacks tell.
        return {};
    }
}

}  // namespace

// What stands behind the brackets of a header, and is no comment.
void IniReading::TellBehindHeader(const Section& section, FindingSink& findings) const {
    const std::string_view header = section.body->header;
    const std::string_view behind = Trim(header.substr(header.rfind(']') + 1));
    if (!behind.empty() && !behind.starts_with(';') && !behind.starts_with('#'))
        findings.Take(At(Warning::ignoredKey, LineOf(section), LinePart::all,
                         QuotedExcerpt(behind) +
                             " is not read: it stands behind the name of a section; write it into a "
                             "line of its own"));
}

void IniReading::TellFile(FindingSink& findings) const {
    if (!IsAscii(text_->Whole()))
        TellEncoding(findings);
    for (const Section& section : all_)
        if (section.body != nullptr && !section.body->header.ends_with(']'))
            TellBehindHeader(section, findings);
    for (const Section& section : all_)
        if (!section.isFirst)
            findings.Take(At(Warning::duplicateSection, LineOf(section), LinePart::all,
                             "section [" + Excerpt(section.body->name) + "] stands in line " +
                                 std::to_string(LineOf(all_[section.body->first + 1])) +
                                 " already; only that one is read"));
}

void IniReading::TellEncoding(FindingSink& findings) const {
    const std::string bytes = ReadOrNothing(path_);
    IniEncoding encoding = IniEncoding::codePage;
    DecodeIni(bytes, &encoding);
    if (encoding != IniEncoding::codePage || IsAscii(bytes) || !IsUtf8(bytes) || !OtherKind(bytes).empty())
        return;
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    const auto first =
        static_cast<std::size_t>(std::find_if_not(bytes.begin(), bytes.end(), isAscii) - bytes.begin());
    std::size_t end = first;
    NextCharacter(bytes, end);
    const std::string character = bytes.substr(first, end - first);
    int line = 0;
    for (std::string_view rest = bytes; bytes.size() - rest.size() <= first; ++line)
        TakeLine(rest);
    Finding finding =
        At(Warning::encoding, line, LinePart::value,
           "the file is UTF-8 without the mark that says so, so it is read in the 8-bit code page: " +
               QuotedExcerpt(character) + " becomes " + QuotedExcerpt(FromCodePage(character)) +
               "; save it as UTF-8 with a mark (BOM)");
    finding.context.value = FromCodePage(character);
    finding.edits = {{EditPart::fileStart, 1, 0, "\xEF\xBB\xBF"}};
    findings.Take(std::move(finding));
}

// What the file is, when it is known not to be an INI file; empty for what may be one.
std::string IniReading::OtherKind(std::string_view bytes) {
    const std::string_view text = Trim(bytes);
    if (bytes.substr(0, 2).find('\0') != std::string_view::npos)
        return "UTF-16 without the mark that says so: save it with a mark (BOM), or as UTF-8 with one";
    if (text.starts_with('<'))
        return "XML: give it to the xml... property of its kind";
    if (text.starts_with("File:"))
        return "an interface file: a profile in it is given to xifProfileFile";
    return {};
}

// Of a file whose sections nobody asks for one finding tells all, where none of them is a mistyped one.
bool IniReading::TellWrongFile(FindingSink& findings) const {
    if (std::any_of(all_.begin(), all_.end(), [&](const Section& section) {
            return section.body != nullptr && section.isFirst &&
                   (section.isAsked || !Nearest(section.body->name, missingSections_).empty());
        }))
        return false;
    const std::string kind = OtherKind(text_->Whole());
    if (kind.empty() && all_.size() == 1)
        return false;
    Finding finding =
        At(Warning::wrongFile, 1, LinePart::all,
           "nothing in this file is read: " +
               (kind.empty() ? std::string("it has no section that is asked for") : "it is " + kind));
    if (kind.empty() && !missingSections_.empty())
        finding.context.reason += ", such as [" + missingSections_.front() + "]";
    // An error that misses something in it tells the same.
    finding.causeLine = finding.context.line;
    finding.aroundLine = Finding::kNowhere;
    findings.Take(std::move(finding));
    return true;
}

}  // namespace tovarek
