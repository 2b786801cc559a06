// Texts of a template that the interface file cannot hold as they are.
#include <algorithm>
#include <string>

#include "base/Text.h"
#include "system/CodePage.h"
#include "template/CTemplate.h"
#include "template/Declaration.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

// The texts that are written into the interface file.
constexpr std::string CTemplate::*kOwnTexts[] = {&CTemplate::selfDocumentation, &CTemplate::versionCP};
constexpr std::string CNv::*kNvTexts[] = {&CNv::name, &CNv::selfdoc};
constexpr std::string CTag::*kTagTexts[] = {&CTag::name};
constexpr std::string CCp::*kCpTexts[] = {&CCp::declaration};

// Every text of a template is asked, and nearly none has one: each is searched for as a whole.
bool HasAny(const std::string& text, char one, char other) {
    return text.find(one) != std::string::npos || text.find(other) != std::string::npos;
}

// The first character that the output's code page lacks; empty when there is none.
std::string_view LostCharacter(std::string_view text) {
    if (IsAscii(text))
        return {};
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        NextCharacter(text, position);
        const std::string_view character = text.substr(start, position - start);
        if (character != "?" && ToCodePage(character) == "?")
            return character;
    }
    return {};
}

// Quotation marks of text programs are letters like others.
constexpr std::string_view kTypeset[] = {"\u201C", "\u201D", "\u201E", "\u2018", "\u2019", "\u00AB"};

// `warn` makes the finding from a warning and its reason.
template <class Warn>
void TellText(const std::string& text, const Warn& warn, FindingSink& findings) {
    if (HasAny(text, '\r', '\n'))
        findings.Take(warn(Warning::lineBreak,
                           "the text has a line break, but stands on one line of the interface file: other "
                           "programs refuse the file; write it without"));
    for (const std::string_view mark : kTypeset)
        if (text.starts_with(mark))
            findings.Take(warn(Warning::oddQuote, "the text begins with " + std::string(mark) +
                                                      ", which is written as it is: leave it out"));
    const std::string_view lost = LostCharacter(text);
    if (lost.empty() && findings.WantsWeak() && !IsAscii(text))
        findings.Take(warn(Warning::eightBitText,
                           "the text has a character above 7F, and many programs take the interface file for "
                           "UTF-8: write \\xHH, its byte in the code page windows-1252"));
    if (lost.empty())
        return;
    Finding finding =
        warn(Warning::lostCharacter, "\"" + std::string(lost) +
                                         "\" has no place in the code page of the interface file and is "
                                         "written as \"?\"");
    finding.context.value = lost;
    findings.Take(std::move(finding));
}

// A comment that somebody wrote behind a value. The first ';' of self-documentation ends what programs read,
// and no blank stands in front of it; a version has none at all.
template <class Warn>
void TellComment(const std::string& text, const Warn& warn, FindingSink& findings) {
    const std::size_t start = text.find(';');
    const bool isStructured = !text.empty() && (text[0] == '@' || text[0] == '&' || IsDigit(text[0]));
    if (isStructured && start != std::string::npos && (text[start - 1] == ' ' || text[start - 1] == '\t'))
        findings.Take(warn(Warning::commentInText,
                           "\"" + Excerpt(text.substr(start)) +
                               "\" becomes part of the text; a comment stands in a line of its own"));
}

template <class Record, std::size_t N>
void TellRecordTexts(const CTemplate& source, const std::vector<Record>& records,
                     std::string Record::*const (&members)[N], FindingSink& findings) {
    for (std::size_t i = 0; i < records.size(); ++i)
        for (std::string Record::*const member : members)
            TellText(
                records[i].*member,
                [&](Warning warning, const std::string& reason) {
                    return TemplatePlaces(source).Warn(warning, records[i], i, member, reason);
                },
                findings);
}

template <class Record>
void TellBlanksInNames(const CTemplate& source, const std::vector<Record>& records, FindingSink& findings) {
    for (std::size_t i = 0; i < records.size(); ++i)
        if (HasAny(records[i].name, ' ', '\t'))
            findings.Take(TemplatePlaces(source).Warn(
                Warning::blankInName, records[i], i, &Record::name,
                "\"" + Excerpt(records[i].name) +
                    "\" has white space in it; other programs refuse the file or read the name up to there"));
}

// Whether a declaration is taken at all; what is refused is told as that.
bool IsTaken(CCp cp) {
    try {
        cp.AnalyseCP();
        return cp.length > 0 && cp.arraySize >= 0;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace

void CTemplate::TellTexts(FindingSink& findings) const {
    const TemplatePlaces places(*this);
    for (std::string CTemplate::*const member : kOwnTexts)
        TellText(
            this->*member,
            [&](Warning warning, const std::string& reason) { return places.Warn(warning, member, reason); },
            findings);
    for (std::string CTemplate::*const member : kOwnTexts)
        TellComment(
            this->*member,
            [&](Warning warning, const std::string& reason) { return places.Warn(warning, member, reason); },
            findings);
    for (std::size_t i = 0; i < nvs.size(); ++i)
        TellComment(
            nvs[i].selfdoc,
            [&](Warning warning, const std::string& reason) {
                return places.Warn(warning, nvs[i], i, &CNv::selfdoc, reason);
            },
            findings);
    TellRecordTexts(*this, nvs, kNvTexts, findings);
    TellRecordTexts(*this, tags, kTagTexts, findings);
    TellRecordTexts(*this, cps, kCpTexts, findings);
    TellBlanksInNames(*this, nvs, findings);
    TellBlanksInNames(*this, tags, findings);
    for (std::size_t i = 0; i < cps.size(); ++i) {
        const std::string& declaration = cps[i].declaration;
        // A line break in it was told.
        if (HasAny(declaration, '\r', '\n'))
            continue;
        const std::string oddity = OddityOfDeclaration(declaration);
        if (oddity.empty() || !IsTaken(cps[i]))
            continue;
        Finding finding = places.Warn(Warning::oddDeclaration, cps[i], i, &CCp::declaration,
                                      "the declaration is not what it seems: " + oddity);
        if (LacksEnd(declaration) && (finding.column > 0 || !iniFile.empty()))
            finding.edits = {{EditPart::valueEnd, finding.context.line, finding.column, ";"}};
        findings.Take(std::move(finding));
    }
}

void CTemplate::AddNameInCp() {
    for (CCp& cp : cps)
        cp.AddNameInString();
}

void CTemplate::TellJoinedNames(FindingSink& findings) const {
    for (std::size_t i = 0; i + 1 < cps.size(); ++i) {
        CCp named = cps[i];
        named.AddNameInString();
        if (named.name.empty() || named.declaration == cps[i].declaration)
            continue;
        findings.Take(TemplatePlaces(*this).Warn(
            Warning::joinedNames, cps[i + 1], i + 1, &CCp::declaration,
            "addNameInCpString puts the name \"" + Excerpt(named.name) +
                "\" in front of this declaration, so other programs can read neither this property nor those "
                "behind it: leave addNameInCpString out"));
        return;
    }
}

}  // namespace tovarek
