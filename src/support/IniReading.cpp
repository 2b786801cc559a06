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

// What people put around the name of a section.
constexpr std::string_view kAroundNames = " \t[]{}()<>:";

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

IniReading::IniReading(std::string path, std::shared_ptr<const IniText> text)
    : path_(std::move(path)), text_(std::move(text)) {
    const std::vector<IniBody>& bodies = text_->Bodies();
    const std::string_view whole = text_->Whole();
    all_.resize(bodies.size() + 1);
    Scan(bodies.empty() ? whole
                        : whole.substr(0, static_cast<std::size_t>(bodies[0].header.data() - whole.data())),
         all_[0]);
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        Section& section = all_[i + 1];
        section.body = &bodies[i];
        section.isFirst = bodies[i].first == i;
        section.isAsked = bodies[i].isPlain;
        if (!bodies[i].isPlain)
            Scan(bodies[i].lines, section);
    }
}

void IniReading::Scan(std::string_view lines, Section& section) {
    FirstKeys keys;
    while (!lines.empty())
        ScanLine(TrimIniLine(TakeLine(lines)), section, keys);
}

// The first key with the name of `entry` in its section, null when it is the first itself. Few keys are
// compared one by one, many are looked up in `keys`.
const char* IniReading::FirstOf(const Section& section, const Line& entry, FirstKeys& keys) {
    if ((section.names & NameBit(entry.key)) == 0 && keys.empty())
        return nullptr;
    constexpr std::size_t kFew = 32;
    if (section.lines.size() < kFew) {
        for (const Line& line : section.lines)
            if (line.kind == Kind::key && IsNamed(line.key, entry.key))
                return line.first != nullptr ? line.first : line.key.data();
        return nullptr;
    }
    if (keys.empty())
        for (const Line& line : section.lines)
            if (line.kind == Kind::key)
                keys.try_emplace(line.key, line.key.data());
    const auto [first, isNew] = keys.try_emplace(entry.key, entry.key.data());
    return isNew ? nullptr : first->second;
}

// `keys`: those of the section, once they are many.
void IniReading::ScanLine(std::string_view line, Section& section, FirstKeys& keys) {
    if (line.empty() || line.starts_with(';'))
        return;
    Line entry;
    if (SplitIniKey(line, entry.key, entry.value)) {
        entry.value = IniValue(entry.value);
        entry.first = FirstOf(section, entry, keys);
        section.names |= NameBit(entry.key);
    } else {
        entry.kind = Kind::other;
        entry.key = line;
    }
    section.lines.push_back(entry);
}

// The value of a key; a view of null when there is none.
std::string_view IniReading::Value(std::string_view section, std::string_view key) const {
    IniSection keys;
    text_->ReadSection(section, keys);
    return keys.RawValue(key);
}

IniReading::Line* IniReading::Ask(std::string_view section, std::string_view key) {
    // The keys of a section are asked for one behind the other.
    if (lastPlace_ == 0 || lastName_ != section) {
        lastName_ = section;
        lastPlace_ = text_->HasSection(section) ? text_->PlaceOf(section) + 1 : 0;
        // Names to suggest; a suggestion out of thousands helps nobody.
        constexpr std::size_t kMostSuggested = 32;
        if (lastPlace_ == 0 && missingSections_.size() < kMostSuggested &&
            (missingSections_.empty() || missingSections_.back() != section))
            missingSections_.emplace_back(section);
    }
    if (lastPlace_ == 0) {
        constexpr std::size_t kMostKept = 256;
        if (askedNowhere_.size() < kMostKept)
            askedNowhere_.emplace_back(section, key);
        return nullptr;
    }
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

void IniReading::Skip(std::string_view section) {
    if (!HasSection(section))
        return;
    Section& skipped = all_[text_->PlaceOf(section) + 1];
    skipped.isAsked = true;
    skipped.lines.clear();
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
    const Advice advice = explain ? explain(typed, read.value) : AdviceOn(section, key);
    const std::string& more = advice.text;
    const std::string value = std::to_string(read.value);
    std::string reason = read.isWhole ? Quoted(typed) + " is beyond 32 bits; it is read as " + value +
                                            (more.empty() ? more : ", " + more)
                                      : NotANumber(typed, key, value, more);
    Finding finding = At(read.isWhole ? Warning::overflowedNumber : Warning::notANumber, LineOf(*line),
                         LinePart::value, std::move(reason));
    finding.context.record = record();
    finding.context.field = key;
    finding.context.value = typed;
    if (!read.isWhole && !advice.value.empty())
        finding.edits = {{EditPart::value, finding.context.line, 0, advice.value}};
    findings.Take(std::move(finding));
}

void IniReading::Text(std::string_view section, std::string_view key, const Title& record,
                      FindingSink& findings) {
    const Line* const line = Ask(section, key);
    if (line == nullptr)
        return;
    const std::string_view value = TrimBlanks(line->value);
    if (BeginsOddly(value))
        Tell(
            Warning::oddQuote, *line, key, record,
            std::string("the text begins with ") + value.front() +
                " and does not end with it, so it is read with the quotation mark: close it, or leave it out",
            findings);
    // Bytes are counted faster than characters, and there are never fewer of them.
    const std::size_t length = value.size() <= kLongestIniValue ? 0 : CharacterCount(value);
    if (length <= kLongestIniValue)
        return;
    Tell(Warning::cutText, *line, key, record,
         "only the first " + std::to_string(kLongestIniValue) + " of the " + std::to_string(length) +
             " characters are read; an XML template has no such bound",
         findings);
}

// A warning about the text of a key.
void IniReading::Tell(Warning warning, const Line& line, std::string_view key, const Title& record,
                      std::string reason, FindingSink& findings) const {
    Finding finding = At(warning, LineOf(line), LinePart::value, std::move(reason));
    finding.context.record = record();
    finding.context.field = key;
    findings.Take(std::move(finding));
}

void IniReading::Numbered(std::string_view prefix, std::string_view section, std::string_view count,
                          std::int32_t most) {
    numbered_.push_back({prefix, section, count, most});
}

// What stands behind the brackets of a header, and is no comment.
void IniReading::TellBehindHeader(const Section& section, FindingSink& findings) const {
    const std::string_view header = section.body->header;
    const std::string_view behind = Trim(header.substr(std::min(header.rfind(']'), header.size() - 1) + 1));
    if (!behind.empty() && !behind.starts_with(';') && !behind.starts_with('#'))
        findings.Take(At(Warning::ignoredKey, LineOf(section), LinePart::all,
                         Quoted(behind) +
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
               Quoted(character) + " becomes " + Quoted(FromCodePage(character)) +
               "; save it as UTF-8 with a mark (BOM)");
    finding.context.value = FromCodePage(character);
    finding.edits = {{EditPart::fileStart, 1, 0, "\xEF\xBB\xBF"}};
    findings.Take(std::move(finding));
}

// The line of what was probably meant by a missing count: a key that nobody reads and that is called nearly
// so, or such a section in place of its section. 0 when there is none.
int IniReading::LineMeantFor(const NumberedSections& row) const {
    std::vector<std::string> unread;
    if (!HasSection(row.section)) {
        if (const int stray = LineOfStray(row.count); stray > 0)
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
                IsNamed(line.key, key))
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
                         Quoted(line.key) + " is not read: it belongs into [" + section + "]" +
                             (exists ? "" : ", which the file does not have"));
    const auto [first, isNew] = strays_.try_emplace(section, finding.context.line);
    finding.causeLine = exists || isNew ? finding.context.line : first->second;
    finding.aroundLine = exists ? LineOf(section) : Finding::kNowhere;
    return finding;
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

Finding IniReading::UnreadLine(const Section& section, const Line& line,
                               const std::vector<std::string>& missing) {
    if (line.kind == Kind::other)
        return LineWithoutKey(section, line, missing);
    const std::string other = line.first == nullptr ? SectionOfKey(line.key) : std::string();
    if (!other.empty())
        return StrayKey(line, other);
    if (section.body == nullptr)
        return At(Warning::ignoredKey, LineOf(line), LinePart::name,
                  Quoted(line.key) + " is not read: it stands in front of the first section");
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
                         Quoted(line.key) + " is not read: [" + Excerpt(section.body->name) +
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
    const std::string reason = Quoted(line.key) + " is not read: ";
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
