// Lines that nobody asked for.
#include <algorithm>
#include <utility>

#include "base/Nearest.h"
#include "base/Text.h"
#include "support/IniReading.h"

namespace tovarek {
namespace {

// What people put around the name of a section.
constexpr std::string_view kAroundNames = " \t[]{}()<>:";

}  // namespace

void IniReading::TellUnread(FindingSink& findings) {
    if (TellWrongFile(findings))
        return;
    for (const NumberedSections& row : numbered_)
        TellMissingCount(row, findings);
    std::vector<Finding> unread;
    for (const Section& section : all_)
        if (section.isFirst && section.body != nullptr && !section.isAsked)
            if (std::optional<Finding> finding = UnreadSection(section))
                unread.push_back(*std::move(finding));
    TellSiblings(std::move(unread), findings);
    bool isSorted = false;
    for (std::size_t place = 0; place < all_.size(); ++place) {
        const Section& section = all_[place];
        if (!section.isFirst || (section.body != nullptr && !section.isAsked))
            continue;
        if (std::any_of(section.lines.begin(), section.lines.end(),
                        [](const Line& line) { return !line.isAsked; })) {
            if (!std::exchange(isSorted, true))
                std::stable_sort(asked_.begin(), asked_.end(),
                                 [](const auto& a, const auto& b) { return a.first < b.first; });
            TellUnreadLines(section, MissingKeys(place), findings);
        }
    }
}

// The keys that were asked for in a section and are not there.
std::vector<std::string> IniReading::MissingKeys(std::size_t place) const {
    std::vector<std::string> missing;
    const auto first =
        std::lower_bound(asked_.begin(), asked_.end(), place,
                         [](const auto& asked, std::size_t wanted) { return asked.first < wanted; });
    for (auto asked = first; asked != asked_.end() && asked->first == place; ++asked)
        if (!HasKey(all_[place].body->name, asked->second))
            missing.emplace_back(asked->second);
    return missing;
}

void IniReading::TellUnreadLines(const Section& section, const std::vector<std::string>& missing,
                                 FindingSink& findings) {
    // Behind a header that lacks a bracket stand the keys of another section.
    int header = 0;
    // Keys in a row that stand there already are one copied section.
    int firstOfCopy = 0;
    int lastOfCopy = 0;
    std::vector<Finding> unread;
    for (const Line& line : section.lines) {
        if (line.isAsked)
            continue;
        Finding& finding = unread.emplace_back(UnreadLine(section, line, missing));
        if (line.kind == Kind::other && IsHeader(line.key))
            header = CauseOfHeader(line);
        else if (header > 0)
            finding.edits.clear();
        if (finding.warning == Warning::duplicateKey) {
            const bool goesOn = finding.context.line == lastOfCopy + 1;
            finding.causeLine = goesOn ? firstOfCopy : 0;
            firstOfCopy = goesOn ? firstOfCopy : finding.context.line;
            lastOfCopy = finding.context.line;
        }
        if (header > 0)
            finding.causeLine = header;
    }
    TellSiblings(std::move(unread), findings);
}

// The line of the finding that explains a header that is none: the count of such sections, or itself.
int IniReading::CauseOfHeader(const Line& line) const {
    for (const NumberedSections& row : numbered_)
        if (NumberBehind(Trim(line.key, kAroundNames), row.prefix) > 0)
            return CauseLine(row);
    return LineOf(line);
}

// Whether a line without '=' was meant as the header of a section.
bool IniReading::IsHeader(std::string_view line) const {
    const std::string_view name = Trim(line, kAroundNames);
    return line.starts_with('[') || line.ends_with(']') || IsMissingSection(name);
}

// The section that a key belongs into, when it stands in another one; empty when it belongs nowhere.
std::string IniReading::SectionOfKey(std::string_view key) const {
    for (const auto& [section, name] : askedNowhere_)
        if (CaselessEqual()(name, key))
            return section;
    for (const auto& [place, name] : asked_)
        if (CaselessEqual()(name, key) && !HasKey(all_[place].body->name, key))
            return std::string(all_[place].body->name);
    return {};
}

// A key in the wrong section. What belongs into a section that the file lacks has lost its header.
Finding IniReading::StrayKey(const Line& line, const std::string& section) {
    const bool exists = HasSection(section);
    Finding finding = At(Warning::ignoredKey, LineOf(line), LinePart::name,
                         QuotedExcerpt(line.key) + " is not read: it belongs into [" + section + "]" +
                             (exists ? "" : ", which the file does not have"));
    const auto [first, isNew] = strays_.try_emplace(section, finding.context.line);
    finding.causeLine = exists || isNew ? finding.context.line : first->second;
    finding.aroundLine = exists ? LineOf(section) : Finding::kNowhere;
    return finding;
}

Finding IniReading::UnreadLine(const Section& section, const Line& line,
                               const std::vector<std::string>& missing) {
    if (line.kind == Kind::other)
        return LineWithoutKey(section, line, missing);
    const std::string other = line.first == nullptr ? SectionOfKey(line.key) : std::string();
    if (!other.empty())
        return StrayKey(line, other);
    if (section.body == nullptr)
        return At(Warning::ignoredKey, LineOf(line), LinePart::name,
                  QuotedExcerpt(line.key) + " is not read: it stands in front of the first section");
    if (line.first != nullptr) {
        Finding finding =
            At(Warning::duplicateKey, LineOf(line), LinePart::name,
               Excerpt(line.key) + " stands in line " + std::to_string(text_->LineAt(line.first)) +
                   " already; only that one is read");
        finding.edits = {{EditPart::lineStart, finding.context.line, 0, ";"}};
        return finding;
    }
    const NearestName nearest = NearestOf(line.key, missing);
    Finding finding = At(Warning::ignoredKey, LineOf(line), LinePart::name,
                         QuotedExcerpt(line.key) + " is not read: [" + Excerpt(section.body->name) +
                             "] has no key of this name" + DidYouMean(nearest));
    // An error that suggests it tells the same.
    finding.causeLine = finding.context.line;
    if (nearest.isSure)
        finding.edits = {{EditPart::name, finding.context.line, 0, nearest.name}};
    return finding;
}

bool IniReading::IsMissingSection(std::string_view name) const {
    return std::any_of(missingSections_.begin(), missingSections_.end(),
                       [&](const std::string& missing) { return CaselessEqual()(missing, name); });
}

// A header that lacks one bracket.
Finding IniReading::BrokenHeader(const Line& line, std::string reason) const {
    Finding finding = At(Warning::ignoredKey, LineOf(line), LinePart::all, std::move(reason));
    const bool isOpen = line.key.starts_with('[');
    // Neither bracket, or others.
    if (const std::string_view bare = Trim(line.key, kAroundNames);
        !isOpen && !line.key.ends_with(']') && IsMissingSection(bare)) {
        finding.edits = {{EditPart::line, finding.context.line, 0, "[" + std::string(bare) + "]"}};
        return finding;
    }
    if (!isOpen && !line.key.ends_with(']'))
        return finding;
    std::string_view name = line.key;
    if (isOpen)
        name.remove_prefix(1);
    else
        name.remove_suffix(1);
    if (IsMissingSection(Trim(name)))
        finding.edits = {isOpen ? Edit{EditPart::lineEnd, finding.context.line, 0, "]"}
                                : Edit{EditPart::lineStart, finding.context.line, 0, "["}};
    return finding;
}

Finding IniReading::LineWithoutKey(const Section& section, const Line& line,
                                   const std::vector<std::string>& missing) const {
    const std::string reason = QuotedExcerpt(line.key) + " is not read: ";
    if (IsHeader(line.key))
        return BrokenHeader(line, reason + "the name of a section stands between '[' and ']'");
    const std::string_view word = line.key.substr(0, line.key.find_first_of(" \t:"));
    const auto meant = std::find_if(missing.begin(), missing.end(),
                                    [&](const std::string& key) { return CaselessEqual()(key, word); });
    Finding finding =
        At(Warning::ignoredKey, LineOf(line), LinePart::all,
           reason + "it has no '='; " +
               (meant == missing.end() ? "a comment begins with ';'" : "write " + *meant + "=..."));
    if (meant == missing.end())
        return finding;
    // That the key is missing is told at the section.
    if (section.body != nullptr)
        finding.causeLine = LineOf(section);
    if (line.key.find_first_not_of(" \t:", word.size()) != std::string_view::npos)
        finding.edits = {{EditPart::separator, finding.context.line, 0, "="}};
    return finding;
}

}  // namespace tovarek
