// Sections that nobody asked for, and the counts that tell how many are read.
#include <algorithm>

#include "base/Nearest.h"
#include "base/Text.h"
#include "support/IniReading.h"

namespace tovarek {

// The line of what was probably meant by a missing count: a key that nobody reads and that is called nearly
// so, or such a section in place of its section. 0 when there is none.
int IniReading::LineMeantFor(const NumberedSections& row) const {
    std::vector<std::string> unread;
    if (!HasSection(row.section)) {
        if (const int stray = LineOfStray(row.count); stray != 0)
            return stray;
        for (const Section& section : all_)
            if (section.body != nullptr && !section.isAsked &&
                NumberBehind(section.body->name, row.prefix) == 0)
                unread.emplace_back(section.body->name);
        return LineOf(Nearest(row.section, unread));
    }
    for (const Line& line : all_[text_->PlaceOf(row.section) + 1].lines)
        if (line.kind == Kind::key && !line.isAsked)
            unread.emplace_back(line.key);
    const std::string nearest = Nearest(row.count, unread);
    return nearest.empty() ? LineOfStray(row.count) : LineOf(row.section, nearest);
}

// The line of a key that nobody reads, in a section that somebody reads; 0 when there is none.
int IniReading::LineOfStray(std::string_view key) const {
    for (const Section& section : all_)
        for (const Line& line : section.lines)
            if (section.isFirst && section.isAsked && line.kind == Kind::key && !line.isAsked &&
                CaselessEqual()(line.key, key))
                return LineOf(line);
    return 0;
}

std::vector<IniReading::Section>::const_iterator IniReading::FirstNumbered(
    const NumberedSections& row) const {
    return std::find_if(all_.begin(), all_.end(), [&](const Section& section) {
        return section.body != nullptr && NumberBehind(section.body->name, row.prefix) > 0;
    });
}

// The line of the finding that explains why no section with the prefix is read: the count, what was meant by
// it, or where it should stand.
int IniReading::LineOfCount(const NumberedSections& row) const {
    if (HasKey(row.section, row.count))
        return LineOf(row.section, row.count);
    if (const int meant = LineMeantFor(row); meant > 0)
        return meant;
    if (HasSection(row.section))
        return LineOf(row.section);
    const auto first = FirstNumbered(row);
    return first == all_.end() ? 0 : LineOf(*first);
}

int IniReading::CauseLine(const NumberedSections& row) const {
    if (!row.causeLine)
        row.causeLine = LineOfCount(row);
    return *row.causeLine;
}

// How many sections stand behind the prefix, numbered from 1 without a gap; 0 for any others.
std::int32_t IniReading::CountSections(const NumberedSections& row) const {
    std::int32_t count = 0;
    std::int32_t last = 0;
    for (const Section& section : all_) {
        const std::int32_t number =
            section.body == nullptr || !section.isFirst ? 0 : NumberBehind(section.body->name, row.prefix);
        count += number > 0 ? 1 : 0;
        last = std::max(last, number);
    }
    return count == last ? count : 0;
}

// What the count has to be so that all its sections are read; 0 where that is not sure.
std::int32_t IniReading::CountMeant(const NumberedSections& row) const {
    if (!row.countMeant)
        row.countMeant = CountSections(row);
    return *row.countMeant <= row.most ? *row.countMeant : 0;
}

// What to write for a count that is no number.
Advice IniReading::AdviceOn(std::string_view section, std::string_view key) const {
    for (const NumberedSections& row : numbered_) {
        if (row.section != section || row.count != key || CountMeant(row) == 0)
            continue;
        const std::string count = std::to_string(CountMeant(row));
        return {"write " + std::string(key) + "=" + count, count};
    }
    return {};
}

// A count that is missing altogether explains all sections that are not read for it.
void IniReading::TellMissingCount(const NumberedSections& row, FindingSink& findings) const {
    if (HasKey(row.section, row.count) || FirstNumbered(row) == all_.end() || LineMeantFor(row) != 0)
        return;
    Finding finding = At(Warning::countMismatch, CauseLine(row), LinePart::all,
                         "there is no " + std::string(row.count) + " in [" + std::string(row.section) +
                             "], so none of the sections [" + std::string(row.prefix) + "1], [" +
                             std::string(row.prefix) + "2], ... is read");
    if (HasSection(row.section) && CountMeant(row) > 0) {
        const std::string line = std::string(row.count) + "=" + std::to_string(CountMeant(row));
        finding.context.reason += ": write " + line;
        finding.edits = {{EditPart::lineEnd, finding.context.line, 0, "\n" + line}};
    }
    findings.Take(std::move(finding));
}

// Nothing for a section whose missing count is told at it already.
std::optional<Finding> IniReading::UnreadSection(const Section& section) {
    for (NumberedSections& row : numbered_)
        if (NumberBehind(section.body->name, row.prefix) > 0)
            return UnreadNumbered(section, row);
    const NearestName nearest = NearestOf(section.body->name, missingSections_);
    Finding finding = At(Warning::ignoredSection, LineOf(section), LinePart::all,
                         "section [" + Excerpt(section.body->name) +
                             "] is not read: no section of this name is asked for" + DidYouMean(nearest));
    // An error that suggests it tells the same.
    finding.causeLine = finding.context.line;
    if (nearest.isSure)
        finding.edits = {{EditPart::name, finding.context.line, 0, nearest.name}};
    return finding;
}

std::optional<Finding> IniReading::UnreadNumbered(const Section& section, NumberedSections& row) const {
    const std::string_view count = Value(row.section, row.count);
    if (count.data() == nullptr && CauseLine(row) == LineOf(section))
        return std::nullopt;
    const std::string key(row.count);
    Finding finding =
        At(Warning::ignoredSection, LineOf(section), LinePart::all,
           "section [" + Excerpt(section.body->name) + "] is not read: " +
               (count.data() == nullptr ? "there is no " + key + " in [" + std::string(row.section) + "]"
                                        : key + " is " + std::to_string(ReadIniInteger(count).value)));
    finding.causeLine = row.firstUnread > 0 ? row.firstUnread : CauseLine(row);
    row.firstUnread = row.firstUnread > 0 ? row.firstUnread : finding.context.line;
    if (count.data() == nullptr || CountMeant(row) == 0)
        return finding;
    const std::string meant = std::to_string(CountMeant(row));
    finding.context.reason += "; write " + key + "=" + meant;
    finding.edits = {{EditPart::value, LineOf(row.section, row.count), 0, meant}};
    return finding;
}

}  // namespace tovarek
