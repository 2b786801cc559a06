#include "support/IniReading.h"

#include <algorithm>
#include <utility>

#include "base/Nearest.h"
#include "base/Text.h"
#include "support/InputPlace.h"
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

std::string Quoted(std::string_view text) {
    return '"' + Excerpt(text) + '"';
}

// The number behind a prefix, 0 when there is none: 7 for "nv7".
std::int32_t NumberBehind(std::string_view name, std::string_view prefix) {
    if (name.size() <= prefix.size() || !CaselessEqual()(name.substr(0, prefix.size()), prefix))
        return 0;
    const IniInteger number = ReadIniInteger(name.substr(prefix.size()));
    const bool isPlain = IsDigit(name[prefix.size()]) && name[prefix.size()] != '0';
    return isPlain && number.isWhole && !number.wraps ? number.value : 0;
}

// A bit for names of this length and first letter; most names that are not in a section have another one.
std::uint64_t NameBit(std::string_view name) {
    const bool isPlain = !name.empty() && static_cast<unsigned char>(name[0]) < 0x80;
    const std::size_t letter = static_cast<unsigned char>(isPlain ? AsciiUpper(name[0]) : '\0');
    return std::uint64_t{1} << ((letter * 5 + name.size()) % 64);
}

// Most names differ in length or in their first letter; that is seen without a call.
bool IsNamed(std::string_view name, std::string_view wanted) {
    if (name.size() != wanted.size())
        return false;
    const bool isPlain = !name.empty() && static_cast<unsigned char>(name[0]) < 0x80 &&
                         static_cast<unsigned char>(wanted[0]) < 0x80;
    return !(isPlain && AsciiUpper(name[0]) != AsciiUpper(wanted[0])) && CaselessEqual()(name, wanted);
}

}  // namespace

IniReading::IniReading(std::string path) : path_(std::move(path)), bytes_(ReadOrNothing(path_)) {
    text_ = DecodeIni(bytes_, &encoding_);
    Scan();
}

void IniReading::Scan() {
    all_.emplace_back();
    FirstLines keys;
    std::string_view rest = text_;
    for (int number = 1; !rest.empty(); ++number)
        ScanLine(TrimIniLine(TakeLine(rest)), number, keys);
}

// The line of the first key with the name of `entry` in its section, 0 when it is the first itself. Few keys
// are compared one by one, many are looked up in `keys`.
int IniReading::FirstLine(const Section& section, const Line& entry, FirstLines& keys) {
    if ((section.names & NameBit(entry.key)) == 0 && keys.empty())
        return 0;
    constexpr std::size_t kFew = 32;
    if (section.lines.size() < kFew) {
        for (const Line& line : section.lines)
            if (line.kind == Kind::key && IsNamed(line.key, entry.key))
                return line.firstLine > 0 ? line.firstLine : line.number;
        return 0;
    }
    if (keys.empty())
        for (const Line& line : section.lines)
            if (line.kind == Kind::key)
                keys.try_emplace(line.key, line.number);
    const auto [first, isNew] = keys.try_emplace(entry.key, entry.number);
    return isNew ? 0 : first->second;
}

// `keys`: those of the section at hand, once they are many.
void IniReading::ScanLine(std::string_view line, int number, FirstLines& keys) {
    if (line.empty() || line.starts_with(';'))
        return;
    if (const std::string_view name = IniSectionName(line); name.data() != nullptr) {
        const auto [first, isNew] = sections_.try_emplace(name, all_.size());
        Section& section = all_.emplace_back();
        section.name = name;
        section.line = number;
        constexpr std::size_t kUsualKeys = 12;
        section.lines.reserve(kUsualKeys);
        section.firstLine = isNew ? 0 : all_[first->second].line;
        if (!keys.empty())
            keys.clear();
        return;
    }
    Section& section = all_.back();
    Line entry{.number = number};
    if (SplitIniKey(line, entry.key, entry.value)) {
        entry.value = IniValue(entry.value);
        entry.firstLine = FirstLine(section, entry, keys);
        section.names |= NameBit(entry.key);
    } else {
        entry.kind = Kind::other;
        entry.key = line;
    }
    section.lines.push_back(entry);
}

const IniReading::Line* IniReading::Find(std::string_view section, std::string_view key) const {
    const auto found = sections_.find(section);
    if (found == sections_.end())
        return nullptr;
    for (const Line& line : all_[found->second].lines)
        if (line.kind == Kind::key && IsNamed(line.key, key))
            return &line;
    return nullptr;
}

bool IniReading::HasKey(std::string_view section, std::string_view key) const {
    return Find(section, key) != nullptr;
}

int IniReading::LineOf(std::string_view section, std::string_view key) const {
    if (const Line* const line = Find(section, key))
        return line->number;
    const auto found = sections_.find(section);
    return found == sections_.end() ? 0 : all_[found->second].line;
}

IniReading::Line* IniReading::Ask(std::string_view section, std::string_view key) {
    // The keys of a section are asked for one behind the other.
    if (lastPlace_ == 0 || lastName_ != section) {
        const auto found = sections_.find(section);
        lastName_ = section;
        lastPlace_ = found == sections_.end() ? 0 : found->second;
        // Names to suggest; a suggestion out of thousands helps nobody.
        constexpr std::size_t kMostSuggested = 32;
        if (lastPlace_ == 0 && missingSections_.size() < kMostSuggested &&
            (missingSections_.empty() || missingSections_.back() != section))
            missingSections_.emplace_back(section);
    }
    if (lastPlace_ == 0)
        return nullptr;
    Section& asked = all_[lastPlace_];
    asked.isAsked = true;
    asked_.emplace_back(lastPlace_, key);
    if ((asked.names & NameBit(key)) == 0)
        return nullptr;
    for (Line& line : asked.lines) {
        if (line.kind != Kind::key || !IsNamed(line.key, key))
            continue;
        line.isAsked = true;
        return &line;
    }
    return nullptr;
}

Finding IniReading::At(Warning warning, int line, LinePart part, std::string reason) const {
    return {.context = {.file = path_, .line = line, .reason = std::move(reason)},
            .warning = warning,
            .part = part};
}

void IniReading::Integer(std::string_view section, std::string_view key, const Title& record,
                         const Explain& explain, FindingSink& findings) {
    const Line* const line = Ask(section, key);
    if (line == nullptr)
        return;
    const IniInteger read = ReadIniInteger(line->value);
    if (read.isWhole && !read.wraps)
        return;
    const std::string typed(TrimBlanks(line->value));
    const std::string more = explain ? explain(typed, read.value) : std::string();
    const std::string value = std::to_string(read.value);
    std::string reason = read.isWhole ? Quoted(typed) + " is beyond 32 bits; it is read as " + value +
                                            (more.empty() ? more : ", " + more)
                                      : NotANumber(typed, key, value, more);
    Finding finding = At(read.isWhole ? Warning::overflowedNumber : Warning::notANumber, line->number,
                         LinePart::value, std::move(reason));
    finding.context.record = record();
    finding.context.field = key;
    finding.context.value = typed;
    findings.Take(std::move(finding));
}

void IniReading::Text(std::string_view section, std::string_view key, const Title& record,
                      FindingSink& findings) {
    const Line* const line = Ask(section, key);
    if (line == nullptr)
        return;
    const std::string_view value = TrimBlanks(line->value);
    // Bytes are counted faster than characters, and there are never fewer of them.
    const std::size_t length = value.size() <= kLongestIniValue ? 0 : CharacterCount(value);
    if (length <= kLongestIniValue)
        return;
    Finding finding =
        At(Warning::cutText, line->number, LinePart::value,
           "only the first " + std::to_string(kLongestIniValue) + " of the " + std::to_string(length) +
               " characters are read; an XML template has no such bound");
    finding.context.record = record();
    finding.context.field = key;
    findings.Take(std::move(finding));
}

void IniReading::Numbered(std::string_view prefix, std::string_view section, std::string_view count) {
    numbered_.push_back({prefix, section, count});
}

void IniReading::TellFile(FindingSink& findings) const {
    if (encoding_ == IniEncoding::codePage && !IsAscii(bytes_) && IsUtf8(bytes_))
        TellEncoding(findings);
    for (const Section& section : all_) {
        if (section.firstLine > 0)
            findings.Take(At(Warning::duplicateSection, section.line, LinePart::all,
                             "section [" + Excerpt(section.name) + "] stands in line " +
                                 std::to_string(section.firstLine) + " already; only that one is read"));
    }
}

void IniReading::TellEncoding(FindingSink& findings) const {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    const auto first =
        static_cast<std::size_t>(std::find_if_not(bytes_.begin(), bytes_.end(), isAscii) - bytes_.begin());
    std::size_t end = first;
    NextCharacter(bytes_, end);
    const std::string character = bytes_.substr(first, end - first);
    int line = 0;
    for (std::string_view rest = bytes_; bytes_.size() - rest.size() <= first; ++line)
        TakeLine(rest);
    Finding finding =
        At(Warning::encoding, line, LinePart::value,
           "the file is UTF-8 without the mark that says so, so it is read in the 8-bit code page: " +
               Quoted(character) + " becomes " + Quoted(FromCodePage(character)) +
               "; save it as UTF-8 with a mark (BOM)");
    finding.context.value = FromCodePage(character);
    findings.Take(std::move(finding));
}

// The line of what was probably meant by a missing count: a key that nobody reads and that is called nearly
// so, or such a section in place of its section. 0 when there is none.
int IniReading::LineMeantFor(const NumberedSections& row) const {
    std::vector<std::string> unread;
    const auto found = sections_.find(row.section);
    if (found == sections_.end()) {
        for (const Section& section : all_)
            if (!section.isAsked && NumberBehind(section.name, row.prefix) == 0)
                unread.emplace_back(section.name);
        return LineOf(Nearest(row.section, unread));
    }
    for (const Line& line : all_[found->second].lines)
        if (line.kind == Kind::key && !line.isAsked)
            unread.emplace_back(line.key);
    const std::string nearest = Nearest(row.count, unread);
    return nearest.empty() ? 0 : LineOf(row.section, nearest);
}

// The line of the finding that explains why no section with the prefix is read: the count, what was meant by
// it, or where it should stand.
int IniReading::LineOfCount(const NumberedSections& row) const {
    if (const Line* const count = Find(row.section, row.count))
        return count->number;
    if (const int meant = LineMeantFor(row); meant > 0)
        return meant;
    if (HasSection(row.section))
        return LineOf(row.section);
    const auto first = std::find_if(all_.begin(), all_.end(), [&](const Section& section) {
        return NumberBehind(section.name, row.prefix) > 0;
    });
    return first == all_.end() ? 0 : first->line;
}

// A count that is missing altogether explains all sections that are not read for it.
void IniReading::TellMissingCount(const NumberedSections& row, FindingSink& findings) const {
    const bool hasSections = std::any_of(all_.begin(), all_.end(), [&](const Section& section) {
        return NumberBehind(section.name, row.prefix) > 0;
    });
    if (hasSections && !HasKey(row.section, row.count) && LineMeantFor(row) == 0)
        findings.Take(At(Warning::countMismatch, row.causeLine, LinePart::all,
                         "there is no " + std::string(row.count) + " in [" + std::string(row.section) +
                             "], so none of the sections [" + std::string(row.prefix) + "1], [" +
                             std::string(row.prefix) + "2], ... is read"));
}

void IniReading::TellUnread(FindingSink& findings) {
    for (NumberedSections& row : numbered_) {
        row.causeLine = LineOfCount(row);
        TellMissingCount(row, findings);
    }
    bool isSorted = false;
    for (std::size_t place = 0; place < all_.size(); ++place) {
        const Section& section = all_[place];
        if (section.firstLine > 0)
            continue;
        if (section.line > 0 && !section.isAsked)
            TellUnreadSection(section, findings);
        else if (std::any_of(section.lines.begin(), section.lines.end(),
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
        if (!HasKey(all_[place].name, asked->second))
            missing.emplace_back(asked->second);
    return missing;
}

void IniReading::TellUnreadLines(const Section& section, const std::vector<std::string>& missing,
                                 FindingSink& findings) const {
    for (const Line& line : section.lines)
        if (!line.isAsked)
            TellUnreadLine(section, line, missing, findings);
}

void IniReading::TellUnreadSection(const Section& section, FindingSink& findings) const {
    const std::string name = "section [" + Excerpt(section.name) + "]";
    for (const NumberedSections& row : numbered_) {
        if (NumberBehind(section.name, row.prefix) == 0)
            continue;
        const Line* const count = Find(row.section, row.count);
        Finding finding = At(
            Warning::ignoredSection, section.line, LinePart::all,
            name + " is not read: " +
                (count == nullptr
                     ? "there is no " + std::string(row.count) + " in [" + std::string(row.section) + "]"
                     : std::string(row.count) + " is " + std::to_string(ReadIniInteger(count->value).value)));
        finding.causeLine = row.causeLine;
        findings.Take(std::move(finding));
        return;
    }
    findings.Take(At(Warning::ignoredSection, section.line, LinePart::all,
                     name + " is not read: no section of this name is asked for" +
                         DidYouMean(section.name, missingSections_)));
}

void IniReading::TellUnreadLine(const Section& section, const Line& line,
                                const std::vector<std::string>& missing, FindingSink& findings) const {
    if (line.kind == Kind::other)
        findings.Take(At(Warning::ignoredKey, line.number, LinePart::all,
                         Quoted(line.key) + " is not read: it has no '='; a comment begins with ';'"));
    else if (section.line == 0)
        findings.Take(At(Warning::ignoredKey, line.number, LinePart::name,
                         Quoted(line.key) + " is not read: it stands in front of the first section"));
    else if (line.firstLine > 0)
        findings.Take(At(Warning::duplicateKey, line.number, LinePart::name,
                         Excerpt(line.key) + " stands in line " + std::to_string(line.firstLine) +
                             " already; only that one is read"));
    else
        findings.Take(At(Warning::ignoredKey, line.number, LinePart::name,
                         Quoted(line.key) + " is not read: [" + Excerpt(section.name) +
                             "] has no key of this name" + DidYouMean(line.key, missing)));
}

}  // namespace tovarek
